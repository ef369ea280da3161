// The tree control, window class "SysTreeView32": items with a text, an image and a data
// word, kept as data and driven by its TVM_ messages. Nothing is drawn; what the user
// sees is given by a fixed row geometry, so that mouse messages find their item:
//
//   - the visible items are the top-level items and the children of expanded items, in
//     tree order; visible item n (from 0) fills the row from y = n * height to
//     (n + 1) * height - 1, where height is TVM_GETITEMHEIGHT (16 unless set);
//   - a row is indented by its item's level (0 for top-level items, one more with
//     TVS_LINESATROOT) times TVM_GETINDENT (19 unless set); with TVS_HASBUTTONS the last
//     indent step of an item that has children is its expand button;
//   - behind the indent stands the icon, as wide as the images of the normal image list
//     (none without one), and behind it the label, 8 pixels per character and 4 more;
//     the rest of the row lies right of the item.
//
// The control does not scroll. Items are numbered handles: a deleted item's handle stays
// dead, and a message given one answers as for no item.
//
// Toward the parent: WM_LBUTTONDBLCLK sends NM_DBLCLK in WM_NOTIFY, and unless the parent
// answers non-zero, an item hit on its icon or label expands or collapses. WM_LBUTTONDOWN
// selects the item hit (on its button: expands or collapses it). WM_KEYDOWN moves the
// selection with the arrow keys, Home and End (left collapses or goes to the parent,
// right expands or goes to the first child).
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/messages.h"
#include "platform/win/types.h"

