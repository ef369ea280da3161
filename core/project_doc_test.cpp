#include "core/project_doc.h"

#include <gtest/gtest.h>

#include <stdlib.h>

#include <cstring>
#include <filesystem>

#include "core/testing/project_fixture.h"
#include "platform/afx/afx_messages.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/win/app_profile.h"
#include "platform/win/messages.h"
#include "platform/win/registry.h"
#include "platform/win/window.h"
#include "views/project_view.h"

namespace velorand {
namespace {

using testing::CSheetDoc;
using testing::CSheetView;
using testing::ProjectTest;

constexpr char kAppKeyPath[] = "Software\\Dravik\\Velorand VX\\8.5\\project_tests\\Template List";

void SetSuiteValue(const char* name, const char* value) {
    win::HKEY key = nullptr;
    ASSERT_EQ(win::RegCreateKeyEx(win::HKEY_LOCAL_MACHINE, kAppKeyPath, 0, nullptr, 0,
                                  win::KEY_ALL_ACCESS, nullptr, &key, nullptr),
              0);
    win::RegSetValueEx(key, name, 0, win::REG_SZ, reinterpret_cast<const win::BYTE*>(value),
                       static_cast<win::DWORD>(std::strlen(value) + 1));
    win::RegCloseKey(key);
}

afx::CFrameWnd* FrameOf(afx::CDocument* doc) {
    return CProjectDoc::GetFirstDocView(doc)->GetParentFrame();
}

TEST_F(ProjectTest, TheDocumentStartsFromTheProfileAndItsStartValues) {
    CProjectDoc* doc = MakeDocument();
    EXPECT_EQ(doc->autoOpenFile, 1);
    EXPECT_EQ(doc->showFileList, 0);
    EXPECT_EQ(doc->templateDisabled, 0);
    EXPECT_EQ(doc->toolsEnabled, 0);  // the tools are off unless the profile says 0
    EXPECT_EQ(doc->simulator, -1);
    EXPECT_EQ(doc->treeValid, 1);
    EXPECT_EQ(doc->reportToolLog, 1);
    EXPECT_EQ(doc->profileSection, "Project");
    EXPECT_EQ(doc->simulatorInfo, nullptr);

    win::WriteProfileInt("Project", "AutoOpenFile", 0);
    win::WriteProfileInt("Project", "ShowFileList", 2);
    win::WriteProfileInt("Project", "DisableQT", 1);
    win::WriteProfileInt("Project", "SkipNetlist", 0);
    CProjectDoc* second = MakeDocument();
    EXPECT_EQ(second->autoOpenFile, 0);
    EXPECT_EQ(second->showFileList, 2);
    EXPECT_EQ(second->templateDisabled, 1);
    EXPECT_EQ(second->toolsEnabled, 1);

    win::WriteProfileInt("Project", "SkipNetlist", 2);
    EXPECT_EQ(MakeDocument()->toolsEnabled, 0);
}

TEST_F(ProjectTest, SettingsComeFromTheRegistryTreeWhenItNamesTheSimulators) {
    SetSuiteValue("Simulator", "Quintaris,Lumentra");
    SetSuiteValue("Layout", "  yes");  // values are taken as they stand
    win::WriteProfileString("Template List", "Layout", "from the file");
    CProjectDoc* doc = MakeDocument();
    ASSERT_TRUE(doc->registryKey.has_value());
    EXPECT_EQ(*doc->registryKey, "Dravik\\Velorand VX\\8.5");
    EXPECT_EQ(doc->appKey, "project_tests");
    EXPECT_EQ(doc->GetSuiteProfileString("Template List", "Simulator", ""), "Quintaris,Lumentra");
    EXPECT_EQ(doc->GetSuiteProfileString("Template List", "Layout", ""), "  yes");
    EXPECT_EQ(doc->GetSuiteProfileString("Template List", "Template0", "none"), "none");
    EXPECT_EQ(doc->GetSuiteProfileString("No Such Section", "Simulator", "none"), "none");
}

TEST_F(ProjectTest, WithoutSimulatorsInTheTreeEveryLookupGoesToTheSettingsFile) {
    SetSuiteValue("Layout", "from the registry");
    win::WriteProfileString("Template List", "Simulator", "Lumentra");
    CProjectDoc* doc = MakeDocument();
    EXPECT_FALSE(doc->registryKey.has_value());
    EXPECT_EQ(doc->appKey, "velorand.ini");
    EXPECT_EQ(doc->GetSuiteProfileString("Template List", "Simulator", ""), "Lumentra");
    EXPECT_EQ(doc->GetSuiteProfileString("Template List", "Layout", "none"), "none");

    // Neither tree nor file: the document is made all the same, with nothing to find.
    win::WriteProfileString("Template List", nullptr, nullptr);
    CProjectDoc* bare = MakeDocument();
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(bare->GetSuiteProfileString("Template List", "Simulator", ""), "");
}

TEST_F(ProjectTest, CommandTestModeIsWhatQvxtoolsSaysAndZeroWithoutIt) {
    EXPECT_EQ(MakeDocument()->commandTest, 0);
    setenv("VELORAND_COMMAND_TEST_MODE", "1", 1);
    EXPECT_EQ(MakeDocument()->commandTest, 1);
    EXPECT_NE(SuiteLog().find("qvxtools: IsInCommandTestMode() = 1\n"), std::string::npos);

    sandbox.Write("nolibs/readme.txt", "");
    setenv("VELORAND_LIBRARY_PATH", sandbox.Posix("nolibs").c_str(), 1);
    EXPECT_EQ(MakeDocument()->commandTest, 0);
    unsetenv("VELORAND_COMMAND_TEST_MODE");
}

TEST_F(ProjectTest, StatusLinesAndMessageBoxesGoToTheMainFrame) {
    CProjectDoc* doc = MakeDocument();
    doc->StatusMessage("Building Schematic Tree...");
    EXPECT_EQ(mainWnd->StatusText(), "Building Schematic Tree...");
    ASSERT_FALSE(mainWnd->Messages().empty());
    EXPECT_EQ(mainWnd->Messages().back().message, afx::WM_SETMESSAGESTRING);
    EXPECT_EQ(mainWnd->Messages().back().wParam, 0u);

    user.Answer(win::IDYES).Answer(win::IDOK);
    EXPECT_EQ(doc->ProjectMessageBox("Save the project?", nullptr, win::MB_YESNO), win::IDYES);
    EXPECT_EQ(doc->ProjectMessageBox("Bad name", "Velorand", 0x30), win::IDOK);
    ASSERT_EQ(user.Record().size(), 2u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand - Project Manager");
    EXPECT_EQ(user.Record()[0].text, "Save the project?");
    EXPECT_EQ(user.Record()[0].flags, win::MB_YESNO);
    EXPECT_EQ(user.Record()[0].owner, mainWnd->m_hWnd);
    EXPECT_EQ(user.Record()[1].caption, "Velorand");
    EXPECT_EQ(user.Record()[1].flags, 0x30u);
}

TEST_F(ProjectTest, ADocumentsFrameIsFoundThroughItsFirstViewAndTheViewIsTold) {
    CProjectDoc* doc = MakeDocument();
    CSheetDoc* sheet = OpenSheet("p/amp.sch", "[schematic2]\n");
    ASSERT_NE(sheet, nullptr);
    auto* view = dynamic_cast<CSheetView*>(CProjectDoc::GetFirstDocView(sheet));
    ASSERT_NE(view, nullptr);

    EXPECT_EQ(doc->GetDocFrame(sheet, win::FALSE), view->GetParentFrame());
    EXPECT_TRUE(view->notes.empty());
    EXPECT_TRUE(doc->IsDocAlive(sheet));
    ASSERT_EQ(view->notes.size(), 1u);
    EXPECT_EQ(view->notes[0].idFrom, 100u);
    EXPECT_EQ(view->notes[0].code, 309u);
    EXPECT_EQ(view->notes[0].hwndFrom, doc->treeView->m_hWnd);
    EXPECT_EQ(view->notes[0].document, nullptr);
    EXPECT_EQ(view->notes[0].option, 0);
    EXPECT_EQ(view->notes[0].argument, reinterpret_cast<win::LPARAM>(view));

    // A document without views, or none at all, has no frame.
    CSheetDoc lonely;
    EXPECT_EQ(CProjectDoc::GetFirstDocView(&lonely), nullptr);
    EXPECT_EQ(doc->GetDocFrame(&lonely, win::TRUE), nullptr);
    EXPECT_FALSE(doc->IsDocAlive(nullptr));
}

TEST_F(ProjectTest, AModifiedSheetMakesTheProjectModifiedAndTheActiveFrameStays) {
    CProjectDoc* doc = MakeDocument();
    CSheetDoc* amp = OpenSheet("p/amp.sch", "");
    CSheetDoc* bias = OpenSheet("p/bias.sch", "");
    bias->activateWhenAsked = true;
    doc->openDocs = {bias, amp};
    auto* ampFrame = static_cast<afx::CMDIChildWnd*>(FrameOf(amp));
    ampFrame->ActivateFrame(win::SW_SHOW);
    EXPECT_FALSE(doc->IsModified());

    amp->SetModifiedFlag(win::TRUE);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(mainWnd->MDIGetActive(), ampFrame);

    // The document's own flag is enough.
    amp->SetModifiedFlag(win::FALSE);
    doc->SetModifiedFlag(win::TRUE);
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(ProjectTest, DeleteContentsForgetsTheDocumentsAndDeletesTheTreesLeftovers) {
    CProjectDoc* doc = MakeDocument();
    for (const char* file : {"p/amp.dbg", "p/amp.log", "p/amp.sch", "p/amp2.st%", "p/amp.st%"}) {
        sandbox.Write(file, "x");
    }
    CSheetDoc* sheet = OpenSheet("p/bias.sch", "");
    doc->openDocs = {sheet};
    doc->schematics["amp"].path = "C:\\p\\amp.sch";

    doc->DeleteContents();  // no top level schematic: no file goes
    EXPECT_TRUE(doc->openDocs.empty());
    EXPECT_TRUE(doc->schematics.empty());
    EXPECT_EQ(sandbox.Read("p/amp.dbg"), "x");

    doc->topLevelSchematic = "C:\\p\\amp.sch";
    doc->location = "C:\\p\\";
    doc->projectID = "amp2";
    doc->DeleteContents();
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("p/amp.dbg")));
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("p/amp.log")));
    EXPECT_FALSE(std::filesystem::exists(sandbox.Posix("p/amp2.st%")));
    EXPECT_EQ(sandbox.Read("p/amp.sch"), "x");
    EXPECT_EQ(sandbox.Read("p/amp.st%"), "x");
}

