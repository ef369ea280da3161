#include "platform/afx/image_list.h"

#include <utility>

#include "platform/afx/win_app.h"
#include "platform/win/resources.h"

namespace afx {

CBitmap::~CBitmap() {
    DeleteObject();
}

BOOL CBitmap::LoadBitmap(UINT id) {
    if (m_hObject != nullptr) {
        return FALSE;
    }
    m_hObject = win::LoadBitmap(AfxGetResourceHandle(), id);
    win::HINSTANCE module = nullptr;
    if (m_hObject == nullptr && win::FindBitmapModule(id, &module)) {
        m_hObject = win::LoadBitmap(module, id);
    }
    return m_hObject != nullptr ? TRUE : FALSE;
}

BOOL CBitmap::DeleteObject() {
    return m_hObject != nullptr ? win::DeleteObject(std::exchange(m_hObject, nullptr)) : FALSE;
}

CImageList::~CImageList() {
    DeleteImageList();
}

BOOL CImageList::Create(int cx, int cy, UINT flags, int initial, int grow) {
    if (m_hImageList != nullptr) {
        return FALSE;
    }
    m_hImageList = win::ImageList_Create(cx, cy, flags, initial, grow);
    return m_hImageList != nullptr ? TRUE : FALSE;
}

int CImageList::Add(CBitmap* bitmap, win::COLORREF mask) {
    if (bitmap == nullptr) {
        return -1;
    }
    return win::ImageList_AddMasked(m_hImageList, bitmap->m_hObject, mask);
}

int CImageList::GetImageCount() const {
    return win::ImageList_GetImageCount(m_hImageList);
}

BOOL CImageList::DeleteImageList() {
    if (m_hImageList == nullptr) {
        return FALSE;
    }
    return win::ImageList_Destroy(std::exchange(m_hImageList, nullptr));
}

}  // namespace afx
