#include "views/project_view.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/component_module.h"
#include "core/project_doc.h"
#include "core/testing/loaded_project.h"
#include "core/warning_dlg.h"
#include "host/project_messages.h"
#include "platform/afx/cmd_ui.h"
#include "platform/afx/create_context.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/win/app_profile.h"
#include "platform/win/cursor.h"
#include "platform/win/message_queue.h"
#include "platform/win/resources.h"
#include "platform/win/strings.h"

namespace velorand {
namespace {

using win::HTREEITEM;

// A view of a host window that keeps the keys it is sent.
class CKeyView : public afx::CView {
    DECLARE_DYNCREATE(CKeyView)
  public:
    struct Key {
        win::UINT msg;
        win::WPARAM key;
        win::LPARAM count;
    };
    std::vector<Key> keys;

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override {
        if (msg == win::WM_KEYDOWN || msg == win::WM_KEYUP || msg == win::WM_CHAR) {
            keys.push_back({msg, wParam, lParam});
            return 0;
        }
        return afx::CView::WindowProc(msg, wParam, lParam);
    }
};
using afx::CView;
IMPLEMENT_DYNCREATE(CKeyView, CView)

constexpr const char* kProjectFile = "[Project]\nProjectID=amp2\n";

class ProjectViewTest : public testing::LoadedProjectTest {
  protected:
    void SetUp() override {
        LoadedProjectTest::SetUp();
        doc = MakeProject("amp2", "amp2", kProjectFile);
        ASSERT_NE(doc, nullptr);
        view = doc->treeView;
        ASSERT_NE(view, nullptr);
        // The pane gives the tree its room; the frame's layout passes it on.
        doc->treeFrame->MoveWindow(0, 0, 300, 600);
        doc->topLevelSchematic = WriteFile("amp2/amp2.sch", "[schematic2]\nver 40\n");
    }

    void TearDown() override {
        // Whatever was posted and never taken must not leak its string.
        win::MSG msg;
        while (
            win::PeekMessage(&msg, nullptr, PM_SHOW_INFO_FILE, PM_SHOW_INFO_FILE, win::PM_REMOVE)) {
            delete reinterpret_cast<std::string*>(msg.lParam);
        }
        LoadedProjectTest::TearDown();
    }

    afx::CTreeCtrl& Tree() { return view->GetTreeCtrl(); }

    // The tree a listing of amp2 gives: the project root, the top level schematic with
    // two sheets below it (one a state circuit), and a documentation node.
    void FillTree() {
        root = view->AddRootItem("amp2 - [Project Tree]");
        top = view->AddChildItem(root, "amp2", doc->topLevelSchematic);
        stage = view->AddChildItem(top, "stage  [X1]", "C:\\amp2\\stage.sch");
        view->AddChildItem(stage, "bias  [B1]", "C:\\amp2\\bias.sch");
        stateckt = view->AddChildItem(top, "stateckt  [S1]", "C:\\amp2\\stateckt.sch");
        view->AddChildItem(stateckt, "inner  [I1]", "C:\\amp2\\inner.sch");
        doc->schematics["amp2"].path = doc->topLevelSchematic;
        doc->schematics["stage"].path = WriteFile("amp2/stage.sch", "[schematic2]\nver 40\n");
        doc->schematics["stateckt"].path = WriteFile("amp2/stateckt.sch", "[schematic2]\n");
        docs = view->AddRootItem("Documentation");
        doc->pdfFiles.push_back(std::make_unique<std::string>("notes.pdf"));
        notes = view->AddChildItem(docs, "notes - [Info]", "C:\\amp2\\notes.pdf");
        Tree().SetItemData(notes, reinterpret_cast<win::DWORD_PTR>(doc->pdfFiles.back().get()));
        for (HTREEITEM item : {root, top, docs}) {
            Tree().Expand(item, win::TVE_EXPAND);
        }
        // Rows now: 0 root, 1 amp2, 2 stage, 3 stateckt, 4 Documentation, 5 notes.
    }

