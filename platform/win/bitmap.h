// Bitmaps as graphics objects. Nothing is drawn, so a bitmap is its size: a handle in a
// table that tells width and height, which is all an image list needs to cut it into
// images. Bitmap resources of a module come from resources.h (LoadBitmap).
#pragma once

#include "platform/win/types.h"

namespace win {

struct HBITMAP__;
using HBITMAP = HBITMAP__*;

using COLORREF = DWORD;
constexpr COLORREF RGB(BYTE r, BYTE g, BYTE b) {
    return static_cast<COLORREF>(r) | (static_cast<COLORREF>(g) << 8) |
           (static_cast<COLORREF>(b) << 16);
}

struct BITMAP {
    LONG bmType = 0;
    LONG bmWidth = 0;
    LONG bmHeight = 0;
};

// A new bitmap of the size; the bits are not kept. Null for a negative size.
HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits);
// Fills a BITMAP (size at least sizeof(BITMAP)) and answers the bytes written; 0 for a
// dead handle.
int GetObject(HBITMAP bitmap, int size, LPVOID out);
BOOL DeleteObject(HBITMAP bitmap);

}  // namespace win
