#include "platform/win/window_placement.h"

#include "platform/win/last_error.h"
#include "platform/win/window.h"
#include "platform/win/window_table.h"

namespace win {

BOOL GetWindowPlacement(HWND hwnd, WINDOWPLACEMENT* placement) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || placement == nullptr) {
        return FALSE;
    }
    placement->length = sizeof(WINDOWPLACEMENT);
    placement->flags = 0;
    placement->showCmd = (rec->style & WS_MAXIMIZE)   ? SW_SHOWMAXIMIZED
                         : (rec->style & WS_MINIMIZE) ? SW_SHOWMINIMIZED
                                                      : SW_SHOWNORMAL;
    placement->ptMinPosition = rec->minPosition;
    placement->ptMaxPosition = rec->maxPosition;
    placement->rcNormalPosition = rec->normalRect;
    return TRUE;
}

BOOL SetWindowPlacement(HWND hwnd, const WINDOWPLACEMENT* placement) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || placement == nullptr) {
        return FALSE;
    }
    const RECT& r = placement->rcNormalPosition;
    rec->normalRect = r;
    rec->minPosition = placement->ptMinPosition;
    rec->maxPosition = placement->ptMaxPosition;
    if (!(rec->style & (WS_MINIMIZE | WS_MAXIMIZE))) {
        SetWindowPos(hwnd, nullptr, r.left, r.top, r.right - r.left, r.bottom - r.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ShowWindow(hwnd, static_cast<int>(placement->showCmd));
    return TRUE;
}

}  // namespace win
