#include "platform/win/tree_control.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win/focus.h"
#include "platform/win/image_list.h"
#include "platform/win/message_queue.h"
#include "platform/win/text_pool.h"
#include "platform/win/window.h"

namespace win {

namespace {

constexpr int kDefaultItemHeight = 16;
constexpr int kDefaultIndent = 19;
constexpr int kCharWidth = 8;
constexpr int kLabelPadding = 4;

unsigned char Fold(char c) {
    unsigned char u = static_cast<unsigned char>(c);
    return u >= 'A' && u <= 'Z' ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
}

// Orders texts byte by byte with ASCII letters folded, as the platform's sorted insert
// does.
bool TextBefore(std::string_view x, std::string_view y) {
    std::size_t n = std::min(x.size(), y.size());
    for (std::size_t i = 0; i < n; ++i) {
        unsigned char p = Fold(x[i]);
        unsigned char q = Fold(y[i]);
        if (p != q)
            return p < q;
    }
    return x.size() < y.size();
}

// A text's first eight bytes, folded, as one number that orders as the texts do: most
// comparisons in a long list of siblings end on it, without a look at the texts. Item
// texts hold no zero byte, so the zeros that fill a short text sort before any byte.
std::uint64_t HeadOf(std::string_view text) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < 8; ++i)
        head = head << 8 | (i < text.size() ? Fold(text[i]) : 0);
    return head;
}

struct Item;

struct Sibling {
    std::uint64_t head;
    Item* item;
};

struct Item {
    std::uintptr_t number = 0;
    bool live = false;
    // The children are in `sorted` too, in text order, from the first sorted insert below
    // this item on; equal texts stand in the order they came in.
    bool indexed = false;
    std::string_view text;   // kept in the tree's text pool
    std::uint64_t head = 0;  // HeadOf(text)
    int image = 0;
    int selectedImage = 0;
    UINT state = 0;  // TVIS_EXPANDED and what TVM_SETITEM stored; selection is the caret's
    LPARAM param = 0;
    int level = -1;  // 0 for top-level items
    Item* parent = nullptr;
    Item* firstChild = nullptr;
    Item* lastChild = nullptr;
    Item* prev = nullptr;
    Item* next = nullptr;
    std::vector<Sibling> sorted;
};

bool SiblingBefore(const Sibling& a, const Sibling& b) {
    if (a.head != b.head)
        return a.head < b.head;
    // Equal heads: both texts are at least eight long, or both equal.
    std::size_t skip = std::min<std::size_t>(a.item->text.size(), 8);
    return TextBefore(a.item->text.substr(skip), b.item->text.substr(skip));
}

// The items of a tree by handle number, in blocks that never move, so that an item's
// address holds for its life and a big tree costs an allocation per block, not per item.
class ItemStore {
  public:
    std::size_t size() const { return size_; }
    Item& operator[](std::size_t n) { return blocks_[n / kBlock][n % kBlock]; }
    Item& Add() {
        if (size_ == blocks_.size() * kBlock)
            blocks_.push_back(std::make_unique<Item[]>(kBlock));
        return (*this)[size_++];
    }
    void Clear() {
        blocks_.clear();
        size_ = 0;
    }

  private:
    static constexpr std::size_t kBlock = 1024;
    std::vector<std::unique_ptr<Item[]>> blocks_;
    std::size_t size_ = 0;
};

struct Tree {
    Item root;  // the invisible parent of the top-level items
    // Items by handle number: number n lives at items[n - base]. A deleted item's slot
    // stays dead until all items go, so that stale handles never come back to life.
    ItemStore items;
    TextPool texts;
    std::uintptr_t base = 1;
    std::size_t count = 0;
    Item* caret = nullptr;
    HIMAGELIST normalImages = nullptr;
    HIMAGELIST stateImages = nullptr;
    int itemHeight = kDefaultItemHeight;
    int indent = kDefaultIndent;
};

std::map<HWND, std::unique_ptr<Tree>>& Trees() {
    static std::map<HWND, std::unique_ptr<Tree>> trees;
    return trees;
}

Tree& TreeOf(HWND hwnd) {
    auto& slot = Trees()[hwnd];
    if (!slot) {
        slot = std::make_unique<Tree>();
    }
    return *slot;
}

