// The handle table behind window.h, shared by the files of the windowing layer only.
// Records are reached by handle, never kept by pointer across a call that can send a
// message: a handler may destroy any window, its own included.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win/geometry.h"
#include "platform/win/types.h"
#include "platform/win/window.h"

namespace win::detail {

// Orders names without regard to case, as window classes and property names compare.
struct NoCaseLess {
    bool operator()(const std::string& a, const std::string& b) const;
};

struct WindowRecord {
    HWND handle = nullptr;
    std::string className;
    WNDPROC proc = nullptr;
    HCURSOR classCursor = nullptr;
    HINSTANCE instance = nullptr;
    std::string text;
    DWORD style = 0;
    DWORD exStyle = 0;
    HWND parent = nullptr;
    HWND owner = nullptr;
    std::vector<HWND> children;  // in creation order
    INT_PTR id = 0;
    HMENU menu = nullptr;
    LONG_PTR userData = 0;
    RECT rect;        // from the parent's top left, or the screen's
    RECT normalRect;  // where the window stands when neither minimised nor maximised
    POINT minPosition{-1, -1};
    POINT maxPosition{-1, -1};
    bool invalid = false;
    RECT invalidRect;
    bool created = false;  // creation was not refused; the parent has heard of it
    bool destroying = false;
    std::map<std::string, HANDLE, NoCaseLess> props;
};

// The record of a live window, or null (last error 1400).
WindowRecord* FindWindowRecord(HWND hwnd);
// All live windows' handles in creation order.
std::vector<HWND> AllWindows();

// The size of the area a window of this parent fills when maximised: the parent's client
// area, or the screen for a top-level window.
SIZE MaximisedSize(HWND parent);

}  // namespace win::detail