namespace win {

// HTREEITEM, the handle of an item, is one of the platform's handle types (types.h).

inline constexpr LPCSTR WC_TREEVIEW = "SysTreeView32";

// Registers the class once; the framework calls it before it makes a tree view.
void RegisterTreeViewClass();

// Styles.
inline constexpr DWORD TVS_HASBUTTONS = 0x0001;
inline constexpr DWORD TVS_HASLINES = 0x0002;
inline constexpr DWORD TVS_LINESATROOT = 0x0004;
inline constexpr DWORD TVS_SHOWSELALWAYS = 0x0020;

// Insert positions and the root, as handles.
inline const HTREEITEM TVI_ROOT = reinterpret_cast<HTREEITEM>(-static_cast<std::intptr_t>(0x10000));
inline const HTREEITEM TVI_FIRST =
    reinterpret_cast<HTREEITEM>(-static_cast<std::intptr_t>(0x0FFFF));
inline const HTREEITEM TVI_LAST = reinterpret_cast<HTREEITEM>(-static_cast<std::intptr_t>(0x0FFFE));
// Before the sibling that sorts least after the new text (bytes compared with case
// ignored), else last: among sorted siblings the sorted place, equal texts in the order
// of their insertion. Siblings keep a sorted index, so a sorted insert under a parent
// with many children costs a logarithmic search, not a walk.
inline const HTREEITEM TVI_SORT = reinterpret_cast<HTREEITEM>(-static_cast<std::intptr_t>(0x0FFFD));

// Item masks, states and the item record.
inline constexpr UINT TVIF_TEXT = 0x0001;
inline constexpr UINT TVIF_IMAGE = 0x0002;
inline constexpr UINT TVIF_PARAM = 0x0004;
inline constexpr UINT TVIF_STATE = 0x0008;
inline constexpr UINT TVIF_HANDLE = 0x0010;
inline constexpr UINT TVIF_SELECTEDIMAGE = 0x0020;
inline constexpr UINT TVIF_CHILDREN = 0x0040;

inline constexpr UINT TVIS_SELECTED = 0x0002;
inline constexpr UINT TVIS_EXPANDED = 0x0020;

struct TVITEM {
    UINT mask = 0;
    HTREEITEM hItem = nullptr;
    UINT state = 0;
    UINT stateMask = 0;
    LPSTR pszText = nullptr;  // given: a zero-ended text; asked for: a buffer of cchTextMax
    int cchTextMax = 0;
    int iImage = 0;
    int iSelectedImage = 0;
    int cChildren = 0;  // asked for: 1 when the item has children
    LPARAM lParam = 0;
};

struct TVINSERTSTRUCT {
    HTREEITEM hParent = nullptr;  // null or TVI_ROOT: a top-level item
    // TVI_FIRST, TVI_LAST, TVI_SORT, or a child of hParent (any other item: last).
    HTREEITEM hInsertAfter = nullptr;
    TVITEM item;
};

// Messages. TVM_INSERTITEM takes a TVINSERTSTRUCT and answers the new handle or 0;
// TVM_DELETEITEM takes an item (TVI_ROOT: all items); TVM_GETITEM and TVM_SETITEM take a
// TVITEM whose hItem names the item and whose mask says which fields count.
inline constexpr UINT TV_FIRST = 0x1100;
inline constexpr UINT TVM_INSERTITEM = TV_FIRST + 0;
inline constexpr UINT TVM_DELETEITEM = TV_FIRST + 1;
inline constexpr UINT TVM_EXPAND = TV_FIRST + 2;  // wParam TVE_..., lParam the item
inline constexpr UINT TVM_GETCOUNT = TV_FIRST + 5;
inline constexpr UINT TVM_GETINDENT = TV_FIRST + 6;
inline constexpr UINT TVM_SETINDENT = TV_FIRST + 7;
inline constexpr UINT TVM_GETIMAGELIST = TV_FIRST + 8;
inline constexpr UINT TVM_SETIMAGELIST = TV_FIRST + 9;  // wParam TVSIL_..., lParam the list
inline constexpr UINT TVM_GETNEXTITEM = TV_FIRST + 10;  // wParam TVGN_..., lParam the item
inline constexpr UINT TVM_SELECTITEM = TV_FIRST + 11;   // wParam TVGN_CARET, lParam the item
inline constexpr UINT TVM_GETITEM = TV_FIRST + 12;
inline constexpr UINT TVM_SETITEM = TV_FIRST + 13;
inline constexpr UINT TVM_HITTEST = TV_FIRST + 17;  // lParam a TVHITTESTINFO
inline constexpr UINT TVM_SETITEMHEIGHT = TV_FIRST + 27;
inline constexpr UINT TVM_GETITEMHEIGHT = TV_FIRST + 28;

// TVM_EXPAND actions. Expanding or collapsing an item without children fails, and so
// does collapsing a collapsed item; expanding an expanded one succeeds.
inline constexpr UINT TVE_COLLAPSE = 0x0001;
inline constexpr UINT TVE_EXPAND = 0x0002;
inline constexpr UINT TVE_TOGGLE = 0x0003;

// TVM_GETNEXTITEM relations.
inline constexpr UINT TVGN_ROOT = 0x0000;
inline constexpr UINT TVGN_NEXT = 0x0001;
inline constexpr UINT TVGN_PREVIOUS = 0x0002;
inline constexpr UINT TVGN_PARENT = 0x0003;
inline constexpr UINT TVGN_CHILD = 0x0004;
inline constexpr UINT TVGN_FIRSTVISIBLE = 0x0005;
inline constexpr UINT TVGN_NEXTVISIBLE = 0x0006;
inline constexpr UINT TVGN_PREVIOUSVISIBLE = 0x0007;
inline constexpr UINT TVGN_CARET = 0x0009;

// TVM_SETIMAGELIST kinds.
inline constexpr WPARAM TVSIL_NORMAL = 0;
inline constexpr WPARAM TVSIL_STATE = 2;

// Hit test: pt in client coordinates in, flags and item out.
struct TVHITTESTINFO {
    POINT pt;
    UINT flags = 0;
    HTREEITEM hItem = nullptr;
};

inline constexpr UINT TVHT_NOWHERE = 0x0001;
inline constexpr UINT TVHT_ONITEMICON = 0x0002;
inline constexpr UINT TVHT_ONITEMLABEL = 0x0004;
inline constexpr UINT TVHT_ONITEMINDENT = 0x0008;
inline constexpr UINT TVHT_ONITEMBUTTON = 0x0010;
inline constexpr UINT TVHT_ONITEMRIGHT = 0x0020;
inline constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL;
inline constexpr UINT TVHT_ABOVE = 0x0100;
inline constexpr UINT TVHT_BELOW = 0x0200;
inline constexpr UINT TVHT_TORIGHT = 0x0400;
inline constexpr UINT TVHT_TOLEFT = 0x0800;

// Notification codes in NMHDR.code.
inline constexpr UINT NM_DBLCLK = static_cast<UINT>(-3);

}  // namespace win