HTREEITEM HandleOf(const Item* item) {
    return item ? HandleFromNumber<HTREEITEM>(item->number) : nullptr;
}

Item* ItemOf(Tree& tree, HTREEITEM handle) {
    std::uintptr_t n = NumberFromHandle(handle);
    if (handle == nullptr || n < tree.base || n - tree.base >= tree.items.size()) {
        return nullptr;
    }
    Item& item = tree.items[n - tree.base];
    return item.live ? &item : nullptr;
}

bool IsRootHandle(HTREEITEM handle) {
    return handle == nullptr || handle == TVI_ROOT;
}

Sibling SiblingOf(Item* item) {
    return Sibling{item->head, item};
}

void BuildIndex(Item& parent) {
    parent.indexed = true;
    // Most parents have a few children: room for them at once, not a growth per child.
    parent.sorted.reserve(4);
    for (Item* c = parent.firstChild; c != nullptr; c = c->next) {
        parent.sorted.push_back(SiblingOf(c));
    }
    std::stable_sort(parent.sorted.begin(), parent.sorted.end(), SiblingBefore);
}

// Puts the item into its parent's index behind the equal texts; answers the sibling that
// now follows it there, null when it is last. Texts that come in sorted are appended
// without a search.
Item* IndexInsert(Item& parent, Item* item) {
    std::vector<Sibling>& sorted = parent.sorted;
    Sibling key = SiblingOf(item);
    if (sorted.empty() || !SiblingBefore(key, sorted.back())) {
        sorted.push_back(key);
        return nullptr;
    }
    auto greater = std::upper_bound(sorted.begin(), sorted.end(), key, SiblingBefore);
    Item* follower = greater->item;
    sorted.insert(greater, key);
    return follower;
}

void IndexErase(Item& parent, Item* item) {
    std::vector<Sibling>& sorted = parent.sorted;
    auto it = std::lower_bound(sorted.begin(), sorted.end(), SiblingOf(item), SiblingBefore);
    while (it != sorted.end() && it->item != item) {
        ++it;
    }
    if (it != sorted.end()) {
        sorted.erase(it);
    }
}

void LinkBefore(Item& parent, Item* item, Item* before) {
    item->parent = &parent;
    item->next = before;
    item->prev = before ? before->prev : parent.lastChild;
    (item->prev ? item->prev->next : parent.firstChild) = item;
    (before ? before->prev : parent.lastChild) = item;
}

void Unlink(Item& item) {
    Item& parent = *item.parent;
    (item.prev ? item.prev->next : parent.firstChild) = item.next;
    (item.next ? item.next->prev : parent.lastChild) = item.prev;
    if (parent.indexed) {
        IndexErase(parent, &item);
    }
    item.parent = item.prev = item.next = nullptr;
}

void SetText(Tree& tree, Item& item, std::string_view text) {
    Item* parent = item.parent != nullptr && item.parent->indexed ? item.parent : nullptr;
    if (parent) {
        IndexErase(*parent, &item);
    }
    item.text = tree.texts.Store(text);
    item.head = HeadOf(item.text);
    if (parent) {
        IndexInsert(*parent, &item);
    }
}

void ApplyFields(Item& item, const TVITEM& in) {
    if (in.mask & TVIF_IMAGE) {
        item.image = in.iImage;
    }
    if (in.mask & TVIF_SELECTEDIMAGE) {
        item.selectedImage = in.iSelectedImage;
    }
    if (in.mask & TVIF_PARAM) {
        item.param = in.lParam;
    }
    if (in.mask & TVIF_STATE) {
        UINT mask = in.stateMask & ~TVIS_SELECTED;
        item.state = (item.state & ~mask) | (in.state & mask);
    }
}

