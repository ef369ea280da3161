#include "platform/win/bitmap.h"

#include <cstring>
#include <map>

#include "platform/win/last_error.h"

namespace win {

namespace {

struct Bitmaps {
    std::map<std::uintptr_t, BITMAP> live;
    std::uintptr_t next = 0x40000;
};

Bitmaps& B() {
    static Bitmaps bitmaps;
    return bitmaps;
}

}  // namespace

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits) {
    if (width < 0 || height < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::uintptr_t n = B().next++;
    B().live[n] = BITMAP{0, width, height};
    return HandleFromNumber<HBITMAP>(n);
}

int GetObject(HBITMAP bitmap, int size, LPVOID out) {
    auto it = B().live.find(NumberFromHandle(bitmap));
    if (it == B().live.end() || out == nullptr || size < static_cast<int>(sizeof(BITMAP))) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    std::memcpy(out, &it->second, sizeof(BITMAP));
    return static_cast<int>(sizeof(BITMAP));
}

BOOL DeleteObject(HBITMAP bitmap) {
    return B().live.erase(NumberFromHandle(bitmap)) != 0 ? TRUE : FALSE;
}

}  // namespace win