    // A double click as the user makes it: the cursor on the row's label, then the
    // button message with the point in client coordinates.
    void DoubleClickRow(int row, int level) {
        win::POINT point{level * static_cast<int>(Tree().GetIndent()) + 16 + 3, row * 16 + 8};
        win::POINT screen = point;
        view->ClientToScreen(&screen);
        win::SetCursorPos(screen.x, screen.y);
        view->SendMessage(
            win::WM_LBUTTONDBLCLK, win::MK_LBUTTON,
            win::MAKELPARAM(static_cast<win::WORD>(point.x), static_cast<win::WORD>(point.y)));
    }

    bool Expanded(HTREEITEM item) {
        return Tree().GetItemState(item, win::TVIS_EXPANDED) == win::TVIS_EXPANDED;
    }

    // A host child window with a view that keeps its keys, made the active child.
    CKeyView* OpenKeyWindow(const char* title) {
        afx::CCreateContext context;
        context.m_pNewViewClass = RUNTIME_CLASS(CKeyView);
        auto* child = new afx::CMDIChildWnd;
        EXPECT_TRUE(child->Create(nullptr, title, win::WS_CHILD | win::WS_OVERLAPPEDWINDOW,
                                  afx::CFrameWnd::rectDefault, mainWnd, &context));
        child->InitialUpdateFrame(nullptr, win::TRUE);
        return dynamic_cast<CKeyView*>(child->GetActiveView());
    }

    // The path that a posted PM_SHOW_INFO_FILE carries to the window, taken from the queue.
    std::string TakeInfoFile(win::HWND target) {
        win::MSG msg;
        if (!win::PeekMessage(&msg, nullptr, PM_SHOW_INFO_FILE, PM_SHOW_INFO_FILE,
                              win::PM_REMOVE)) {
            return "<none>";
        }
        EXPECT_EQ(msg.hwnd, target);
        EXPECT_EQ(msg.wParam, 0u);
        std::unique_ptr<std::string> path(reinterpret_cast<std::string*>(msg.lParam));
        return *path;
    }