LRESULT InsertItem(Tree& tree, const TVINSERTSTRUCT* in) {
    if (in == nullptr) {
        return 0;
    }
    Item* parent = IsRootHandle(in->hParent) ? &tree.root : ItemOf(tree, in->hParent);
    if (parent == nullptr) {
        return 0;
    }
    Item& item = tree.items.Add();
    item.number = tree.base + tree.items.size() - 1;
    item.live = true;
    item.level = parent->level + 1;
    if ((in->item.mask & TVIF_TEXT) && in->item.pszText != nullptr) {
        item.text = tree.texts.Store(in->item.pszText);
        item.head = HeadOf(item.text);
    }
    ApplyFields(item, in->item);

    HTREEITEM after = in->hInsertAfter;
    Item* before = nullptr;  // null: last
    if (after == TVI_SORT && !parent->indexed) {
        BuildIndex(*parent);
    }
    if (after == TVI_FIRST) {
        before = parent->firstChild;
    } else if (after == TVI_SORT) {
        before = IndexInsert(*parent, &item);
    } else if (Item* sibling = ItemOf(tree, after); sibling && sibling->parent == parent) {
        before = sibling->next;
    }
    if (parent->indexed && after != TVI_SORT) {
        IndexInsert(*parent, &item);
    }
    LinkBefore(*parent, &item, before);
    ++tree.count;
    return reinterpret_cast<LRESULT>(HandleOf(&item));
}

void DeleteAll(Tree& tree) {
    tree.root.firstChild = tree.root.lastChild = nullptr;
    tree.root.indexed = false;
    tree.root.sorted = std::vector<Sibling>();
    tree.base += tree.items.size();
    tree.items.Clear();
    tree.texts.Clear();
    tree.count = 0;
    tree.caret = nullptr;
}

void DeleteSubtree(Tree& tree, Item& top) {
    Unlink(top);
    // Without recursion: a deep chain of items must not exhaust the stack.
    Item* item = &top;
    while (item != nullptr) {
        if (item->firstChild != nullptr) {
            Item* child = item->firstChild;
            item->firstChild = child->next;
            child->parent = item;  // the way back up
            item = child;
            continue;
        }
        Item* up = item == &top ? nullptr : item->parent;
        if (tree.caret == item) {
            tree.caret = nullptr;
        }
        item->live = false;
        item->text = std::string_view();
        item->indexed = false;
        item->sorted = std::vector<Sibling>();
        item->parent = item->prev = item->next = item->lastChild = nullptr;
        --tree.count;
        item = up;
    }
}

LRESULT DeleteItem(Tree& tree, HTREEITEM handle) {
    if (handle == TVI_ROOT) {
        DeleteAll(tree);
        return TRUE;
    }
    Item* item = ItemOf(tree, handle);
    if (item == nullptr) {
        return FALSE;
    }
    DeleteSubtree(tree, *item);
    return TRUE;
}

bool IsAncestor(const Item& ancestor, const Item* item) {
    for (; item != nullptr; item = item->parent) {
        if (item == &ancestor) {
            return true;
        }
    }
    return false;
}

LRESULT Expand(Tree& tree, UINT action, Item* item) {
    if (item == nullptr || item->firstChild == nullptr) {
        return FALSE;
    }
    bool expanded = (item->state & TVIS_EXPANDED) != 0;
    switch (action & TVE_TOGGLE) {
        case TVE_EXPAND:
            item->state |= TVIS_EXPANDED;
            return TRUE;
        case TVE_COLLAPSE:
            if (!expanded) {
                return FALSE;
            }
            break;
        case TVE_TOGGLE:
            if (!expanded) {
                item->state |= TVIS_EXPANDED;
                return TRUE;
            }
            break;
        default:
            return FALSE;
    }
    item->state &= ~TVIS_EXPANDED;
    // The caret may not hide below a collapsed item.
    if (tree.caret != nullptr && tree.caret != item && IsAncestor(*item, tree.caret)) {
        tree.caret = item;
    }
    return TRUE;
}

bool IsExpanded(const Item& item) {
    return (item.state & TVIS_EXPANDED) && item.firstChild != nullptr;
}

Item* NextVisible(Item* item) {
    if (IsExpanded(*item)) {
        return item->firstChild;
    }
    for (; item != nullptr && item->level >= 0; item = item->parent) {
        if (item->next != nullptr) {
            return item->next;
        }
    }
    return nullptr;
}

Item* LastVisibleBelow(Item* item) {
    while (IsExpanded(*item)) {
        item = item->lastChild;
    }
    return item;
}

