#include "platform/win/tree_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/testing/message_log.h"
#include "platform/win/image_list.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace {

using namespace win;
using velorand::testing::MessageLog;

constexpr int kTreeId = 431;

class TreeControlTest : public ::testing::Test {
  protected:
    TreeControlTest() {
        RegisterTreeViewClass();
        parent = log.Create("parent", nullptr, 0, WS_VISIBLE, RECT{0, 0, 400, 400});
        tree = CreateWindowEx(0, WC_TREEVIEW, nullptr,
                              WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES, 0, 0, 300, 200,
                              parent, HandleFromNumber<HMENU>(kTreeId), nullptr, nullptr);
    }

    HTREEITEM Insert(const std::string& text, HTREEITEM parentItem = TVI_ROOT,
                     HTREEITEM after = TVI_LAST, LPARAM data = 0, int image = 0) {
        TVINSERTSTRUCT in;
        in.hParent = parentItem;
        in.hInsertAfter = after;
        in.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
        in.item.pszText = const_cast<LPSTR>(text.c_str());
        in.item.iImage = image;
        in.item.iSelectedImage = image;
        in.item.lParam = data;
        return Item(SendMessage(tree, TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&in)));
    }
    static HTREEITEM Item(LRESULT r) { return reinterpret_cast<HTREEITEM>(r); }
    HTREEITEM Next(HTREEITEM item, UINT relation) {
        return Item(SendMessage(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    }
    std::string Text(HTREEITEM item) {
        char buffer[64] = "unchanged";
        TVITEM tv;
        tv.mask = TVIF_TEXT;
        tv.hItem = item;
        tv.pszText = buffer;
        tv.cchTextMax = sizeof buffer;
        return SendMessage(tree, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv)) ? buffer : "<dead>";
    }
    // The texts of the children of an item (TVI_ROOT: the top level), in order.
    std::vector<std::string> Children(HTREEITEM item) {
        std::vector<std::string> out;
        for (HTREEITEM c = Next(item, TVGN_CHILD); c; c = Next(c, TVGN_NEXT)) {
            out.push_back(Text(c));
        }
        return out;
    }
    LRESULT Expand(HTREEITEM item, UINT action) {
        return SendMessage(tree, TVM_EXPAND, action, reinterpret_cast<LPARAM>(item));
    }
    bool Expanded(HTREEITEM item) {
        TVITEM tv;
        tv.mask = TVIF_STATE;
        tv.hItem = item;
        tv.stateMask = TVIS_EXPANDED;
        SendMessage(tree, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv));
        return tv.state & TVIS_EXPANDED;
    }
    TVHITTESTINFO Hit(int x, int y) {
        TVHITTESTINFO info;
        info.pt = POINT{x, y};
        SendMessage(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info));
        return info;
    }

    MessageLog log;
    HWND parent = nullptr;
    HWND tree = nullptr;
};

TEST_F(TreeControlTest, ItemsKeepTextImagesAndDataWord) {
    HTREEITEM a = Insert("amp2 - [Project Tree]", TVI_ROOT, TVI_LAST, 0x1234, 6);
    ASSERT_NE(a, nullptr);
    TVITEM tv;
    tv.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_CHILDREN;
    tv.hItem = a;
    ASSERT_TRUE(SendMessage(tree, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv)));
    EXPECT_EQ(tv.iImage, 6);
    EXPECT_EQ(tv.iSelectedImage, 6);
    EXPECT_EQ(tv.lParam, 0x1234);
    EXPECT_EQ(tv.cChildren, 0);
    EXPECT_EQ(Text(a), "amp2 - [Project Tree]");

    // A short buffer gets the text's start, ended by a zero.
    char small[5];
    tv.mask = TVIF_TEXT;
    tv.pszText = small;
    tv.cchTextMax = sizeof small;
    SendMessage(tree, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv));
    EXPECT_STREQ(small, "amp2");

    // Setting only the data word leaves the text alone.
    tv.mask = TVIF_PARAM;
    tv.lParam = 77;
    ASSERT_TRUE(SendMessage(tree, TVM_SETITEM, 0, reinterpret_cast<LPARAM>(&tv)));
    tv.mask = TVIF_PARAM;
    SendMessage(tree, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv));
    EXPECT_EQ(tv.lParam, 77);
    EXPECT_EQ(Text(a), "amp2 - [Project Tree]");
    EXPECT_EQ(SendMessage(tree, TVM_GETCOUNT, 0, 0), 1);
}

