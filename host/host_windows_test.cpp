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
    void PrepareProfile() override { win::WriteProfileInt("Project", "SkipAssociationDlg", 1); }

    host::CTextDocument* OpenNetlist() {
        return OpenHostDocument(hostTemplates.Netlist(0), "amp2/amp2.ckt", "* netlist\n");
    }
    host::CTextDocument* OpenSchematic(const std::string& name) {
        return OpenHostDocument(hostTemplates.Schematic(), "amp2/" + name + ".sch", kSheet);
    }
    win::LRESULT CloseNetlist(win::UINT_PTR from = kFromTemplate) {
        ProjectNotify record = Record(from, 248);
        record.result = 0x77;
        Send(record);
        return record.result;
    }
    int OpenDocuments(afx::CDocTemplate* docTemplate) const {
        int count = 0;
        for (afx::POSITION pos = docTemplate->GetFirstDocPosition(); pos != nullptr; ++count)
            docTemplate->GetNextDoc(pos);
        return count;
    }
};

TEST_F(HostWindowsTest, TheNetlistClosesUnlessTheProjectHoldsItOrTheUserRefuses) {
    EXPECT_EQ(CloseNetlist(), 0);
    host::CTextDocument* netlist = OpenNetlist();
    ASSERT_NE(netlist, nullptr);
    ASSERT_THAT(doc->openDocs, ElementsAre(netlist));
    EXPECT_EQ(CloseNetlist(kFromSchematic), 0x77);

    win::SetProp(mainWnd->m_hWnd, "ProjectCmdUI", reinterpret_cast<win::HANDLE>(view->m_hWnd));
    EXPECT_EQ(CloseNetlist(155), 3);
    win::RemoveProp(mainWnd->m_hWnd, "ProjectCmdUI");

    netlist->SetModifiedFlag(win::TRUE);
    user.Answer(win::IDCANCEL);
    EXPECT_EQ(CloseNetlist(), 1);
    EXPECT_EQ(OpenDocuments(hostTemplates.Netlist(0)), 1);

    netlist->SetModifiedFlag(win::FALSE);
    EXPECT_EQ(CloseNetlist(), 2);
    EXPECT_EQ(OpenDocuments(hostTemplates.Netlist(0)), 0);
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(doc->templateDoc, nullptr);
}

TEST_F(HostWindowsTest, AllFramesOfTheProjectClose) {
    OpenSchematic("amp2");
    OpenSchematic("stage");
    OpenNetlist();
    ASSERT_EQ(doc->openDocs.size(), 3u);
    doc->CloseAllFrames();
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(OpenDocuments(hostTemplates.Schematic()), 0);
    EXPECT_EQ(OpenDocuments(hostTemplates.Netlist(0)), 0);
}

TEST_F(HostWindowsTest, ADocumentClosesByItsFile) {
    SchematicNode& node = AddRecord("stage");
    host::CTextDocument* stage = OpenSchematic("stage");
    ASSERT_EQ(node.openDoc, stage);
    EXPECT_EQ(doc->CloseDocumentByPath(sandbox.Platform("AMP2/STAGE.SCH").c_str()), 1);
    EXPECT_EQ(OpenDocuments(hostTemplates.Schematic()), 0);
    EXPECT_EQ(node.openDoc, nullptr);
    EXPECT_EQ(node.state, SchematicNode::kClosed);
    EXPECT_THAT(doc->openDocs, IsEmpty());
    EXPECT_EQ(doc->CloseDocumentByPath(sandbox.Platform("amp2/stage.sch").c_str()), 0);
}

