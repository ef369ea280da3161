#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/project_doc.h"
#include "core/testing/project_fixture.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/win/app_profile.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"
#include "platform/win/window_placement.h"

namespace velorand {
namespace {

class WindowLayoutTest : public testing::ProjectTest {
  protected:
    void SetUp() override {
        ProjectTest::SetUp();
        doc = MakeDocument();
        doc->projectID = "amp";
        doc->location = "C:\\proj\\";
        doc->topLevelSchematic = "C:\\proj\\a.sch";
        projectFile = WriteFile("proj/amp.vpj", "[Project]\nProjectID=amp\n");
        doc->SetPathName(projectFile.c_str(), win::FALSE);
    }

    // A host document of the project, in its own child frame, hidden as during a load.
    afx::CDocument* Open(const std::string& relative, bool visible = false) {
        afx::CDocument* hostDoc = sheetTemplate->OpenDocumentFile(
            WriteFile(relative, "x\n").c_str(), visible ? win::TRUE : win::FALSE);
        EXPECT_NE(hostDoc, nullptr);
        doc->openDocs.push_back(hostDoc);
        return hostDoc;
    }

    afx::CFrameWnd* FrameOf(afx::CDocument* hostDoc) const {
        return doc->GetDocFrame(hostDoc, win::FALSE);
    }

    // Gives the frame its normal place and places, then the show state.
    void Place(afx::CDocument* hostDoc, int show, win::RECT normal) const {
        win::WINDOWPLACEMENT placement;
        placement.showCmd = static_cast<win::UINT>(show);
        placement.ptMinPosition = {-1, -2};
        placement.ptMaxPosition = {-3, -4};
        placement.rcNormalPosition = normal;
        FrameOf(hostDoc)->SetWindowPlacement(&placement);
    }

    // The frame's normal place as "left,top,right,bottom".
    std::string NormalOf(afx::CDocument* hostDoc) const {
        win::WINDOWPLACEMENT placement;
        FrameOf(hostDoc)->GetWindowPlacement(&placement);
        const win::RECT& r = placement.rcNormalPosition;
        return std::to_string(r.left) + "," + std::to_string(r.top) + "," +
               std::to_string(r.right) + "," + std::to_string(r.bottom);
    }

    std::string ProjectText() const { return sandbox.Read("proj/amp.vpj"); }

