#include "platform/afx/tree_view.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/afx/create_context.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/image_list.h"
#include "platform/afx/win_app.h"
#include "platform/win/message_queue.h"
#include "platform/win/resources.h"

namespace afx {
namespace {

// A tree view that takes its own double clicks back from the parent.
class CClickView : public CTreeView {
  public:
    int doubleClicks = 0;
    LRESULT answer = 0;

  protected:
    BOOL OnChildNotify(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto* header = reinterpret_cast<const win::NMHDR*>(lParam);
        if (msg == win::WM_NOTIFY && header->code == win::NM_DBLCLK) {
            ++doubleClicks;
            *result = answer;
            return TRUE;
        }
        return CTreeView::OnChildNotify(msg, wParam, lParam, result);
    }
};

class TreeViewTest : public ::testing::Test {
  protected:
    TreeViewTest() {
        frame = new CFrameWnd;
        frame->Create(nullptr, "frame", win::WS_OVERLAPPEDWINDOW | win::WS_VISIBLE,
                      win::RECT{0, 0, 300, 300});
        view = new CClickView;
        view->Create(nullptr, nullptr, win::WS_CHILD | win::WS_VISIBLE | win::TVS_HASBUTTONS,
                     win::RECT{0, 0, 200, 200}, frame, 431);
    }
    ~TreeViewTest() override { frame->DestroyWindow(); }

    CFrameWnd* frame = nullptr;
    CClickView* view = nullptr;
};

TEST_F(TreeViewTest, TheViewIsTheTreeControlsWindowAndObject) {
    char name[32] = {};
    win::GetClassName(view->m_hWnd, name, sizeof name);
    EXPECT_STREQ(name, "SysTreeView32");
    EXPECT_EQ(CWnd::FromHandle(view->m_hWnd), view);

    CTreeCtrl& tree = view->GetTreeCtrl();
    EXPECT_EQ(tree.m_hWnd, view->m_hWnd);
    HTREEITEM top = tree.InsertItem("top");
    HTREEITEM child = tree.InsertItem("child", 2, 2, top, win::TVI_SORT);
    EXPECT_EQ(tree.GetRootItem(), top);
    EXPECT_EQ(tree.GetChildItem(top), child);
    EXPECT_EQ(tree.GetParentItem(child), top);
    EXPECT_EQ(tree.GetNextSiblingItem(top), nullptr);
    EXPECT_TRUE(tree.ItemHasChildren(top));
    int image = 0, selected = 0;
    EXPECT_TRUE(tree.GetItemImage(child, image, selected));
    EXPECT_EQ(image, 2);
    EXPECT_EQ(tree.GetItemData(child), 0u);
    EXPECT_TRUE(tree.SetItemData(child, 0xBEEF));
    EXPECT_EQ(tree.GetItemData(child), 0xBEEFu);
    EXPECT_EQ(tree.GetItemText(child), "child");
    EXPECT_TRUE(tree.Expand(top, win::TVE_EXPAND));
    EXPECT_EQ(tree.GetItemState(top, win::TVIS_EXPANDED), win::TVIS_EXPANDED);
    EXPECT_TRUE(tree.SelectItem(child));
    EXPECT_EQ(tree.GetSelectedItem(), child);
    EXPECT_EQ(tree.GetCount(), 2u);
    EXPECT_TRUE(tree.DeleteAllItems());
    EXPECT_EQ(tree.GetCount(), 0u);
}

TEST_F(TreeViewTest, LongTextsComeBackWhole) {
    CTreeCtrl& tree = view->GetTreeCtrl();
    std::string longText(1000, 'x');
    longText += "[end]";
    HTREEITEM item = tree.InsertItem(longText.c_str());
    EXPECT_EQ(tree.GetItemText(item), longText);
    EXPECT_TRUE(tree.SetItemText(item, ""));
    EXPECT_EQ(tree.GetItemText(item), "");
    EXPECT_EQ(tree.GetItemText(nullptr), "");
}

TEST_F(TreeViewTest, TheControlsNotificationIsReflectedToItsOwnObject) {
    CTreeCtrl& tree = view->GetTreeCtrl();
    HTREEITEM top = tree.InsertItem("top");
    tree.InsertItem("child", top);
    UINT flags = 0;
    EXPECT_EQ(tree.HitTest(win::POINT{4, 4}, &flags), top);
    EXPECT_EQ(flags, win::TVHT_ONITEMLABEL);

    view->answer = 1;
    view->SendMessage(win::WM_LBUTTONDBLCLK, win::MK_LBUTTON, win::MAKELPARAM(4, 4));
    EXPECT_EQ(view->doubleClicks, 1);
    EXPECT_EQ(tree.GetItemState(top, win::TVIS_EXPANDED), 0u);  // the view said: done
    view->answer = 0;
    view->SendMessage(win::WM_LBUTTONDBLCLK, win::MK_LBUTTON, win::MAKELPARAM(4, 4));
    EXPECT_EQ(view->doubleClicks, 2);
    EXPECT_EQ(tree.GetItemState(top, win::TVIS_EXPANDED), win::TVIS_EXPANDED);
}

TEST_F(TreeViewTest, ImageListsCountTheImagesOfTheirBitmaps) {
    const auto module = win::HandleFromNumber<win::HINSTANCE>(0x7E57);
    win::RegisterBitmapResource(module, 900, win::SIZE{16, 16});
    win::RegisterBitmapResource(module, 901, win::SIZE{48, 16});
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, win::ILC_MASK, 4, 4));
    CBitmap one, three, missing;
    // Not in the resource module: found in the module that has it.
    ASSERT_TRUE(one.LoadBitmap(900));
    ASSERT_TRUE(three.LoadBitmap(901));
    EXPECT_FALSE(missing.LoadBitmap(902));
    EXPECT_EQ(images.Add(&one, win::RGB(255, 255, 255)), 0);
    EXPECT_EQ(images.Add(&three, win::RGB(255, 255, 255)), 1);
    EXPECT_EQ(images.Add(&missing, win::RGB(255, 255, 255)), -1);
    EXPECT_EQ(images.GetImageCount(), 4);

    CTreeCtrl& tree = view->GetTreeCtrl();
    EXPECT_EQ(tree.SetImageList(&images, win::TVSIL_NORMAL), nullptr);
    EXPECT_EQ(tree.GetImageList(win::TVSIL_NORMAL), images.m_hImageList);
    win::UnregisterResources(module);
    EXPECT_FALSE(CBitmap().LoadBitmap(900));
}

TEST(TreeCtrlTest, StandsAloneAsAChildControl) {
    CFrameWnd* frame = new CFrameWnd;
    frame->Create(nullptr, "frame");
    CTreeCtrl tree;
    ASSERT_TRUE(tree.Create(win::WS_VISIBLE, win::RECT{0, 0, 100, 100}, frame, 5));
    EXPECT_EQ(tree.GetDlgCtrlID(), 5);
    EXPECT_TRUE(tree.GetStyle() & win::WS_CHILD);
    EXPECT_EQ(tree.GetIndent(), 19u);
    EXPECT_EQ(tree.GetItemHeight(), 16);
    frame->DestroyWindow();
    EXPECT_EQ(tree.m_hWnd, nullptr);
}

}  // namespace
}  // namespace afx