Item* PreviousVisible(Item* item) {
    if (item->prev != nullptr) {
        return LastVisibleBelow(item->prev);
    }
    return item->parent->level >= 0 ? item->parent : nullptr;
}

bool IsVisible(const Item* item) {
    for (item = item->parent; item != nullptr && item->level >= 0; item = item->parent) {
        if (!(item->state & TVIS_EXPANDED)) {
            return false;
        }
    }
    return true;
}

LRESULT GetNextItem(Tree& tree, UINT relation, HTREEITEM handle) {
    Item* item = ItemOf(tree, handle);
    Item* result = nullptr;
    switch (relation) {
        case TVGN_ROOT:
        case TVGN_FIRSTVISIBLE:
            result = tree.root.firstChild;
            break;
        case TVGN_CARET:
            result = tree.caret;
            break;
        case TVGN_CHILD:
            result = handle == nullptr || handle == TVI_ROOT ? tree.root.firstChild
                     : item                                  ? item->firstChild
                                                             : nullptr;
            break;
        case TVGN_NEXT:
            result = item ? item->next : nullptr;
            break;
        case TVGN_PREVIOUS:
            result = item ? item->prev : nullptr;
            break;
        case TVGN_PARENT:
            result = item && item->parent->level >= 0 ? item->parent : nullptr;
            break;
        case TVGN_NEXTVISIBLE:
            result = item && IsVisible(item) ? NextVisible(item) : nullptr;
            break;
        case TVGN_PREVIOUSVISIBLE:
            result = item && IsVisible(item) ? PreviousVisible(item) : nullptr;
            break;
        default:
            break;
    }
    return reinterpret_cast<LRESULT>(HandleOf(result));
}

LRESULT SelectItem(Tree& tree, HTREEITEM handle) {
    if (handle == nullptr) {
        tree.caret = nullptr;
        return TRUE;
    }
    Item* item = ItemOf(tree, handle);
    if (item == nullptr) {
        return FALSE;
    }
    for (Item* up = item->parent; up->level >= 0; up = up->parent) {
        up->state |= TVIS_EXPANDED;
    }
    tree.caret = item;
    return TRUE;
}

LRESULT GetItem(Tree& tree, TVITEM* out) {
    Item* item = out ? ItemOf(tree, out->hItem) : nullptr;
    if (item == nullptr) {
        return FALSE;
    }
    if ((out->mask & TVIF_TEXT) && out->pszText != nullptr && out->cchTextMax > 0) {
        std::size_t n = std::min<std::size_t>(item->text.size(), out->cchTextMax - 1);
        item->text.copy(out->pszText, n);
        out->pszText[n] = '\0';
    }
    if (out->mask & TVIF_IMAGE) {
        out->iImage = item->image;
    }
    if (out->mask & TVIF_SELECTEDIMAGE) {
        out->iSelectedImage = item->selectedImage;
    }
    if (out->mask & TVIF_PARAM) {
        out->lParam = item->param;
    }
    if (out->mask & TVIF_STATE) {
        UINT state = item->state | (tree.caret == item ? TVIS_SELECTED : 0);
        out->state = state & out->stateMask;
    }
    if (out->mask & TVIF_CHILDREN) {
        out->cChildren = item->firstChild ? 1 : 0;
    }
    return TRUE;
}

LRESULT SetItem(Tree& tree, const TVITEM* in) {
    Item* item = in ? ItemOf(tree, in->hItem) : nullptr;
    if (item == nullptr) {
        return FALSE;
    }
    if (in->mask & TVIF_TEXT) {
        SetText(tree, *item, in->pszText ? in->pszText : "");
    }
    ApplyFields(*item, *in);
    return TRUE;
}

int ImageWidth(const Tree& tree) {
    int cx = 0;
    int cy = 0;
    return ImageList_GetIconSize(tree.normalImages, &cx, &cy) ? cx : 0;
}