TEST_F(TreeControlTest, UnsortedInsertsGoFirstLastOrAfterASibling) {
    HTREEITEM b = Insert("b");
    Insert("a", TVI_ROOT, TVI_FIRST);
    Insert("d");
    Insert("c", TVI_ROOT, b);
    EXPECT_EQ(Children(TVI_ROOT), (std::vector<std::string>{"a", "b", "c", "d"}));
    // An insert-after that is no child of the parent puts the item last.
    HTREEITEM x = Insert("x", b);
    Insert("y", b, TVI_FIRST);
    Insert("z", b, Next(TVI_ROOT, TVGN_ROOT));
    EXPECT_EQ(Children(b), (std::vector<std::string>{"y", "x", "z"}));
    EXPECT_EQ(Next(x, TVGN_PARENT), b);
    EXPECT_EQ(Next(b, TVGN_PARENT), nullptr);
    EXPECT_EQ(Next(x, TVGN_PREVIOUS), Next(b, TVGN_CHILD));
    // A parent that is no item refuses the insert.
    EXPECT_EQ(Insert("lost", HandleFromNumber<HTREEITEM>(999)), nullptr);
}

TEST_F(TreeControlTest, SortedInsertsIgnoreCaseAndKeepEqualTextsInInsertOrder) {
    HTREEITEM top = Insert("top");
    for (const char* text : {"stage2  [U2]", "Bias  [B1]", "match_in  [M1]", "bias  [B1]",
                             "Match_in  [M2]", "", "zz"}) {
        Insert(text, top, TVI_SORT);
    }
    EXPECT_EQ(Children(top),
              (std::vector<std::string>{"", "Bias  [B1]", "bias  [B1]", "match_in  [M1]",
                                        "Match_in  [M2]", "stage2  [U2]", "zz"}));
}

TEST_F(TreeControlTest, SortedInsertsCompareWholeTextsBeyondACommonStart) {
    HTREEITEM top = Insert("top");
    for (const char* text : {"schematic_b", "SCHEMATIC", "schematic_A", "schemati", "Schematic_a",
                             "schematic_", "schematicz", "schem", "SCHEMATI"}) {
        Insert(text, top, TVI_SORT);
    }
    EXPECT_EQ(Children(top), (std::vector<std::string>{"schem", "schemati", "SCHEMATI", "SCHEMATIC",
                                                       "schematic_", "schematic_A", "Schematic_a",
                                                       "schematic_b", "schematicz"}));
}

TEST_F(TreeControlTest, SortedInsertsFollowRenamesDeletionsAndPlainInserts) {
    HTREEITEM top = Insert("top");
    HTREEITEM b = Insert("b", top, TVI_SORT);
    HTREEITEM d = Insert("d", top, TVI_SORT);
    Insert("f", top, TVI_SORT);
    // Renamed, the item sorts by its new text.
    TVITEM tv;
    tv.mask = TVIF_TEXT;
    tv.hItem = d;
    tv.pszText = const_cast<LPSTR>("a");
    SendMessage(tree, TVM_SETITEM, 0, reinterpret_cast<LPARAM>(&tv));
    Insert("c", top, TVI_SORT);
    EXPECT_EQ(Children(top), (std::vector<std::string>{"b", "a", "c", "f"}));
    // A deleted sibling is out of the index; a plain insert is in it.
    SendMessage(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(b));
    Insert("g", top, TVI_LAST);
    Insert("e", top, TVI_SORT);
    Insert("h", top, TVI_SORT);
    EXPECT_EQ(Children(top), (std::vector<std::string>{"a", "c", "e", "f", "g", "h"}));
}

TEST_F(TreeControlTest, ManySortedChildrenLandInOrder) {
    HTREEITEM top = Insert("top");
    constexpr int kCount = 5000;
    for (int i = kCount - 1; i >= 0; --i) {
        char name[16];
        std::snprintf(name, sizeof name, "s%05d", (i * 7919) % kCount);
        Insert(name, top, TVI_SORT);
    }
    std::vector<std::string> children = Children(top);
    ASSERT_EQ(children.size(), static_cast<std::size_t>(kCount));
    EXPECT_TRUE(std::is_sorted(children.begin(), children.end()));
}

