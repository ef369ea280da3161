// The simulator's runs as the template's view reports them, with the reference host's
// schematic editor and the real translator behind the project amp2.
#include <gmock/gmock.h>

#include <algorithm>

#include "app/host_templates.h"
#include "app/host_view.h"
#include "app/schematic_document.h"
#include "app/text_document.h"
#include "host/notify_codes.h"
#include "platform/win/window_props.h"
#include "tools/testing/toolchain_fixture.h"
#include "tools/tool_launcher.h"

namespace velorand {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::ToolchainTest;

class AnalysisReportTest : public ToolchainTest {
  protected:
    void SetUp() override {
        ToolchainTest::SetUp();
        hostTemplates.Register(app, *mainWnd);
        win::SetProp(mainWnd->m_hWnd, "Project",
                     reinterpret_cast<win::HANDLE>(doc->treeView->m_hWnd));
        ASSERT_EQ(doc->UpdateTree(), 1);
    }
    void TearDown() override {
        hostTemplates.Schematic()->CloseAllDocuments(win::FALSE);
        hostTemplates.Netlist(0)->CloseAllDocuments(win::FALSE);
        win::RemoveProp(mainWnd->m_hWnd, "Project");
        ToolchainTest::TearDown();
    }

    // A report of the template's view: the record as the hub has left it.
    ProjectNotify Report(win::UINT code, int option, win::UINT_PTR from = kFromTemplate,
                         win::LPARAM argument = 0) {
        ProjectNotify record;
        record.idFrom = from;
        record.code = code;
        record.option = option;
        record.argument = argument;
        doc->treeView->SendMessage(win::WM_NOTIFY, from, reinterpret_cast<win::LPARAM>(&record));
        return record;
    }
    host::CHostView* OpenSchematic(const char* path) {
        afx::CDocument* sheet = hostTemplates.Schematic()->OpenDocumentFile(path, win::TRUE);
        auto* view = dynamic_cast<host::CHostView*>(CProjectDoc::GetFirstDocView(sheet));
        if (view != nullptr)
            view->ClearEvents();
        return view;
    }
    bool LogNoticeGiven() const {
        const std::vector<host::HostMessage>& messages = mainWnd->Messages();
        return std::any_of(messages.begin(), messages.end(),
                           [](const host::HostMessage& m) { return m.message == kToolLogNotice; });
    }

    host::HostTemplates hostTemplates;
};

TEST_F(AnalysisReportTest, AnAnalysisBringsTheNetlistUpToDateAndTellsTheEditor) {
    host::CHostView* top = OpenSchematic("C:\\amp2\\amp2.sch");
    ASSERT_NE(top, nullptr);
    ASSERT_EQ(Report(237, 0).result, 1);
    // Only the template's view reports runs.
    mainWnd->ClearMessages();
    for (win::UINT code : {216u, 218u, 219u, 221u})
        Report(code, 1, kFromSchematic);
    EXPECT_THAT(StatusLines(), IsEmpty());
    EXPECT_EQ(doc->tuning, 0);

    Report(kCodeAnalysisReport, 1);
    EXPECT_THAT(StatusLines(), Contains("Analyzing started ..."));
    EXPECT_THAT(StatusLines(), Contains("Netlisting..."));
    EXPECT_THAT(sandbox.Read("amp2/amp2.ckt"), HasSubstr(".TITLE amp2\n"));
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), HasSubstr("LastUpdated="));
    // The editor hears of the run once the project's save has asked after it (309).
    EXPECT_THAT(top->Events(),
                ElementsAre("notify 309 from 100 option 0", "notify 216 from 145 option 1"));
    EXPECT_EQ(doc->reportToolLog, 1);

    // A netlist that fails at the run's end is no news to the user; at its start it is.
    UseStandIns(VELORAND_FAKE_TOOLS_DIR, 11);
    mainWnd->ClearMessages();
    Report(kCodeAnalysisReport, 0);
    EXPECT_THAT(StatusLines(), Contains("Analyzing ended ..."));
    EXPECT_FALSE(LogNoticeGiven());
    EXPECT_EQ(doc->reportToolLog, 1);
    EXPECT_THAT(top->Events(), Contains("notify 216 from 145 option 0"));
    Report(kCodeAnalysisReport, 1);
    EXPECT_TRUE(LogNoticeGiven());
}

TEST_F(AnalysisReportTest, ATuningRunLocksTheEditorAndItsEndRedraws) {
    host::CHostView* top = OpenSchematic("C:\\amp2\\amp2.sch");
    mainWnd->ClearMessages();
    Report(kCodeTuningReport, 1);
    EXPECT_EQ(doc->tuning, 1);
    EXPECT_THAT(StatusLines(), ElementsAre("Tuning started ..."));

    ProjectNotify end = Report(kCodeTuningReport, 0);
    EXPECT_EQ(doc->tuning, 0);
    EXPECT_THAT(top->Events(),
                ElementsAre("notify 218 from 145 option 1", "notify 218 from 145 option 0",
                            "notify 304 from 100 option 0", "locked",
                            "notify 225 from 100 option 0 \":redraw\"", "redraw"));
    // The host gets its record back as it was last sent on.
    EXPECT_EQ(end.idFrom, kFromProject);
    EXPECT_EQ(end.code, 225u);
    EXPECT_STREQ(reinterpret_cast<const char*>(end.argument), ":redraw");

    Report(kCodeOptimizingReport, 1);
    EXPECT_THAT(StatusLines(), Contains("Optimizing started ..."));
}

TEST_F(AnalysisReportTest, ARunThatStartsBeforeAnyEditorIsToldToTheFirstThatOpens) {
    Report(kCodeTuningReport, 1);
    EXPECT_EQ(doc->replayCode, 218u);
    // An analysis during the run leaves the code as it is.
    Report(kCodeAnalysisReport, 1);
    EXPECT_EQ(doc->replayCode, 218u);

    afx::CDocument* sheet =
        hostTemplates.Schematic()->OpenDocumentFile("C:\\amp2\\stage.sch", win::TRUE);
    auto* stage = dynamic_cast<host::CHostView*>(CProjectDoc::GetFirstDocView(sheet));
    ASSERT_NE(stage, nullptr);
    EXPECT_THAT(stage->Events(), Contains("notify 218 from 100 option 1"));

    doc->activeDoc = nullptr;
    Report(kCodeTuningReport, 0);
    EXPECT_EQ(doc->replayCode, 0u);
}

TEST_F(AnalysisReportTest, TheSmithToolDrawsItsDesignInANewSchematic) {
    win::WriteProfileInt("Project", "SkipAssociationDlg", 1);
    OpenSchematic("C:\\amp2\\amp2.sch");
    mainWnd->ClearMessages();
    Report(kCodeSmithToolReport, 0, kFromTemplate,
           reinterpret_cast<win::LPARAM>("CAP C1 n1 0 C=1pF"));
    EXPECT_THAT(StatusLines(), Contains("SmithTooling CAP C1 n1 0 C=1pF ..."));
    auto* drawn = dynamic_cast<host::CSchematicDoc*>(doc->activeDoc);
    ASSERT_NE(drawn, nullptr);
    EXPECT_TRUE(drawn->GetPathName().empty());
    EXPECT_NE(drawn->FindElement("C1"), -1);
}

}  // namespace
}  // namespace velorand
