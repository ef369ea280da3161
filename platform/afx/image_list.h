// CBitmap and CImageList: the framework's owners of a bitmap and an image list
// (win/bitmap.h, win/image_list.h). Each frees what it holds when it goes.
#pragma once

#include "platform/afx/object.h"
#include "platform/win/bitmap.h"
#include "platform/win/image_list.h"

namespace afx {

class CBitmap : public CObject {
  public:
    CBitmap() = default;
    ~CBitmap() override;
    CBitmap(const CBitmap&) = delete;
    CBitmap& operator=(const CBitmap&) = delete;

    win::HBITMAP m_hObject = nullptr;

    // The bitmap resource from the resource module (AfxGetResourceHandle), else from the
    // first module that has it. FALSE when none has it or a bitmap is held already.
    BOOL LoadBitmap(UINT id);
    BOOL DeleteObject();
};

class CImageList : public CObject {
  public:
    CImageList() = default;
    ~CImageList() override;
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    win::HIMAGELIST m_hImageList = nullptr;

    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    // The bitmap's images with the mask colour; the index of the first, or -1.
    int Add(CBitmap* bitmap, win::COLORREF mask);
    int GetImageCount() const;
    BOOL DeleteImageList();
};

}  // namespace afx
