#include "platform/afx/tree_ctrl.h"

#include "platform/afx/image_list.h"

namespace afx {

IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

namespace {

template <class T>
LPARAM Arg(T* pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

HTREEITEM ItemFrom(LRESULT result) {
    return reinterpret_cast<HTREEITEM>(result);
}

}  // namespace

BOOL CTreeCtrl::Create(DWORD style, const win::RECT& rect, CWnd* parent, UINT id) {
    win::RegisterTreeViewClass();
    return CWnd::Create(win::WC_TREEVIEW, nullptr, style, rect, parent, id);
}

HTREEITEM CTreeCtrl::InsertItem(const win::TVINSERTSTRUCT* insert) {
    return ItemFrom(SendMessage(win::TVM_INSERTITEM, 0, Arg(insert)));
}

HTREEITEM CTreeCtrl::InsertItem(UINT mask, LPCSTR text, int image, int selectedImage, UINT state,
                                UINT stateMask, LPARAM param, HTREEITEM parent,
                                HTREEITEM insertAfter) {
    win::TVINSERTSTRUCT insert;
    insert.hParent = parent;
    insert.hInsertAfter = insertAfter;
    insert.item.mask = mask;
    insert.item.pszText = const_cast<LPSTR>(text);
    insert.item.iImage = image;
    insert.item.iSelectedImage = selectedImage;
    insert.item.state = state;
    insert.item.stateMask = stateMask;
    insert.item.lParam = param;
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(LPCSTR text, int image, int selectedImage, HTREEITEM parent,
                                HTREEITEM insertAfter) {
    return InsertItem(win::TVIF_TEXT | win::TVIF_IMAGE | win::TVIF_SELECTEDIMAGE, text, image,
                      selectedImage, 0, 0, 0, parent, insertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(LPCSTR text, HTREEITEM parent, HTREEITEM insertAfter) {
    return InsertItem(win::TVIF_TEXT, text, 0, 0, 0, 0, 0, parent, insertAfter);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) {
    return static_cast<BOOL>(SendMessage(win::TVM_DELETEITEM, 0, Arg(item)));
}

BOOL CTreeCtrl::DeleteAllItems() {
    return DeleteItem(win::TVI_ROOT);
}

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT action) {
    return static_cast<BOOL>(SendMessage(win::TVM_EXPAND, action, Arg(item)));
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT relation) const {
    return ItemFrom(SendMessage(win::TVM_GETNEXTITEM, relation, Arg(item)));
}

HTREEITEM CTreeCtrl::GetRootItem() const {
    return GetNextItem(nullptr, win::TVGN_ROOT);
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const {
    return GetNextItem(item, win::TVGN_CHILD);
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const {
    return GetNextItem(item, win::TVGN_PARENT);
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM item) const {
    return GetNextItem(item, win::TVGN_NEXT);
}

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM item) const {
    return GetNextItem(item, win::TVGN_PREVIOUS);
}

HTREEITEM CTreeCtrl::GetNextVisibleItem(HTREEITEM item) const {
    return GetNextItem(item, win::TVGN_NEXTVISIBLE);
}

HTREEITEM CTreeCtrl::GetSelectedItem() const {
    return GetNextItem(nullptr, win::TVGN_CARET);
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM item) const {
    win::TVITEM tv;
    tv.mask = win::TVIF_CHILDREN;
    tv.hItem = item;
    return GetItem(&tv) && tv.cChildren != 0 ? TRUE : FALSE;
}

UINT CTreeCtrl::GetCount() const {
    return static_cast<UINT>(SendMessage(win::TVM_GETCOUNT));
}

BOOL CTreeCtrl::SelectItem(HTREEITEM item) {
    return static_cast<BOOL>(SendMessage(win::TVM_SELECTITEM, win::TVGN_CARET, Arg(item)));
}

BOOL CTreeCtrl::GetItem(win::TVITEM* item) const {
    return static_cast<BOOL>(SendMessage(win::TVM_GETITEM, 0, Arg(item)));
}

BOOL CTreeCtrl::SetItem(const win::TVITEM* item) {
    return static_cast<BOOL>(SendMessage(win::TVM_SETITEM, 0, Arg(item)));
}

BOOL CTreeCtrl::SetItem(HTREEITEM item, UINT mask, LPCSTR text, int image, int selectedImage,
                        UINT state, UINT stateMask, LPARAM param) {
    win::TVITEM tv;
    tv.mask = mask;
    tv.hItem = item;
    tv.pszText = const_cast<LPSTR>(text);
    tv.iImage = image;
    tv.iSelectedImage = selectedImage;
    tv.state = state;
    tv.stateMask = stateMask;
    tv.lParam = param;
    return SetItem(&tv);
}

std::string CTreeCtrl::GetItemText(HTREEITEM item) const {
    // Grows the buffer until the text fits with room to spare.
    for (std::size_t size = 256;; size *= 2) {
        std::string buffer(size, '\0');
        win::TVITEM tv;
        tv.mask = win::TVIF_TEXT;
        tv.hItem = item;
        tv.pszText = buffer.data();
        tv.cchTextMax = static_cast<int>(size);
        if (!GetItem(&tv)) {
            return std::string();
        }
        std::size_t length = std::char_traits<char>::length(buffer.c_str());
        if (length + 1 < size) {
            buffer.resize(length);
            return buffer;
        }
    }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, LPCSTR text) {
    return SetItem(item, win::TVIF_TEXT, text, 0, 0, 0, 0, 0);
}

win::DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const {
    win::TVITEM tv;
    tv.mask = win::TVIF_PARAM;
    tv.hItem = item;
    return GetItem(&tv) ? static_cast<win::DWORD_PTR>(tv.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, win::DWORD_PTR data) {
    return SetItem(item, win::TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(data));
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM item, int& image, int& selectedImage) const {
    win::TVITEM tv;
    tv.mask = win::TVIF_IMAGE | win::TVIF_SELECTEDIMAGE;
    tv.hItem = item;
    if (!GetItem(&tv)) {
        return FALSE;
    }
    image = tv.iImage;
    selectedImage = tv.iSelectedImage;
    return TRUE;
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT stateMask) const {
    win::TVITEM tv;
    tv.mask = win::TVIF_STATE;
    tv.hItem = item;
    tv.stateMask = stateMask;
    return GetItem(&tv) ? tv.state : 0;
}

HTREEITEM CTreeCtrl::HitTest(win::POINT point, UINT* flags) const {
    win::TVHITTESTINFO info;
    info.pt = point;
    HTREEITEM item = HitTest(&info);
    if (flags != nullptr) {
        *flags = info.flags;
    }
    return item;
}

HTREEITEM CTreeCtrl::HitTest(win::TVHITTESTINFO* info) const {
    return ItemFrom(SendMessage(win::TVM_HITTEST, 0, Arg(info)));
}

win::HIMAGELIST CTreeCtrl::SetImageList(CImageList* list, int kind) {
    return reinterpret_cast<win::HIMAGELIST>(SendMessage(win::TVM_SETIMAGELIST,
                                                         static_cast<WPARAM>(kind),
                                                         Arg(list ? list->m_hImageList : nullptr)));
}

win::HIMAGELIST CTreeCtrl::GetImageList(int kind) const {
    return reinterpret_cast<win::HIMAGELIST>(
        SendMessage(win::TVM_GETIMAGELIST, static_cast<WPARAM>(kind)));
}

UINT CTreeCtrl::GetIndent() const {
    return static_cast<UINT>(SendMessage(win::TVM_GETINDENT));
}

int CTreeCtrl::GetItemHeight() const {
    return static_cast<int>(SendMessage(win::TVM_GETITEMHEIGHT));
}

}  // namespace afx