TEST_F(HostWindowsTest, TheToolBarsCustomizingPutsTheMenusIntoAModeAndTellsTheEditors) {
    host::CTextDocument* netlist = OpenNetlist();
    host::CTextDocument* stage = OpenSchematic("stage");
    ASSERT_EQ(doc->activeDoc, stage);
    HostView(netlist)->ClearEvents();
    HostView(stage)->ClearEvents();
    mainWnd->ClearMessages();

    ProjectNotify start = Record(kFromToolBar, 231, nullptr, 1);
    Send(start);
    EXPECT_THAT(StatusLines(), ElementsAre("Customizing ToolBar started ..."));
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26469u));
    EXPECT_THAT(SuiteLog(), HasSubstr("ToolGroupKit: IsCustomizingToolPane(1)\n"));
    EXPECT_THAT(HostView(stage)->Events(),
                ElementsAre("notify 309 from 100 option 0", "notify 231 from 101 option 1"));
    EXPECT_THAT(HostView(netlist)->Events(), ElementsAre("notify 231 from 101 option 1"));

    mainWnd->ClearMessages();
    ProjectNotify end = Record(kFromToolBar, 231, nullptr, 0);
    Send(end);
    EXPECT_THAT(StatusLines(), ElementsAre("Customizing ToolBar ended ..."));
    EXPECT_THAT(mainWnd->Commands(), ElementsAre(26471u));
    EXPECT_THAT(SuiteLog(), HasSubstr("ToolGroupKit: IsCustomizingToolPane(0)\n"));

    // Only the tool bar customizes.
    mainWnd->ClearMessages();
    ProjectNotify editor = Record(kFromSchematic, 231, nullptr, 1);
    Send(editor);
    EXPECT_THAT(mainWnd->Messages(), IsEmpty());
}

class DeviceLibraryTest : public HostWindowsTest {
  protected:
    // Sends the record with a variable for the answer; true when the hub went on to its
    // end, which its exit trace shows.
    bool Ask(win::UINT_PTR from, win::UINT code, std::int32_t& answer) {
        ProjectNotify record =
            Record(from, code, nullptr, 0,
                   code == kCodeCopyDevice ? reinterpret_cast<win::LPARAM>(&answer) : 0);
        mainWnd->ClearMessages();
        Send(record);
        return StatusLines().size() == 2;
    }
    void PrepareProfile() override {
        HostWindowsTest::PrepareProfile();
        win::WriteProfileInt("Project", "TraceNotify", 1);
    }
};

TEST_F(DeviceLibraryTest, TheLibrarysWindowTakesTheRequestsOnceItIsUp) {
    std::int32_t answer = 5;
    EXPECT_TRUE(Ask(kFromTemplate, kCodeSelectDevice, answer));
    EXPECT_TRUE(Ask(kFromMenuDocument, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 0);

    SelectDevice("-d", 0);
    win::HWND shelf = GetPartShelfHandle();
    ASSERT_NE(shelf, nullptr);
    EXPECT_EQ(win::GetActiveWindow(), shelf);
    EXPECT_FALSE(Ask(kFromSymbol, kCodeSelectDevice, answer));
    EXPECT_FALSE(Ask(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 1);

    // A copy goes only to the library's window while it is the active one.
    win::SetActiveWindow(mainWnd->m_hWnd);
    EXPECT_TRUE(Ask(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_EQ(answer, 0);
    // The schematic editor is no sender of either.
    EXPECT_TRUE(Ask(kFromSchematic, kCodeSelectDevice, answer));

    const std::string log = SuiteLog();
    EXPECT_THAT(log, HasSubstr("partshelf: SelectDevice(-d, 0)\npartshelf: GetPartShelfHandle()\n"
                               "partshelf: GetPartShelfHandle()\npartshelf: 0x464(-d)\n"
                               "partshelf: GetPartShelfHandle()\npartshelf: WM_COPY\n"));
    EXPECT_EQ(log.find("WM_COPY"), log.rfind("WM_COPY"));
    EXPECT_EQ(log.find("0x464"), log.rfind("0x464"));
}

TEST_F(DeviceLibraryTest, OtherSimulatorsHaveNoDeviceLibrary) {
    SelectDevice("-d", 0);
    doc->simulator = 1;
    doc->simulatorInfo = std::make_unique<SimulatorInfo>(1);
    doc->simulatorInfo->displayName = "Lumentra";
    std::int32_t answer = 5;
    EXPECT_TRUE(Ask(kFromTemplate, kCodeCopyDevice, answer));
    EXPECT_TRUE(Ask(kFromTemplate, kCodeSelectDevice, answer));
    EXPECT_EQ(answer, 5);
    EXPECT_THAT(SuiteLog(), Not(HasSubstr("GetPartShelfHandle")));

    doc->simulatorInfo->displayName = "Quintaris";
    EXPECT_FALSE(Ask(kFromTemplate, kCodeSelectDevice, answer));
}

}  // namespace
}  // namespace velorand
