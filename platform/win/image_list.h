// Image lists: rows of equally sized images, numbered from 0 in the order they were
// added. Nothing is drawn, so an image list keeps its image size and count; a bitmap
// added to it gives as many images as its width holds.
#pragma once

#include "platform/win/bitmap.h"
#include "platform/win/types.h"

namespace win {

struct HIMAGELIST__;
using HIMAGELIST = HIMAGELIST__*;

inline constexpr UINT ILC_MASK = 0x0001;
inline constexpr UINT ILC_COLOR = 0x0000;

// A new list of images of cx by cy pixels; initial and grow are sizing hints.
HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int initial, int grow);
BOOL ImageList_Destroy(HIMAGELIST list);
// Adds the images of the bitmap (its width over the image width, at least one) and
// answers the index of the first; -1 for a dead list or bitmap.
int ImageList_Add(HIMAGELIST list, HBITMAP image, HBITMAP mask);
// The same, with the mask made from the pixels of the colour.
int ImageList_AddMasked(HIMAGELIST list, HBITMAP image, COLORREF mask);
// The number of images; 0 for a dead list.
int ImageList_GetImageCount(HIMAGELIST list);
BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy);

}  // namespace win
