#include "platform/win/focus.h"

#include "platform/win/message_queue.h"
#include "platform/win/window.h"

namespace win {

namespace {

HWND focus = nullptr;

}  // namespace

HWND SetFocus(HWND hwnd) {
    if (hwnd != nullptr && !IsWindow(hwnd)) {
        return nullptr;
    }
    HWND before = GetFocus();
    if (before == hwnd) {
        return before;
    }
    focus = hwnd;
    if (before != nullptr) {
        SendMessage(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd), 0);
    }
    // The loser's handler may have moved the focus on already; then that move stands.
    if (hwnd != nullptr && focus == hwnd && IsWindow(hwnd)) {
        SendMessage(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
    }
    return before;
}

HWND GetFocus() {
    if (focus != nullptr && !IsWindow(focus)) {
        focus = nullptr;
    }
    return focus;
}

}  // namespace win