// The row geometry of the header comment.
void HitTest(HWND hwnd, Tree& tree, TVHITTESTINFO* info) {
    info->flags = 0;
    info->hItem = nullptr;
    RECT client;
    GetClientRect(hwnd, &client);
    const POINT pt = info->pt;
    if (pt.x < client.left) {
        info->flags |= TVHT_TOLEFT;
    } else if (pt.x >= client.right) {
        info->flags |= TVHT_TORIGHT;
    }
    if (pt.y < client.top) {
        info->flags |= TVHT_ABOVE;
    } else if (pt.y >= client.bottom) {
        info->flags |= TVHT_BELOW;
    }
    if (info->flags != 0) {
        return;
    }
    Item* item = tree.root.firstChild;
    for (int row = pt.y / std::max(tree.itemHeight, 1); item != nullptr && row > 0; --row) {
        item = NextVisible(item);
    }
    if (item == nullptr) {
        info->flags = TVHT_NOWHERE;
        return;
    }
    info->hItem = HandleOf(item);
    const DWORD style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    const int level = item->level + ((style & TVS_LINESATROOT) ? 1 : 0);
    const int indentEnd = level * tree.indent;
    const int iconEnd = indentEnd + ImageWidth(tree);
    const int labelEnd = iconEnd + kCharWidth * static_cast<int>(item->text.size()) + kLabelPadding;
    if (pt.x < indentEnd) {
        bool onButton = (style & TVS_HASBUTTONS) && item->firstChild != nullptr &&
                        pt.x >= indentEnd - tree.indent;
        info->flags = onButton ? TVHT_ONITEMBUTTON : TVHT_ONITEMINDENT;
    } else if (pt.x < iconEnd) {
        info->flags = TVHT_ONITEMICON;
    } else if (pt.x < labelEnd) {
        info->flags = TVHT_ONITEMLABEL;
    } else {
        info->flags = TVHT_ONITEMRIGHT;
    }
}

TVHITTESTINFO HitTestAt(HWND hwnd, Tree& tree, LPARAM lParam) {
    TVHITTESTINFO info;
    info.pt = POINT{static_cast<short>(LOWORD(static_cast<std::uintptr_t>(lParam))),
                    static_cast<short>(HIWORD(static_cast<std::uintptr_t>(lParam)))};
    HitTest(hwnd, tree, &info);
    return info;
}