    CProjectDoc* doc = nullptr;
    std::string projectFile;
};

TEST_F(WindowLayoutTest, TheLayoutIsWrittenAnewWithTheTenNumbersOfEachWindow) {
    WriteFile("proj/amp.vpj",
              "[Project]\nProjectID=amp\n[MRU List]\nC:\\old.sch=0,5,0,0,0,0,1,1,2,2\n"
              "[PdfFiles]\nPdfFiles0=C:\\old.pdf\nPdfFiles1=C:\\older.pdf\n");
    afx::CDocument* schematic = Open("proj/a.sch");
    afx::CDocument* symbol = Open("proj/b.sym");
    afx::CDocument* netlist = Open("proj/amp.ckt");
    Place(schematic, win::SW_SHOWNORMAL, {10, 20, 310, 220});
    Place(symbol, win::SW_HIDE, {0, 0, 50, 60});
    Place(netlist, win::SW_SHOWMAXIMIZED, {5, 6, 7, 8});
    dynamic_cast<afx::CMDIChildWnd*>(FrameOf(netlist))->MDIActivate();
    doc->pdfFiles.push_back(std::make_unique<std::string>("C:\\doc\\notes.pdf"));

    doc->SaveWindowLayout();
    EXPECT_EQ(ProjectText(),
              "[Project]\nProjectID=amp\n"
              "[MRU List]\n" +
                  sandbox.Platform("proj/a.sch") + "=0,5,-1,-2,-3,-4,10,20,310,220\n" +
                  sandbox.Platform("proj/b.sym") + "=0,0,-1,-2,-3,-4,0,0,50,60\n" +
                  sandbox.Platform("proj/amp.ckt") + "=0,3,-1,-2,-3,-4,5,6,7,8\n" +
                  "[PdfFiles]\nPdfFiles0=C:\\doc\\notes.pdf\n");
    char text[300];
    win::GetProfileString("Project", "MRU", "", text, sizeof text);
    EXPECT_EQ(text, projectFile);
    EXPECT_EQ(win::GetProfileInt("Settings", "ShowCmd", 0), 3u);  // the active netlist is maximised

    // Loaded again, each window comes back to its place: the hidden one stays hidden.
    Place(schematic, win::SW_SHOWNORMAL, {0, 0, 1, 1});
    Place(symbol, win::SW_SHOWNORMAL, {0, 0, 1, 1});
    Place(netlist, win::SW_SHOWNORMAL, {0, 0, 1, 1});
    win::WriteProfileInt("Settings", "ShowCmd", 9);
    for (afx::CDocument* hostDoc : {schematic, symbol, netlist})
        FrameOf(hostDoc)->ShowWindow(win::SW_HIDE);
    doc->RestoreWindows();
    EXPECT_EQ(NormalOf(schematic), "10,20,310,220");
    EXPECT_EQ(NormalOf(symbol), "0,0,50,60");
    EXPECT_EQ(NormalOf(netlist), "5,6,7,8");
    EXPECT_TRUE(FrameOf(schematic)->IsWindowVisible());
    EXPECT_FALSE(FrameOf(symbol)->IsWindowVisible());
    // "ShowCmd" decides: the netlist, maximised before, comes up restored.
    EXPECT_TRUE(FrameOf(netlist)->IsWindowVisible());
    EXPECT_FALSE(FrameOf(netlist)->IsZoomed());
}

TEST_F(WindowLayoutTest, AnotherUsersSessionKeepsNoWindowsAndItsDocumentationFiles) {
    const std::string before =
        "[Project]\nProjectID=amp\n[PdfFiles]\nPdfFiles0=C:\\old.pdf\n[MRU List]\n"
        "C:\\old.sch=0,5,0,0,0,0,1,1,2,2\n";
    WriteFile("proj/amp.vpj", before);
    Open("proj/a.sch", true);
    doc->pdfFiles.push_back(std::make_unique<std::string>("C:\\doc\\notes.pdf"));
    doc->foreignOwner = 1;
    doc->SaveWindowLayout();
    EXPECT_EQ(ProjectText(), "[Project]\nProjectID=amp\n[PdfFiles]\nPdfFiles0=C:\\old.pdf\n");
    EXPECT_EQ(win::GetProfileInt("Settings", "ShowCmd", 0), 9u);
}

TEST_F(WindowLayoutTest, ADocumentWithoutPathOrFrameGetsNoLine) {
    afx::CDocument* untitled = sheetTemplate->OpenDocumentFile(nullptr, win::FALSE);
    ASSERT_NE(untitled, nullptr);
    testing::CSheetDoc viewless;
    viewless.SetPathName(sandbox.Platform("proj/c.ckt").c_str(), win::FALSE);
    doc->openDocs = {untitled, &viewless};
    doc->SaveWindowLayout();
    EXPECT_EQ(ProjectText(), "[Project]\nProjectID=amp\n");
    doc->openDocs.clear();
}

TEST_F(WindowLayoutTest, AStoredPlaceWithTheShowStateOfTheProfile) {
    afx::CDocument* schematic = Open("proj/a.sch");
    // Another folder, another letter case: the file name alone counts.
    WriteFile("proj/amp.vpj",
              "[MRU List]\nD:\\elsewhere\\A.SCH=0,5,1,2,3,4,30,40,330,240\n"
              "C:\\proj\\a.sch=0,5,0,0,0,0,1,1,2,2\n");
    win::WriteProfileInt("Settings", "ShowCmd", 3);
    doc->RestoreWindow(schematic, projectFile.c_str());
    EXPECT_TRUE(FrameOf(schematic)->IsWindowVisible());
    EXPECT_TRUE(FrameOf(schematic)->IsZoomed());
    EXPECT_EQ(NormalOf(schematic), "30,40,330,240");
}

TEST_F(WindowLayoutTest, AStoredHiddenWindowStaysHidden) {
    afx::CDocument* schematic = Open("proj/a.sch");
    WriteFile("proj/amp.vpj", "[MRU List]\nC:\\proj\\a.sch=0,0,0,0,0,0,30,40,330,240\n");
    win::WriteProfileInt("Settings", "ShowCmd", 3);
    doc->RestoreWindow(schematic, projectFile.c_str());
    EXPECT_FALSE(FrameOf(schematic)->IsWindowVisible());
    EXPECT_EQ(NormalOf(schematic), "30,40,330,240");
}

TEST_F(WindowLayoutTest, ALineWithoutAllTenNumbersLeavesTheFramesOwnPlace) {
    afx::CDocument* schematic = Open("proj/a.sch");
    Place(schematic, win::SW_HIDE, {7, 8, 207, 108});
    WriteFile("proj/amp.vpj", "[MRU List]\nC:\\proj\\a.sch=0,5,0,0,0,0,30\n");
    doc->RestoreWindow(schematic, projectFile.c_str());
    EXPECT_TRUE(FrameOf(schematic)->IsWindowVisible());
    EXPECT_FALSE(FrameOf(schematic)->IsZoomed());
    EXPECT_EQ(NormalOf(schematic), "7,8,207,108");

    EXPECT_EQ(doc->GetChildShowCmd(), 9);  // "ShowCmd" was missing

    afx::CDocument* symbol = Open("proj/b.sym");
    Place(symbol, win::SW_HIDE, {9, 9, 99, 99});
    win::WriteProfileInt("Settings", "ShowCmd", 3);
    doc->RestoreWindow(symbol, projectFile.c_str());  // no line at all
    EXPECT_TRUE(FrameOf(symbol)->IsWindowVisible());
    EXPECT_TRUE(FrameOf(symbol)->IsZoomed());
    EXPECT_EQ(NormalOf(symbol), "9,9,99,99");
}

TEST_F(WindowLayoutTest, WhileBusyAPlacedWindowIsNotActivated) {
    afx::CDocument* first = Open("proj/a.sch", true);
    afx::CDocument* second = Open("proj/b.sym");
    WriteFile("proj/amp.vpj", "[MRU List]\nC:\\proj\\b.sym=0,5,0,0,0,0,30,40,330,240\n");
    doc->busy = 1;
    doc->RestoreWindow(second, projectFile.c_str());
    EXPECT_TRUE(FrameOf(second)->IsWindowVisible());
    EXPECT_EQ(mainWnd->MDIGetActive(), FrameOf(first));
    doc->busy = 0;
    doc->RestoreWindow(second, projectFile.c_str());
    EXPECT_EQ(mainWnd->MDIGetActive(), FrameOf(second));
}

TEST_F(WindowLayoutTest, TheTreeComesUpAsStoredAndTheLastOpenedWindowOnTop) {
    afx::CDocument* netlist = Open("proj/amp.ckt");
    afx::CDocument* schematic = Open("proj/a.sch");
    doc->openDocs = {schematic, netlist};  // schematics at the head
    win::WriteProfileInt("Project", "IsVisible", 0);
    mainWnd->ClearMessages();
    doc->RestoreWindows();
    EXPECT_FALSE(doc->treeFrame->IsWindowVisible());
    EXPECT_EQ(mainWnd->MDIGetActive(), FrameOf(schematic));
    EXPECT_TRUE(FrameOf(netlist)->IsWindowVisible());
    ASSERT_FALSE(mainWnd->Messages().empty());
    EXPECT_EQ(mainWnd->Messages().back().message, win::WM_MDIICONARRANGE);
    EXPECT_TRUE(mainWnd->Messages().back().toMdiClient);

    win::WriteProfileInt("Project", "IsVisible", 1);
    doc->RestoreWindows();
    EXPECT_TRUE(doc->treeFrame->IsWindowVisible());
    // Without a tree to show, the pane goes whatever the profile says.
    doc->treeValid = 0;
    doc->RestoreWindows();
    EXPECT_FALSE(doc->treeFrame->IsWindowVisible());
    doc->treeValid = 1;
    doc->topLevelSchematic.clear();
    doc->RestoreWindows();
    EXPECT_FALSE(doc->treeFrame->IsWindowVisible());
}

}  // namespace
}  // namespace velorand
