// What the project does to the host's windows on request: the netlist's close, the
// frames' close, the tool bar's customizing, and the device library's window.
#include <gmock/gmock.h>

#include <cstdint>
#include <memory>

#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/part_shelf.h"
#include "host/testing/hub_fixture.h"
#include "platform/win/window.h"

namespace velorand {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::HubTest;
using ::testing::IsEmpty;
using ::testing::Not;

class HostWindowsTest : public HubTest {
  protected:
    void SetUp() override {
        HubTest::SetUp();
        win::WriteProfileInt("Project", "SkipAssociationDlg", 1);
    }
    afx::CDocument* OpenNetlist() {
        return OpenHostDocument(hostTemplates.Netlist(0), "amp2/amp2.ckt", "* netlist\n");
    }
    afx::CDocument* OpenSchematic(const std::string& name) {
        return OpenHostDocument(hostTemplates.Schematic(), "amp2/" + name + ".sch", kSheet);
    }
    bool IsOpen(afx::CDocTemplate* docTemplate) const {
        return docTemplate->GetFirstDocPosition() != nullptr;
    }
    // Sends a device library request; true when the hub went on to its exit trace.
    bool AskDevice(win::UINT_PTR from, win::UINT code, std::int32_t& answer) {
        view->traceNotify = 1;
        mainWnd->ClearMessages();
        Send(from, code, nullptr, 0, reinterpret_cast<win::LPARAM>(&answer));
        return StatusLines().size() == 2;
    }
};

TEST_F(HostWindowsTest, TheNetlistClosesUnlessTheProjectHoldsItOrTheUserRefuses) {
    EXPECT_EQ(Send(kFromTemplate, 248).result, 0);
    afx::CDocument* netlist = OpenNetlist();
    ASSERT_THAT(doc->openDocs, ElementsAre(netlist));

    win::SetProp(mainWnd->m_hWnd, "ProjectCmdUI", reinterpret_cast<win::HANDLE>(view->m_hWnd));
    EXPECT_EQ(Send(155, 248).result, 3);
    win::RemoveProp(mainWnd->m_hWnd, "ProjectCmdUI");
    netlist->SetModifiedFlag(win::TRUE);
    user.Answer(win::IDCANCEL);
    EXPECT_EQ(Send(kFromTemplate, 248).result, 1);
    EXPECT_TRUE(IsOpen(hostTemplates.Netlist(0)));

    netlist->SetModifiedFlag(win::FALSE);
    EXPECT_EQ(Send(kFromTemplate, 248).result, 2);
    EXPECT_FALSE(IsOpen(hostTemplates.Netlist(0)));
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(doc->templateDoc, nullptr);
}

TEST_F(HostWindowsTest, DocumentsCloseByTheirFileOrAllTogether) {
    SchematicNode& node = AddRecord("stage");
    OpenSchematic("stage");
    EXPECT_EQ(doc->CloseDocumentByPath(sandbox.Platform("AMP2/STAGE.SCH").c_str()), 1);
    EXPECT_FALSE(IsOpen(hostTemplates.Schematic()));
    EXPECT_EQ(node.openDoc, nullptr);
    EXPECT_EQ(node.state, SchematicNode::kClosed);
    EXPECT_EQ(doc->CloseDocumentByPath(sandbox.Platform("amp2/stage.sch").c_str()), 0);

    OpenSchematic("amp2");
    OpenSchematic("stage");
    OpenNetlist();
    doc->CloseAllFrames();
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_FALSE(IsOpen(hostTemplates.Schematic()));
    EXPECT_FALSE(IsOpen(hostTemplates.Netlist(0)));
}

TEST_F(HostWindowsTest, TheToolBarsCustomizingPutsTheMenusIntoAModeAndTellsTheEditors) {
    host::CHostView* netlist = HostView(OpenNetlist());
    host::CHostView* stage = HostView(OpenSchematic("stage"));
    netlist->ClearEvents();
    stage->ClearEvents();
    mainWnd->ClearMessages();
    Send(kFromSchematic, 231, nullptr, 1);
    EXPECT_THAT(mainWnd->Messages(), IsEmpty());

    Send(kFromToolBar, 231, nullptr, 1);
    Send(kFromToolBar, 231, nullptr, 0);
    EXPECT_THAT(StatusLines(),
                ElementsAre("Customizing ToolBar started ...", "Customizing ToolBar ended ..."));
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26469u, 26471u));
    EXPECT_THAT(SuiteLog(), HasSubstr("ToolGroupKit: IsCustomizingToolPane(1)\n"
                                      "ToolGroupKit: IsCustomizingToolPane(0)\n"));
    EXPECT_THAT(stage->Events(),
                ElementsAre("notify 309 from 100 option 0", "notify 231 from 101 option 1",
                            "notify 309 from 100 option 0", "notify 231 from 101 option 0"));
    EXPECT_THAT(netlist->Events(),
                ElementsAre("notify 231 from 101 option 1", "notify 231 from 101 option 0"));
}

TEST_F(HostWindowsTest, TheDeviceLibrarysWindowTakesTheRequestsOnceItIsUp) {
    std::int32_t answer = 5;
    EXPECT_TRUE(AskDevice(kFromTemplate, kCodeSelectDevice, answer));
    EXPECT_TRUE(AskDevice(kFromMenuDocument, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 0);

    SelectDevice("-d", 0);
    ASSERT_EQ(win::GetActiveWindow(), GetPartShelfHandle());
    EXPECT_FALSE(AskDevice(kFromSymbol, kCodeSelectDevice, answer));
    EXPECT_FALSE(AskDevice(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 1);
    // A copy goes only to the active window; the schematic editor asks for neither.
    win::SetActiveWindow(mainWnd->m_hWnd);
    EXPECT_TRUE(AskDevice(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 0);
    EXPECT_TRUE(AskDevice(kFromSchematic, kCodeSelectDevice, answer));
    EXPECT_THAT(SuiteLog(), HasSubstr("partshelf: SelectDevice(-d, 0)\n"
                                      "partshelf: GetPartShelfHandle()\n"
                                      "partshelf: GetPartShelfHandle()\npartshelf: 0x464(-d)\n"
                                      "partshelf: GetPartShelfHandle()\npartshelf: WM_COPY\n"
                                      "partshelf: GetPartShelfHandle()\n"));

    // Other simulators have no device library.
    doc->simulator = 1;
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(1);
    doc->simulatorInfo->displayName = "Lumentra";
    win::SetActiveWindow(GetPartShelfHandle());
    answer = 5;
    EXPECT_TRUE(AskDevice(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_TRUE(AskDevice(kFromTemplate, kCodeSelectDevice, answer));
    EXPECT_EQ(answer, 5);
}

}  // namespace
}  // namespace velorand