TEST_F(ProjectTest, NextWindowIsTheActiveSchematicThenTheTemplateThenTheNextChild) {
    CProjectDoc* doc = MakeDocument();
    CSheetDoc* amp = OpenSheet("p/amp.sch", "");
    CSheetDoc* netlist = OpenSheet("p/amp.ckt", "");
    CSheetDoc* other = OpenSheet("p/other.sch", "");
    doc->activeDoc = amp;
    doc->templateDoc = netlist;

    doc->ActivateNextWindow();
    EXPECT_EQ(mainWnd->MDIGetActive(), FrameOf(amp));

    FrameOf(amp)->ShowWindow(win::SW_HIDE);
    doc->ActivateNextWindow();
    EXPECT_EQ(mainWnd->MDIGetActive(), FrameOf(netlist));

    FrameOf(netlist)->ShowWindow(win::SW_HIDE);
    FrameOf(other)->ActivateFrame(win::SW_SHOW);
    mainWnd->ClearMessages();
    doc->ActivateNextWindow();
    ASSERT_FALSE(mainWnd->Messages().empty());
    EXPECT_EQ(mainWnd->Messages().back().message, win::WM_MDINEXT);
    EXPECT_TRUE(mainWnd->Messages().back().toMdiClient);
}

}  // namespace
}  // namespace velorand
