// Points, sizes and rectangles. Nothing is drawn: window geometry is kept as these numbers.
#pragma once

#include "platform/win/types.h"

namespace win {

struct POINT {
    LONG x = 0;
    LONG y = 0;
};

struct SIZE {
    LONG cx = 0;
    LONG cy = 0;
};

// Right and bottom lie just outside the rectangle.
struct RECT {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};

inline void SetRect(RECT* r, int left, int top, int right, int bottom) {
    *r = RECT{left, top, right, bottom};
}
inline void SetRectEmpty(RECT* r) {
    *r = RECT{};
}
inline BOOL IsRectEmpty(const RECT* r) {
    return r->right <= r->left || r->bottom <= r->top;
}
inline BOOL PtInRect(const RECT* r, POINT p) {
    return p.x >= r->left && p.x < r->right && p.y >= r->top && p.y < r->bottom;
}
inline void OffsetRect(RECT* r, int dx, int dy) {
    r->left += dx;
    r->right += dx;
    r->top += dy;
    r->bottom += dy;
}
inline void InflateRect(RECT* r, int dx, int dy) {
    r->left -= dx;
    r->right += dx;
    r->top -= dy;
    r->bottom += dy;
}

}  // namespace win
