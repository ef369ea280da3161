#include "platform/win/image_list.h"

#include <algorithm>
#include <map>

#include "platform/win/last_error.h"

namespace win {

namespace {

struct ImageList {
    int cx = 0;
    int cy = 0;
    UINT flags = 0;
    int count = 0;
};

struct Lists {
    std::map<std::uintptr_t, ImageList> live;
    std::uintptr_t next = 0x50000;
};

Lists& L() {
    static Lists lists;
    return lists;
}

ImageList* Find(HIMAGELIST list) {
    auto it = L().live.find(NumberFromHandle(list));
    if (it == L().live.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return &it->second;
}

}  // namespace

HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int initial, int grow) {
    if (cx <= 0 || cy <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::uintptr_t n = L().next++;
    L().live[n] = ImageList{cx, cy, flags, 0};
    return HandleFromNumber<HIMAGELIST>(n);
}

BOOL ImageList_Destroy(HIMAGELIST list) {
    return L().live.erase(NumberFromHandle(list)) != 0 ? TRUE : FALSE;
}

int ImageList_Add(HIMAGELIST list, HBITMAP image, HBITMAP mask) {
    ImageList* il = Find(list);
    BITMAP bm;
    if (il == nullptr || GetObject(image, sizeof bm, &bm) == 0) {
        return -1;
    }
    int first = il->count;
    il->count += std::max<int>(1, bm.bmWidth / il->cx);
    return first;
}

int ImageList_AddMasked(HIMAGELIST list, HBITMAP image, COLORREF mask) {
    return ImageList_Add(list, image, nullptr);
}

int ImageList_GetImageCount(HIMAGELIST list) {
    ImageList* il = Find(list);
    return il ? il->count : 0;
}

BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy) {
    ImageList* il = Find(list);
    if (il == nullptr || cx == nullptr || cy == nullptr) {
        return FALSE;
    }
    *cx = il->cx;
    *cy = il->cy;
    return TRUE;
}

}  // namespace win