TEST_F(TreeControlTest, DeletingKillsHandlesBelowAndTheSelection) {
    HTREEITEM a = Insert("a");
    HTREEITEM a1 = Insert("a1", a);
    HTREEITEM a11 = Insert("a11", a1);
    HTREEITEM b = Insert("b");
    SendMessage(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(a11));
    EXPECT_TRUE(Expanded(a1));  // the selection is made visible

    EXPECT_TRUE(SendMessage(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(a1)));
    EXPECT_EQ(Text(a11), "<dead>");
    EXPECT_EQ(Next(nullptr, TVGN_CARET), nullptr);
    EXPECT_EQ(Next(a, TVGN_CHILD), nullptr);
    EXPECT_EQ(SendMessage(tree, TVM_GETCOUNT, 0, 0), 2);
    EXPECT_FALSE(SendMessage(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(a1)));

    EXPECT_TRUE(SendMessage(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT)));
    EXPECT_EQ(SendMessage(tree, TVM_GETCOUNT, 0, 0), 0);
    EXPECT_EQ(Next(nullptr, TVGN_ROOT), nullptr);
    EXPECT_EQ(Text(b), "<dead>");
    // New items never take an old handle.
    HTREEITEM again = Insert("again");
    EXPECT_NE(again, a);
    EXPECT_NE(again, b);
    EXPECT_EQ(Children(TVI_ROOT), std::vector<std::string>{"again"});
}

TEST_F(TreeControlTest, ExpandAnswersAsThePlatformDoes) {
    HTREEITEM a = Insert("a");
    EXPECT_FALSE(Expand(a, TVE_EXPAND));  // no children
    HTREEITEM a1 = Insert("a1", a);
    EXPECT_FALSE(Expanded(a));
    EXPECT_FALSE(Expand(a, TVE_COLLAPSE));
    EXPECT_TRUE(Expand(a, TVE_EXPAND));
    EXPECT_TRUE(Expand(a, TVE_EXPAND));
    EXPECT_TRUE(Expanded(a));
    SendMessage(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(a1));
    EXPECT_TRUE(Expand(a, TVE_TOGGLE));
    EXPECT_FALSE(Expanded(a));
    EXPECT_EQ(Next(nullptr, TVGN_CARET), a);  // the selection leaves the hidden child
}

