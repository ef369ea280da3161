#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/testing/example_project.h"
#include "platform/afx/menu.h"
#include "platform/win/app_profile.h"
#include "platform/win/current_directory.h"
#include "platform/win/menu.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::ExampleProjectTest;
using ::testing::IsEmpty;

class ProjectCloseTest : public ExampleProjectTest {
  protected:
    void SetUp() override {
        ExampleProjectTest::SetUp();
        doc = Open(kExample);
        ASSERT_NE(doc, nullptr);
        // The host tells the project of its documents; here the top level schematic.
        doc->Attach(nullptr, doc->topDoc);
    }

    // A menu of the host, published on the main window as the host does for its editors.
    void PublishMenu(const char* property, win::HMENU& menu) {
        menu = win::CreateMenu();
        win::SetProp(mainWnd->m_hWnd, property, reinterpret_cast<win::HANDLE>(&menu));
    }

    CProjectDoc* doc = nullptr;
};

TEST_F(ProjectCloseTest, TheCloseTakesWindowsWorkFolderAndLockAlong) {
    mainWnd->MDIMaximize(ViewOf(doc->topDoc)->GetParentFrame());
    const std::size_t commandsBefore = app.AppCommands().size();
    doc->OnCloseDocument();
    EXPECT_EQ(projectTemplate->currentDoc, nullptr);
    EXPECT_FALSE(HasDocument());
    EXPECT_THAT(Sheets(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(
        std::vector<win::UINT>(app.AppCommands().begin() + commandsBefore, app.AppCommands().end()),
        ElementsAre(26478u, 26479u));
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "Project"), nullptr);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "ProjectCmdUI"), nullptr);
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/amp2.~PT")));
    EXPECT_FALSE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    // The child windows come back maximised, as the active one was.
    EXPECT_EQ(win::GetProfileInt("Settings", "ShowCmd", -1), 3u);
    // The top level schematic's window is stored for the next open.
    EXPECT_THAT(sandbox.Read("amp2/amp2.vpj"), ::testing::HasSubstr("[MRU List]\n"));
}

TEST_F(ProjectCloseTest, ARefusedCloseLeavesTheProjectOpenAsItWas) {
    auto* top = dynamic_cast<testing::CSheetDoc*>(doc->topDoc);
    ASSERT_NE(top, nullptr);
    top->SetModifiedFlag(win::TRUE);
    const win::HANDLE tree = reinterpret_cast<win::HANDLE>(doc->treeView->m_hWnd);
    user.AnswerWhen("amp2.sch", win::IDCANCEL);

    // Opening another project must close this one first: the refusal keeps it.
    EXPECT_EQ(Open(kExample), nullptr);
    EXPECT_EQ(projectTemplate->currentDoc, doc);
    EXPECT_EQ(doc->busy, 0);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "ProjectCmdUI"), tree);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "Project"), tree);
    EXPECT_TRUE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    EXPECT_TRUE(fs::is_directory(sandbox.Posix("amp2/amp2.~PT")));
    EXPECT_TRUE(top->IsModified());
    // The editor is told the project's search paths again.
    EXPECT_THAT(ViewOf(top)->scriptLines, ElementsAre(":path +lib"));
    top->SetModifiedFlag(win::FALSE);
}

TEST_F(ProjectCloseTest, ACloseDuringALoadDoesNothing) {
    doc->busy = 1;
    doc->OnCloseDocument();
    EXPECT_EQ(projectTemplate->currentDoc, doc);
    EXPECT_TRUE(fs::exists(sandbox.Posix("amp2/~%amp2.vpj")));
    doc->busy = 0;
}

TEST_F(ProjectCloseTest, ANamedProjectTakesTheEditorsMenusAlongTheSessionLeavesThem) {
    win::HMENU schematicMenu = nullptr;
    win::HMENU symbolMenu = nullptr;
    PublishMenu("SchMenuHandle", schematicMenu);
    PublishMenu("SymMenuHandle", symbolMenu);
    const win::HMENU destroyed = schematicMenu;
    doc->OnCloseDocument();
    EXPECT_EQ(schematicMenu, nullptr);
    EXPECT_EQ(symbolMenu, nullptr);
    EXPECT_FALSE(win::IsMenu(destroyed));
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "SchMenuHandle"), nullptr);
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "SymMenuHandle"), nullptr);

    WriteFile("s/%session.vpj", "[Project]\nProjectID=%session\n");
    ASSERT_TRUE(win::SetCurrentDirectory(sandbox.Platform("s").c_str()));
    doc = Open("");
    ASSERT_NE(doc, nullptr);
    PublishMenu("SchMenuHandle", schematicMenu);
    doc->OnCloseDocument();
    EXPECT_TRUE(win::IsMenu(schematicMenu));
    EXPECT_EQ(win::GetProp(mainWnd->m_hWnd, "SchMenuHandle"),
              reinterpret_cast<win::HANDLE>(&schematicMenu));
    win::RemoveProp(mainWnd->m_hWnd, "SchMenuHandle");
    win::DestroyMenu(schematicMenu);
}

}  // namespace
}  // namespace velorand