    CProjectDoc* doc = nullptr;
    CProjectView* view = nullptr;
    HTREEITEM root = nullptr, top = nullptr, stage = nullptr, stateckt = nullptr;
    HTREEITEM docs = nullptr, notes = nullptr;
};

TEST_F(ProjectViewTest, RootItemsKeepTheirOrderAndChildrenSortWithTheImageOfTheirFile) {
    HTREEITEM first = view->AddRootItem("zeta - [Project Tree]");
    HTREEITEM second = view->AddRootItem("Documentation");
    EXPECT_EQ(Tree().GetRootItem(), first);
    EXPECT_EQ(Tree().GetNextSiblingItem(first), second);

    struct Child {
        const char* text;
        const char* path;
        int image;
    };
    const Child children[] = {{"opamp", "C:\\lib\\opamp.SYM", view->imgSymbol},
                              {"Notes", "C:\\amp2\\notes.pdf", view->imgPdf},
                              {"manual", "C:\\amp2\\MANUAL.PDF", view->imgPdf},
                              {"bias  [B1]", "C:\\amp2\\bias.sch", view->imgSchematic},
                              {"sym", "sym", view->imgSchematic},
                              {"sym2", ".sym", view->imgSymbol}};
    for (const Child& c : children) {
        HTREEITEM item = view->AddChildItem(first, c.text, c.path);
        ASSERT_NE(item, nullptr);
        int image = -1, selected = -1;
        Tree().GetItemImage(item, image, selected);
        EXPECT_EQ(image, c.image) << c.path;
        EXPECT_EQ(selected, c.image);
        EXPECT_EQ(Tree().GetItemData(item), 0u);
    }
    std::vector<std::string> order;
    for (HTREEITEM c = Tree().GetChildItem(first); c; c = Tree().GetNextSiblingItem(c)) {
        order.push_back(Tree().GetItemText(c));
    }
    EXPECT_EQ(order,
              (std::vector<std::string>{"bias  [B1]", "manual", "Notes", "opamp", "sym", "sym2"}));
    int image = -1, selected = -1;
    Tree().GetItemImage(first, image, selected);
    EXPECT_EQ(image, 0);
    EXPECT_EQ(view->AddChildItem(win::HandleFromNumber<HTREEITEM>(0x7FFF), "x", "x.sch"), nullptr);
}

TEST_F(ProjectViewTest, TheComponentsBitmapsGiveTheSevenImagesInTheirOrder) {
    EXPECT_EQ(view->images->GetImageCount(), 7);
    EXPECT_EQ(Tree().GetImageList(win::TVSIL_NORMAL), view->images->m_hImageList);
    EXPECT_EQ(
        std::vector<int>({view->imgFolderOpen, view->imgFolderClosed, view->imgSchematic,
                          view->imgSchematic2, view->imgSymbol, view->imgSymbol2, view->imgPdf}),
        (std::vector<int>{0, 1, 2, 3, 4, 5, 6}));

    // Without its bitmaps the tree has no images, and works all the same.
    win::UnregisterResources(ComponentInstance());
    auto* bare = new CProjectView;
    ASSERT_TRUE(bare->Create(nullptr, nullptr, CProjectView::kStyle, win::RECT{0, 0, 100, 100},
                             doc->treeFrame, CProjectView::kControlId));
    RegisterComponentResources();
    EXPECT_EQ(bare->images->GetImageCount(), 0);
    EXPECT_EQ(bare->GetTreeCtrl().GetImageList(win::TVSIL_NORMAL), nullptr);
    HTREEITEM item = bare->AddRootItem("amp2");
    HTREEITEM child = bare->AddChildItem(item, "a", "a.sym");
    EXPECT_EQ(bare->GetTreeCtrl().GetChildItem(item), child);
    bare->DestroyWindow();
}

TEST_F(ProjectViewTest, DoubleClickOnASchematicOpensItsInstanceAndKeepsTheItem) {
    FillTree();
    DoubleClickRow(2, 2);
    afx::CMDIChildWnd* child = mainWnd->MDIGetActive();
    ASSERT_NE(child, nullptr);
    afx::CDocument* opened = child->GetActiveDocument();
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(win::EqualNoCase(opened->GetPathName(), doc->schematics["stage"].path));
    EXPECT_FALSE(Expanded(stage));  // the control was told not to open the item

    // A second double click brings up the same document.
    DoubleClickRow(2, 2);
    EXPECT_EQ(mainWnd->MDIGetActive()->GetActiveDocument(), opened);
}

TEST_F(ProjectViewTest, TopLevelItemsStateCircuitsAndEmptySpaceOpenNothing) {
    FillTree();
    DoubleClickRow(0, 0);
    EXPECT_FALSE(Expanded(root));  // only the control's own toggle
    Tree().Expand(root, win::TVE_EXPAND);

    DoubleClickRow(3, 2);
    EXPECT_TRUE(Expanded(stateckt));

    DoubleClickRow(20, 0);
    EXPECT_EQ(mainWnd->MDIGetActive(), nullptr);
    EXPECT_EQ(TakeInfoFile(nullptr), "<none>");
}

TEST_F(ProjectViewTest, AnItemWithoutARecordOpensItsTextAsAFile) {
    HTREEITEM list = view->AddRootItem("amp2 - Project FileList");
    const std::string path = WriteFile("amp2/filt.sch", "[schematic2]\nver 40\n");
    view->AddChildItem(list, path, path);
    Tree().Expand(list, win::TVE_EXPAND);
    DoubleClickRow(1, 1);
    afx::CMDIChildWnd* child = mainWnd->MDIGetActive();
    ASSERT_NE(child, nullptr);
    ASSERT_NE(child->GetActiveDocument(), nullptr);
    EXPECT_TRUE(win::EqualNoCase(child->GetActiveDocument()->GetPathName(), path));
}

TEST_F(ProjectViewTest, ADocumentationItemOpensTheTopLevelSchematicFirstToShowTheFile) {
    FillTree();
    ASSERT_EQ(mainWnd->MDIGetActive(), nullptr);
    DoubleClickRow(5, 1);
    afx::CView* target = mainWnd->GetActiveView();
    ASSERT_NE(target, nullptr);
    EXPECT_TRUE(win::EqualNoCase(target->GetDocument()->GetPathName(), doc->topLevelSchematic));
    // A bare name lies in the project file's folder.
    EXPECT_EQ(TakeInfoFile(target->m_hWnd), sandbox.Platform("amp2\\notes.pdf"));
}

TEST_F(ProjectViewTest, ADocumentationItemGoesToAnActiveSchematicWindowAsItIs) {
    FillTree();
    *doc->pdfFiles.back() = "D:\\manuals\\notes.pdf";
    CKeyView* schematic = OpenKeyWindow("FILTER.SCH");
    DoubleClickRow(5, 1);
    EXPECT_EQ(mainWnd->GetActiveView(), schematic);  // nothing else was opened
    EXPECT_EQ(TakeInfoFile(schematic->m_hWnd), "D:\\manuals\\notes.pdf");

    // Another kind of window: the top level schematic comes up to show the file.
    OpenKeyWindow("netlist.ckt");
    DoubleClickRow(5, 1);
    afx::CView* target = mainWnd->GetActiveView();
    ASSERT_NE(target, nullptr);
    EXPECT_TRUE(win::EqualNoCase(target->GetDocument()->GetPathName(), doc->topLevelSchematic));
    EXPECT_EQ(TakeInfoFile(target->m_hWnd), "D:\\manuals\\notes.pdf");
}

TEST_F(ProjectViewTest, AnActiveWindowWithoutViewStopsTheDocumentationItem) {
    FillTree();
    auto* child = new afx::CMDIChildWnd;
    ASSERT_TRUE(child->Create(nullptr, "empty.sch", win::WS_CHILD | win::WS_OVERLAPPEDWINDOW,
                              afx::CFrameWnd::rectDefault, mainWnd));
    child->InitialUpdateFrame(nullptr, win::TRUE);
    ASSERT_EQ(mainWnd->MDIGetActive(), child);
    view->AddChildItem(notes, "page", "C:\\amp2\\page.pdf");
    DoubleClickRow(5, 1);
    EXPECT_FALSE(Expanded(notes));  // answered as done
    EXPECT_EQ(TakeInfoFile(nullptr), "<none>");
}

TEST_F(ProjectViewTest, RAndF3GoToTheActiveSchematicViewAndOtherKeysStayInTheTree) {
    FillTree();
    // With no window to take them, they are swallowed.
    view->SendMessage(win::WM_CHAR, 'r', 1);
    view->SendMessage(win::WM_KEYDOWN, win::VK_F3, 1);
    EXPECT_EQ(Tree().GetSelectedItem(), nullptr);

    CKeyView* schematic = OpenKeyWindow("amp2.sch");
    ASSERT_NE(schematic, nullptr);
    view->SendMessage(win::WM_CHAR, 'R', 0x00130002);
    view->SendMessage(win::WM_KEYDOWN, win::VK_F3, 0x003D0001);
    view->SendMessage(win::WM_KEYUP, 'R', 0xC0130001);
    view->SendMessage(win::WM_CHAR, 'x', 1);
    view->SendMessage(win::WM_KEYDOWN, win::VK_DOWN, 1);
    ASSERT_EQ(schematic->keys.size(), 3u);
    EXPECT_EQ(schematic->keys[0].msg, win::WM_CHAR);
    EXPECT_EQ(schematic->keys[0].key, static_cast<win::WPARAM>('R'));
    EXPECT_EQ(schematic->keys[0].count, 2);  // the repeat count, without the flags
    EXPECT_EQ(schematic->keys[1].msg, win::WM_KEYDOWN);
    EXPECT_EQ(schematic->keys[1].key, win::VK_F3);
    EXPECT_EQ(schematic->keys[1].count, 1);
    EXPECT_EQ(schematic->keys[2].msg, win::WM_KEYUP);
    EXPECT_EQ(Tree().GetSelectedItem(), root);  // the arrow acted on the tree
}

TEST_F(ProjectViewTest, TheActivationGoesOnToTheActiveChildsView) {
    mainWnd->SetActiveView(view);
    EXPECT_EQ(mainWnd->GetActiveView(), nullptr);  // no child: cleared

    CKeyView* schematic = OpenKeyWindow("amp2.sch");
    mainWnd->SetActiveView(nullptr);
    mainWnd->SetActiveView(view);
    EXPECT_EQ(mainWnd->GetActiveView(), schematic);
}

TEST_F(ProjectViewTest, TheTreePaneCommandTogglesThePaneAndStoresItsState) {
    afx::CWnd* pane = view->GetParent();
    pane->ShowWindow(win::SW_SHOW);
    view->SendMessage(win::WM_COMMAND, kCmdToggleTreePane, 0);
    EXPECT_FALSE(pane->IsWindowVisible());
    EXPECT_EQ(win::GetProfileInt("Project", "IsVisible", 7), 0u);
    view->SendMessage(win::WM_COMMAND, kCmdToggleTreePane, 0);
    EXPECT_TRUE(pane->IsWindowVisible());
    EXPECT_EQ(win::GetProfileInt("Project", "IsVisible", 7), 1u);
}

TEST_F(ProjectViewTest, HostCommandStatesAreAnsweredUntouchedInTheirRangeOnly) {
    afx::CCmdUI ui(0xB000);
    EXPECT_TRUE(view->OnCmdMsg(0xB000, afx::CN_UPDATE_COMMAND_UI, &ui, nullptr));
    EXPECT_FALSE(ui.m_bEnableChanged);
    afx::AFX_CMDHANDLERINFO info;
    EXPECT_TRUE(view->OnCmdMsg(0xCFFE, afx::CN_COMMAND, nullptr, &info));
    EXPECT_FALSE(view->OnCmdMsg(0xB000, afx::CN_COMMAND, nullptr, nullptr));
    afx::CCmdUI edge(0xA000);
    EXPECT_FALSE(view->OnCmdMsg(0xA000, afx::CN_UPDATE_COMMAND_UI, &edge, nullptr));
    EXPECT_FALSE(view->OnCmdMsg(0xCFFF, afx::CN_UPDATE_COMMAND_UI, &edge, nullptr));
}

TEST_F(ProjectViewTest, APickedSymbolsFolderGoesToTheDocument) {
    user.OnDialog(CWarningDlg::IDD).Click(win::IDOK);
    std::string text = "C:\\parts+opamp.sym";
    view->SendMessage(win::WM_COMMAND, kCmdAddSymbolPath,
                      reinterpret_cast<win::LPARAM>(text.data()));
    EXPECT_EQ(doc->searchPaths, std::vector<std::string>{"C:\\parts"});
    // Without a text the command is not the view's.
    view->SendMessage(win::WM_COMMAND, kCmdAddSymbolPath, 0);
    EXPECT_EQ(doc->searchPaths.size(), 1u);
}

TEST_F(ProjectViewTest, SmallStateOfTheView) {
    EXPECT_EQ(view->SetIgnoreSaved(1), 0);
    EXPECT_EQ(view->SetIgnoreSaved(0), 1);
    EXPECT_EQ(view->ignoreSaved, 0);

    EXPECT_EQ(view->SendMessage(PM_FIRST_QUERY), 1);
    EXPECT_EQ(view->SendMessage(PM_FIRST_QUERY), 0);
    view->SendMessage(PM_ENABLE_RULE_CHECK, 1);
    EXPECT_EQ(view->ercEnabled, 1);
    view->SendMessage(PM_ENABLE_RULE_CHECK, 0);
    EXPECT_EQ(view->ercEnabled, 0);

    // The host disables its windows; the tree stays usable.
    view->EnableWindow(win::FALSE);
    EXPECT_TRUE(view->IsWindowEnabled());
}

}  // namespace
}  // namespace velorand