TEST_F(TreeControlTest, HitTestFollowsTheRowGeometry) {
    HTREEITEM a = Insert("abc");
    HTREEITEM a1 = Insert("child", a);
    Insert("b");
    Expand(a, TVE_EXPAND);
    // Row 0: "abc" at level 0, no images: label 0..27.
    TVHITTESTINFO h = Hit(5, 3);
    EXPECT_EQ(h.hItem, a);
    EXPECT_EQ(h.flags, TVHT_ONITEMLABEL);
    EXPECT_EQ(Hit(28, 15).flags, TVHT_ONITEMRIGHT);
    // Row 1: "child" at level 1: indent 0..18 (its parent's button is not in this row).
    EXPECT_EQ(Hit(10, 20).flags, TVHT_ONITEMINDENT);
    EXPECT_EQ(Hit(19, 20).hItem, a1);
    EXPECT_EQ(Hit(19, 20).flags, TVHT_ONITEMLABEL);
    // Row 3 is empty space; outside the window is neither.
    EXPECT_EQ(Hit(5, 50).flags, TVHT_NOWHERE);
    EXPECT_EQ(Hit(5, 50).hItem, nullptr);
    EXPECT_EQ(Hit(-1, 5).flags, TVHT_TOLEFT);
    EXPECT_EQ(Hit(5, 200).flags, TVHT_BELOW);

    // Images push the label right; a collapsed parent hides its row.
    HIMAGELIST images = ImageList_Create(16, 16, ILC_MASK, 4, 4);
    SendMessage(tree, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
    EXPECT_EQ(Hit(15, 3).flags, TVHT_ONITEMICON);
    EXPECT_EQ(Hit(16, 3).flags, TVHT_ONITEMLABEL);
    Expand(a, TVE_COLLAPSE);
    EXPECT_EQ(Text(Hit(20, 20).hItem), "b");
    ImageList_Destroy(images);
}

TEST_F(TreeControlTest, ButtonStandsInTheLastIndentOfAParent) {
    SetWindowLongPtr(tree, GWL_STYLE, WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_LINESATROOT);
    HTREEITEM a = Insert("a");
    Insert("a1", a);
    HTREEITEM b = Insert("b");
    EXPECT_EQ(Hit(3, 3).flags, TVHT_ONITEMBUTTON);
    EXPECT_EQ(Hit(3, 20).hItem, b);
    EXPECT_EQ(Hit(3, 20).flags, TVHT_ONITEMINDENT);  // no children, no button

    // A click on the button opens; a click on a label selects.
    SendMessage(tree, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_TRUE(Expanded(a));
    EXPECT_EQ(Next(nullptr, TVGN_CARET), nullptr);
    SendMessage(tree, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(25, 35));
    EXPECT_EQ(Next(nullptr, TVGN_CARET), b);
}

TEST_F(TreeControlTest, DoubleClickNotifiesTheParentWhichMayStopTheToggle) {
    HTREEITEM a = Insert("abc");
    Insert("child", a);
    std::vector<NMHDR> seen;
    LRESULT answer = 0;
    log.On(parent, WM_NOTIFY, [&](WPARAM w, LPARAM l) {
        seen.push_back(*reinterpret_cast<const NMHDR*>(l));
        EXPECT_EQ(w, static_cast<WPARAM>(kTreeId));
        return answer;
    });
    SendMessage(tree, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].hwndFrom, tree);
    EXPECT_EQ(seen[0].idFrom, static_cast<UINT_PTR>(kTreeId));
    EXPECT_EQ(seen[0].code, NM_DBLCLK);
    EXPECT_TRUE(Expanded(a));

    answer = 1;
    SendMessage(tree, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_TRUE(Expanded(a));
    answer = 0;
    // Empty space and the right of a row notify, and toggle nothing.
    SendMessage(tree, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 150));
    SendMessage(tree, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(200, 5));
    EXPECT_EQ(seen.size(), 4u);
    EXPECT_TRUE(Expanded(a));
}

TEST_F(TreeControlTest, ParentMayDestroyTheControlInItsNotification) {
    HTREEITEM a = Insert("abc");
    Insert("child", a);
    log.On(parent, WM_NOTIFY, [&](WPARAM, LPARAM) {
        DestroyWindow(tree);
        return LRESULT{0};
    });
    SendMessage(tree, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_FALSE(IsWindow(tree));
}

TEST_F(TreeControlTest, ArrowKeysWalkTheVisibleItems) {
    HTREEITEM a = Insert("a");
    HTREEITEM a1 = Insert("a1", a);
    HTREEITEM b = Insert("b");
    auto press = [&](WPARAM key) {
        SendMessage(tree, WM_KEYDOWN, key, 1);
        return Next(nullptr, TVGN_CARET);
    };
    EXPECT_EQ(press(VK_DOWN), a);
    EXPECT_EQ(press(VK_DOWN), b);  // a is collapsed
    EXPECT_EQ(press(VK_UP), a);
    EXPECT_EQ(press(VK_RIGHT), a);  // opens
    EXPECT_TRUE(Expanded(a));
    EXPECT_EQ(press(VK_RIGHT), a1);
    EXPECT_EQ(press(VK_END), b);
    EXPECT_EQ(press(VK_UP), a1);
    EXPECT_EQ(press(VK_LEFT), a);
    EXPECT_EQ(press(VK_LEFT), a);  // closes
    EXPECT_FALSE(Expanded(a));
    EXPECT_EQ(press(VK_HOME), a);
}

TEST_F(TreeControlTest, DestroyingTheWindowDropsItsItems) {
    HTREEITEM a = Insert("a");
    DestroyWindow(tree);
    HWND other = CreateWindowEx(0, WC_TREEVIEW, nullptr, WS_CHILD, 0, 0, 100, 100, parent, nullptr,
                                nullptr, nullptr);
    TVITEM tv;
    tv.hItem = a;
    EXPECT_FALSE(SendMessage(other, TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&tv)));
    EXPECT_EQ(SendMessage(other, TVM_GETCOUNT, 0, 0), 0);
}

}  // namespace
