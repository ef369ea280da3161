#include "app/host_templates.h"

#include <gtest/gtest.h>

#include "app/host_messages.h"
#include "app/netlist_view.h"
#include "app/testing/host_fixture.h"
#include "app/text_document.h"
#include "platform/afx/frame_wnd.h"
#include "platform/win/window_props.h"

namespace velorand::host {
namespace {

class HostTemplatesTest : public testing::HostTest {
  protected:
    // Opens the netlist as the project does: through the template that the main window
    // publishes for the simulator, without showing it.
    afx::CDocument* OpenNetlist(int simulator, const std::string& relative) {
        auto* tmpl = reinterpret_cast<afx::CDocTemplate*>(
            win::GetProp(frame->m_hWnd, ("SimulatorTemplate" + std::to_string(simulator)).c_str()));
        if (tmpl == nullptr) {
            return nullptr;
        }
        return tmpl->OpenDocumentFile(sandbox.Platform(relative).c_str(), win::FALSE);
    }
    win::LRESULT Ask(CHostView* view, win::UINT code, win::LPARAM argument) {
        ProjectNotify record;
        record.idFrom = 100;
        record.code = code;
        record.option = 1;
        record.argument = argument;
        view->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(&record));
        return record.result;
    }
};

TEST_F(HostTemplatesTest, EachSimulatorsNetlistTemplateIsPublishedWithItsExtension) {
    const char* extensions[] = {".ckt", ".lmt"};
    for (int i = 0; i < 2; ++i) {
        auto* tmpl = reinterpret_cast<afx::CDocTemplate*>(
            win::GetProp(frame->m_hWnd, ("SimulatorTemplate" + std::to_string(i)).c_str()));
        ASSERT_EQ(tmpl, app.Templates().Netlist(i));
        std::string ext;
        EXPECT_TRUE(tmpl->GetDocString(ext, afx::CDocTemplate::filterExt));
        EXPECT_EQ(ext, extensions[i]);
    }
    EXPECT_EQ(win::GetProp(frame->m_hWnd, "SimulatorTemplate2"), nullptr);
    EXPECT_EQ(app.Templates().Netlist(2), nullptr);
    // The application picks the template by the file's extension.
    sandbox.Write("amp/amp.lmt", "* netlist\n");
    afx::CDocument* doc = Open("amp/amp.lmt");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->GetDocTemplate(), app.Templates().Netlist(1));
}

TEST_F(HostTemplatesTest, TheNetlistOpensUnseenAnnouncesItselfAndAnswersTheProject) {
    afx::CDocument* doc = OpenNetlist(0, "amp/amp.ckt");  // not written yet: it opens empty
    ASSERT_NE(doc, nullptr);
    auto* view = static_cast<CNetlistView*>(ViewOf(doc));
    ASSERT_EQ(owner->Codes(), (std::vector<win::UINT>{200, 234}));
    EXPECT_EQ(owner->received[0].idFrom, 145u);
    EXPECT_EQ(owner->received[0].document, doc);
    EXPECT_EQ(owner->received[1].text, "amp.ckt");

    EXPECT_EQ(Ask(view, 235, reinterpret_cast<win::LPARAM>("Close")), 1);
    EXPECT_EQ(Ask(view, 334, 7), 0);
    EXPECT_TRUE(view->ReportRun(216, true).delivered);
    EXPECT_EQ(Ask(view, 235, reinterpret_cast<win::LPARAM>("Close")), 0);
    EXPECT_EQ(Ask(view, 334, 7), 1);
    view->ReportRun(216, false);
    EXPECT_EQ(Ask(view, 235, reinterpret_cast<win::LPARAM>("Close")), 1);
    EXPECT_EQ(owner->received[2].code, 216u);
    EXPECT_EQ(owner->received[2].option, 1);
    EXPECT_EQ(owner->received[3].option, 0);

    // The translator has written the file: command 25621 has the document read it.
    sandbox.Write("amp/amp.ckt", "* FileName: C:\\amp\\amp.ckt\n.END\n");
    EXPECT_TRUE(doc->OnCmdMsg(ID_TEMPLATE_REFRESH, 0, nullptr, nullptr));
    EXPECT_EQ(static_cast<CTextDocument*>(doc)->Lines(),
              (std::vector<std::string>{"* FileName: C:\\amp\\amp.ckt", ".END"}));

    // During a tuning run the project asks the netlist's frame instead of a translator.
    afx::CFrameWnd* netFrame = view->GetParentFrame();
    netFrame->SendMessage(win::WM_COMMAND, ID_TUNING_NETLIST, 9998);
    EXPECT_EQ(
        view->Events(),
        (std::vector<std::string>{
            "notify 235 from 100 option 1 \"Close\"", "notify 334 from 100 option 1",
            "notify 235 from 100 option 1 \"Close\"", "notify 334 from 100 option 1",
            "notify 235 from 100 option 1 \"Close\"", "netlist reread", "tuning netlist request"}));
}

TEST_F(HostTemplatesTest, ARenamedSchematicIsCarriedIntoTheSimulatorsReport) {
    sandbox.Write("amp/amp.ckt", "* netlist\n");
    sandbox.Write("amp/amp.vrp", "Report of C:\\amp\\stage.sch\nsee c:\\AMP\\STAGE.SCH too\n");
    afx::CDocument* doc = OpenNetlist(0, "amp/amp.ckt");
    ASSERT_NE(doc, nullptr);
    const std::string text =
        "C:\\amp\\stage.sch+C:\\amp\\gain.sch+" + sandbox.Platform("amp/amp.vrp");
    afx::CFrameWnd* netFrame = ViewOf(doc)->GetParentFrame();
    EXPECT_EQ(
        netFrame->SendMessage(PM_RENAME_REFERENCE, 0, reinterpret_cast<win::LPARAM>(text.c_str())),
        1);
    EXPECT_EQ(sandbox.Read("amp/amp.vrp"),
              "Report of C:\\amp\\gain.sch\nsee C:\\amp\\gain.sch too\n");

    const std::string gone = "C:\\a.sch+C:\\b.sch+" + sandbox.Platform("amp/none.vrp");
    EXPECT_EQ(
        netFrame->SendMessage(PM_RENAME_REFERENCE, 0, reinterpret_cast<win::LPARAM>(gone.c_str())),
        0);
    EXPECT_EQ(
        netFrame->SendMessage(PM_RENAME_REFERENCE, 0, reinterpret_cast<win::LPARAM>("C:\\a.sch")),
        0);
    EXPECT_EQ(ViewOf(doc)->Events().back(),
              "error: A rename reference takes \"<old>+<new>+<report>\": C:\\a.sch");
}

TEST_F(HostTemplatesTest, ANetlistThatCannotBeReadOpensNothing) {
    std::filesystem::create_directories(sandbox.Posix("amp/amp.ckt"));
    EXPECT_EQ(OpenNetlist(0, "amp/amp.ckt"), nullptr);
    EXPECT_EQ(frame->StatusText(),
              "Unable to open " + sandbox.Platform("amp/amp.ckt") + ": access is denied.");
    EXPECT_TRUE(owner->received.empty());
}

}  // namespace
}  // namespace velorand::host
