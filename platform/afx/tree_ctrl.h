// CTreeCtrl: the framework's face of the tree control (win/tree_control.h). Every call is
// one TVM_ message to the control's window; nothing is kept in the object.
#pragma once

#include <string>

#include "platform/afx/wnd.h"
#include "platform/win/image_list.h"
#include "platform/win/tree_control.h"

namespace afx {

class CImageList;

using win::HTREEITEM;

class CTreeCtrl : public CWnd {
    DECLARE_DYNAMIC(CTreeCtrl)
  public:
    // Makes the control as a child of parent (WS_CHILD is added).
    BOOL Create(DWORD style, const win::RECT& rect, CWnd* parent, UINT id);

    // Inserts under parent (TVI_ROOT or null: top level) after insertAfter (TVI_FIRST,
    // TVI_LAST, TVI_SORT or a sibling); the new handle, or null.
    HTREEITEM InsertItem(const win::TVINSERTSTRUCT* insert);
    HTREEITEM InsertItem(UINT mask, LPCSTR text, int image, int selectedImage, UINT state,
                         UINT stateMask, LPARAM param, HTREEITEM parent, HTREEITEM insertAfter);
    HTREEITEM InsertItem(LPCSTR text, int image, int selectedImage,
                         HTREEITEM parent = win::TVI_ROOT, HTREEITEM insertAfter = win::TVI_LAST);
    HTREEITEM InsertItem(LPCSTR text, HTREEITEM parent = win::TVI_ROOT,
                         HTREEITEM insertAfter = win::TVI_LAST);
    // The item and all below it.
    BOOL DeleteItem(HTREEITEM item);
    BOOL DeleteAllItems();
    // TVE_EXPAND, TVE_COLLAPSE or TVE_TOGGLE.
    BOOL Expand(HTREEITEM item, UINT action);

    HTREEITEM GetNextItem(HTREEITEM item, UINT relation) const;
    HTREEITEM GetRootItem() const;
    HTREEITEM GetChildItem(HTREEITEM item) const;
    HTREEITEM GetParentItem(HTREEITEM item) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;
    HTREEITEM GetNextVisibleItem(HTREEITEM item) const;
    HTREEITEM GetSelectedItem() const;
    BOOL ItemHasChildren(HTREEITEM item) const;
    UINT GetCount() const;

    // Makes the item the selected one, expanding the items above it; null selects none.
    BOOL SelectItem(HTREEITEM item);

    BOOL GetItem(win::TVITEM* item) const;
    BOOL SetItem(const win::TVITEM* item);
    BOOL SetItem(HTREEITEM item, UINT mask, LPCSTR text, int image, int selectedImage, UINT state,
                 UINT stateMask, LPARAM param);
    // The item's whole text; empty for a dead item.
    std::string GetItemText(HTREEITEM item) const;
    BOOL SetItemText(HTREEITEM item, LPCSTR text);
    win::DWORD_PTR GetItemData(HTREEITEM item) const;
    BOOL SetItemData(HTREEITEM item, win::DWORD_PTR data);
    BOOL GetItemImage(HTREEITEM item, int& image, int& selectedImage) const;
    UINT GetItemState(HTREEITEM item, UINT stateMask) const;

    // The item at a point of the client area, with TVHT_ flags; null when none is there.
    HTREEITEM HitTest(win::POINT point, UINT* flags = nullptr) const;
    HTREEITEM HitTest(win::TVHITTESTINFO* info) const;

    // Gives the control the list (TVSIL_NORMAL or TVSIL_STATE); the list stays the
    // caller's. Answers the list the control had.
    win::HIMAGELIST SetImageList(CImageList* list, int kind);
    win::HIMAGELIST GetImageList(int kind) const;
    UINT GetIndent() const;
    int GetItemHeight() const;
};

}  // namespace afx
