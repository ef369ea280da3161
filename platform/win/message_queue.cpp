#include "platform/win/message_queue.h"

#include <deque>

#include "platform/win/last_error.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"
#include "platform/win/window_table.h"

namespace win {

namespace {

std::deque<MSG>& Queue() {
    static std::deque<MSG> queue;
    return queue;
}

DWORD tickCount = 0;

bool Matches(const MSG& m, HWND hwnd, UINT filterMin, UINT filterMax) {
    if (hwnd != nullptr && m.hwnd != hwnd && !IsChild(hwnd, m.hwnd)) {
        return false;
    }
    if (filterMin == 0 && filterMax == 0) {
        return true;
    }
    return m.message >= filterMin && m.message <= filterMax;
}

// Finds the first matching message, dropping those whose window has died on the way.
bool Take(MSG* out, HWND hwnd, UINT filterMin, UINT filterMax, bool remove) {
    auto& queue = Queue();
    for (auto it = queue.begin(); it != queue.end();) {
        if (it->hwnd != nullptr && detail::FindWindowRecord(it->hwnd) == nullptr) {
            it = queue.erase(it);
            continue;
        }
        if (Matches(*it, hwnd, filterMin, filterMax)) {
            *out = *it;
            if (remove) {
                queue.erase(it);
            }
            return true;
        }
        ++it;
    }
    return false;
}

}  // namespace

LRESULT SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    detail::WindowRecord* rec = detail::FindWindowRecord(hwnd);
    if (rec == nullptr || rec->proc == nullptr) {
        return 0;
    }
    WNDPROC proc = rec->proc;
    return proc(hwnd, msg, wParam, lParam);
}

BOOL PostMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (hwnd != nullptr && detail::FindWindowRecord(hwnd) == nullptr) {
        return FALSE;
    }
    Queue().push_back(MSG{hwnd, msg, wParam, lParam, ++tickCount, POINT{}});
    return TRUE;
}

void PostQuitMessage(int exitCode) {
    Queue().push_back(
        MSG{nullptr, WM_QUIT, static_cast<WPARAM>(exitCode), 0, ++tickCount, POINT{}});
}

BOOL GetMessage(MSG* msg, HWND hwnd, UINT filterMin, UINT filterMax) {
    if (!Take(msg, hwnd, filterMin, filterMax, true)) {
        return -1;
    }
    return msg->message == WM_QUIT ? 0 : 1;
}

BOOL PeekMessage(MSG* msg, HWND hwnd, UINT filterMin, UINT filterMax, UINT removeMsg) {
    return Take(msg, hwnd, filterMin, filterMax, (removeMsg & PM_REMOVE) != 0) ? TRUE : FALSE;
}

LRESULT DispatchMessage(const MSG* msg) {
    if (msg == nullptr || msg->hwnd == nullptr) {
        return 0;
    }
    return SendMessage(msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

}  // namespace win
