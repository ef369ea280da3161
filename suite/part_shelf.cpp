// The stand-in for partshelf, the suite's device library: it keeps one window, made and
// shown by the device selection, that takes the copy request (WM_COPY) and the selection
// request (message 0x464) of the project. It records every call and every request. The
// window lives in this library, so it goes when the library is unloaded.
#include <string>

#include "platform/win/messages.h"
#include "platform/win/window.h"
#include "suite/sibling_log.h"

namespace {

constexpr win::UINT kSelectRequest = 0x464;
constexpr char kClassName[] = "PartShelf";

win::HWND shelf = nullptr;

win::LRESULT ShelfProc(win::HWND hwnd, win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    switch (msg) {
        case win::WM_COPY:
            suite::LogSiblingCall("partshelf", "WM_COPY");
            return 0;
        case kSelectRequest: {
            const auto* text = reinterpret_cast<const char*>(lParam);
            suite::LogSiblingCall("partshelf",
                                  "0x464(" + std::string(text != nullptr ? text : "(null)") + ")");
            return 0;
        }
        case win::WM_NCDESTROY:
            shelf = nullptr;
            break;
        default:
            break;
    }
    return win::DefWindowProc(hwnd, msg, wParam, lParam);
}

// Makes the window, with its class, on the first selection.
win::HWND MakeShelf() {
    win::WNDCLASS shelfClass;
    shelfClass.lpfnWndProc = ShelfProc;
    shelfClass.lpszClassName = kClassName;
    win::RegisterClass(&shelfClass);
    return win::CreateWindow(kClassName, "Device Library", win::WS_OVERLAPPEDWINDOW, 0, 0, 320, 480,
                             nullptr, nullptr, nullptr, nullptr);
}

struct ShelfAtUnload {
    ~ShelfAtUnload() {
        if (shelf != nullptr)
            win::DestroyWindow(shelf);
        win::UnregisterClass(kClassName, nullptr);
    }
} shelfAtUnload;

}  // namespace

#define PART_SHELF_EXPORT extern "C" __attribute__((visibility("default")))

PART_SHELF_EXPORT win::HWND GetPartShelfHandle() {
    suite::LogSiblingCall("partshelf", "GetPartShelfHandle()");
    return shelf;
}

// Shows the device library's window, made when there is none, as the active window.
PART_SHELF_EXPORT void SelectDevice(const char* arguments, int flags) {
    suite::LogSiblingCall(
        "partshelf", "SelectDevice(" + std::string(arguments != nullptr ? arguments : "(null)") +
                         ", " + std::to_string(flags) + ")");
    if (shelf == nullptr)
        shelf = MakeShelf();
    if (shelf != nullptr) {
        win::ShowWindow(shelf, win::SW_SHOW);
        win::SetActiveWindow(shelf);
    }
}
