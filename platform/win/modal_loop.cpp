#include "platform/win/modal_loop.h"

#include <vector>

#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace win {

namespace {

struct Loop {
    HWND hwnd = nullptr;
    bool ended = false;
    INT_PTR result = MODAL_LOOP_ABORTED;
};

// Innermost last. The loops live on RunModalLoop's stack.
std::vector<Loop*>& Loops() {
    static std::vector<Loop*> loops;
    return loops;
}

Loop* Running(HWND hwnd) {
    auto& loops = Loops();
    for (auto it = loops.rbegin(); it != loops.rend(); ++it) {
        if ((*it)->hwnd == hwnd && !(*it)->ended) {
            return *it;
        }
    }
    return nullptr;
}

}  // namespace

INT_PTR RunModalLoop(HWND hwnd) {
    if (!IsWindow(hwnd)) {
        return MODAL_LOOP_ABORTED;
    }
    Loop loop{hwnd};
    Loops().push_back(&loop);
    while (!loop.ended && IsWindow(hwnd)) {
        MSG msg;
        BOOL got = GetMessage(&msg, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            break;
        }
        if (got < 0) {
            break;
        }
        DispatchMessage(&msg);
    }
    Loops().pop_back();
    return loop.ended ? loop.result : MODAL_LOOP_ABORTED;
}

BOOL EndModalLoop(HWND hwnd, INT_PTR result) {
    Loop* loop = Running(hwnd);
    if (loop == nullptr) {
        return FALSE;
    }
    loop->ended = true;
    loop->result = result;
    return TRUE;
}

BOOL IsInModalLoop(HWND hwnd) {
    return Running(hwnd) != nullptr ? TRUE : FALSE;
}

}  // namespace win