void OnDoubleClick(HWND hwnd, LPARAM lParam) {
    TVHITTESTINFO hit = HitTestAt(hwnd, TreeOf(hwnd), lParam);
    LRESULT answer = 0;
    if (HWND parent = GetParent(hwnd)) {
        NMHDR header{hwnd, static_cast<UINT_PTR>(GetDlgCtrlID(hwnd)), NM_DBLCLK};
        answer = SendMessage(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    }
    // The parent may have destroyed the control, or emptied it.
    if (answer == 0 && IsWindow(hwnd) && (hit.flags & TVHT_ONITEM)) {
        Tree& tree = TreeOf(hwnd);
        Expand(tree, TVE_TOGGLE, ItemOf(tree, hit.hItem));
    }
}

void OnButtonDown(HWND hwnd, LPARAM lParam) {
    SetFocus(hwnd);
    if (!IsWindow(hwnd)) {
        return;
    }
    Tree& tree = TreeOf(hwnd);
    TVHITTESTINFO hit = HitTestAt(hwnd, tree, lParam);
    if (hit.flags & TVHT_ONITEMBUTTON) {
        Expand(tree, TVE_TOGGLE, ItemOf(tree, hit.hItem));
    } else if (hit.flags & TVHT_ONITEM) {
        SelectItem(tree, hit.hItem);
    }
}

void OnKeyDown(Tree& tree, WPARAM key) {
    Item* caret = tree.caret;
    Item* target = nullptr;
    switch (key) {
        case VK_DOWN:
            target = caret ? NextVisible(caret) : tree.root.firstChild;
            break;
        case VK_UP:
            target = caret ? PreviousVisible(caret) : nullptr;
            break;
        case VK_HOME:
            target = tree.root.firstChild;
            break;
        case VK_END:
            target = tree.root.lastChild ? LastVisibleBelow(tree.root.lastChild) : nullptr;
            break;
        case VK_LEFT:
            if (caret && IsExpanded(*caret)) {
                Expand(tree, TVE_COLLAPSE, caret);
            } else if (caret && caret->parent->level >= 0) {
                target = caret->parent;
            }
            break;
        case VK_RIGHT:
            if (caret && caret->firstChild && !IsExpanded(*caret)) {
                Expand(tree, TVE_EXPAND, caret);
            } else if (caret) {
                target = caret->firstChild;
            }
            break;
        default:
            break;
    }
    if (target != nullptr) {
        tree.caret = target;
    }
}

LRESULT TreeProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case TVM_INSERTITEM:
            return InsertItem(TreeOf(hwnd), reinterpret_cast<const TVINSERTSTRUCT*>(lParam));
        case TVM_DELETEITEM:
            return DeleteItem(TreeOf(hwnd), reinterpret_cast<HTREEITEM>(lParam));
        case TVM_EXPAND: {
            Tree& tree = TreeOf(hwnd);
            return Expand(tree, static_cast<UINT>(wParam),
                          ItemOf(tree, reinterpret_cast<HTREEITEM>(lParam)));
        }
        case TVM_GETCOUNT:
            return static_cast<LRESULT>(TreeOf(hwnd).count);
        case TVM_GETINDENT:
            return TreeOf(hwnd).indent;
        case TVM_SETINDENT:
            TreeOf(hwnd).indent = std::max(static_cast<int>(wParam), 0);
            return 0;
        case TVM_GETITEMHEIGHT:
            return TreeOf(hwnd).itemHeight;
        case TVM_SETITEMHEIGHT: {
            Tree& tree = TreeOf(hwnd);
            int old = tree.itemHeight;
            int height = static_cast<int>(static_cast<short>(wParam));
            tree.itemHeight = height == -1 ? kDefaultItemHeight : std::max(height, 1);
            return old;
        }
        case TVM_GETIMAGELIST: {
            Tree& tree = TreeOf(hwnd);
            return reinterpret_cast<LRESULT>(wParam == TVSIL_STATE ? tree.stateImages
                                                                   : tree.normalImages);
        }
        case TVM_SETIMAGELIST: {
            Tree& tree = TreeOf(hwnd);
            HIMAGELIST& slot = wParam == TVSIL_STATE ? tree.stateImages : tree.normalImages;
            return reinterpret_cast<LRESULT>(
                std::exchange(slot, reinterpret_cast<HIMAGELIST>(lParam)));
        }
        case TVM_GETNEXTITEM:
            return GetNextItem(TreeOf(hwnd), static_cast<UINT>(wParam),
                               reinterpret_cast<HTREEITEM>(lParam));
        case TVM_SELECTITEM:
            if (wParam != TVGN_CARET) {
                return FALSE;
            }
            return SelectItem(TreeOf(hwnd), reinterpret_cast<HTREEITEM>(lParam));
        case TVM_GETITEM:
            return GetItem(TreeOf(hwnd), reinterpret_cast<TVITEM*>(lParam));
        case TVM_SETITEM:
            return SetItem(TreeOf(hwnd), reinterpret_cast<const TVITEM*>(lParam));
        case TVM_HITTEST: {
            auto* info = reinterpret_cast<TVHITTESTINFO*>(lParam);
            if (info == nullptr) {
                return 0;
            }
            HitTest(hwnd, TreeOf(hwnd), info);
            return reinterpret_cast<LRESULT>(info->hItem);
        }
        case WM_LBUTTONDBLCLK:
            OnDoubleClick(hwnd, lParam);
            return 0;
        case WM_LBUTTONDOWN:
            OnButtonDown(hwnd, lParam);
            return 0;
        case WM_KEYDOWN:
            OnKeyDown(TreeOf(hwnd), wParam);
            return 0;
        case WM_NCDESTROY:
            Trees().erase(hwnd);
            return DefWindowProc(hwnd, msg, wParam, lParam);
        default:
            return DefWindowProc(hwnd, msg, wParam, lParam);
    }
}

}  // namespace

void RegisterTreeViewClass() {
    static bool registered = false;
    if (registered) {
        return;
    }
    WNDCLASS wc;
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = &TreeProc;
    wc.lpszClassName = WC_TREEVIEW;
    RegisterClass(&wc);
    registered = true;
}

}  // namespace win
