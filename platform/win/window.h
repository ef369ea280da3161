// Windows as entries of a handle table. A window is a record behind a small number (HWND);
// handles are never given out twice, so a stale handle stays dead and IsWindow is false
// for it. Every window has a window procedure (WNDPROC), taken from its class; SendMessage
// calls it at once (message_queue.h), and it hands what it does not handle to
// DefWindowProc. Nothing is drawn: rectangles, show states and painting needs are numbers.
//
// Children are kept in creation order, and every enumeration (GetWindow, EnumChildWindows,
// FindWindow) follows it. A child's rectangle counts from its parent's top left corner;
// a top-level window's counts from the screen's. Windows have no frame or caption, so
// the client area is the whole window.
#pragma once

#include <string>

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace win {

inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr DWORD ERROR_CLASS_ALREADY_EXISTS = 1410;

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

// Window styles.
inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;
inline constexpr DWORD WS_EX_NOPARENTNOTIFY = 0x00000004;
inline constexpr DWORD WS_EX_MDICHILD = 0x00000040;

// CreateWindowEx's "let the system choose" for a position or size.
inline constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);

// Class styles; kept, not acted upon.
inline constexpr UINT CS_VREDRAW = 0x0001;
inline constexpr UINT CS_HREDRAW = 0x0002;
inline constexpr UINT CS_DBLCLKS = 0x0008;

struct WNDCLASS {
    UINT style = 0;
    WNDPROC lpfnWndProc = nullptr;
    HINSTANCE hInstance = nullptr;
    HCURSOR hCursor = nullptr;
    LPCSTR lpszClassName = nullptr;
};

// What WM_NCCREATE and WM_CREATE receive in lParam.
struct CREATESTRUCT {
    LPVOID lpCreateParams = nullptr;
    HINSTANCE hInstance = nullptr;
    HMENU hMenu = nullptr;
    HWND hwndParent = nullptr;
    int cy = 0;
    int cx = 0;
    int y = 0;
    int x = 0;
    LONG style = 0;
    LPCSTR lpszName = nullptr;
    LPCSTR lpszClass = nullptr;
    DWORD dwExStyle = 0;
};

// What WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED receive in lParam. A handler of
// WM_WINDOWPOSCHANGING may change the numbers and flags; the change then follows them.
struct WINDOWPOS {
    HWND hwnd = nullptr;
    HWND hwndInsertAfter = nullptr;
    int x = 0;
    int y = 0;
    int cx = 0;
    int cy = 0;
    UINT flags = 0;
};

inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOREDRAW = 0x0008;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_FRAMECHANGED = 0x0020;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;

// Show states of ShowWindow and of WINDOWPLACEMENT.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_MAXIMIZE = 3;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_SHOWMINNOACTIVE = 7;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_RESTORE = 9;
inline constexpr int SW_SHOWDEFAULT = 10;

// GetWindowLongPtr and SetWindowLongPtr indexes.
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_HINSTANCE = -6;
inline constexpr int GWLP_HWNDPARENT = -8;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWLP_USERDATA = -21;

// GetWindow relations.
inline constexpr UINT GW_HWNDFIRST = 0;
inline constexpr UINT GW_HWNDLAST = 1;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;

// Window classes. RegisterClass gives 0 (last error 1410) for a name that is taken;
// names are compared without regard to case. "MDICLIENT" is always there (mdi_client.h).
ATOM RegisterClass(const WNDCLASS* wc);
BOOL UnregisterClass(LPCSTR className, HINSTANCE instance);
int GetClassName(HWND hwnd, LPSTR buffer, int size);

// Makes a window: WM_NCCREATE (0 refuses), then WM_CREATE (-1 refuses), then WM_SIZE.
// For WS_CHILD, parent is the parent and menu the control id; otherwise parent is the
// owner and menu the window's menu. Null, with the window destroyed again, on refusal.
HWND CreateWindowEx(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                    LPVOID param);
inline HWND CreateWindow(LPCSTR className, LPCSTR windowName, DWORD style, int x, int y, int width,
                         int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param) {
    return CreateWindowEx(0, className, windowName, style, x, y, width, height, parent, menu,
                          instance, param);
}

// Destroys owned windows first, then sends WM_DESTROY, destroys the children, sends
// WM_NCDESTROY and frees the handle. FALSE for a dead handle, and for a window whose
// destruction is already under way (a handler that destroys its own window again).
BOOL DestroyWindow(HWND hwnd);
BOOL IsWindow(HWND hwnd);

// Called for every new window before its first message, so that a framework can tie its
// object to the handle. One hook at a time; null removes it.
using CreateWindowHook = void (*)(HWND);
void SetCreateWindowHook(CreateWindowHook hook);

LRESULT DefWindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

LONG_PTR GetWindowLongPtr(HWND hwnd, int index);
// Changes style, extended style, id, procedure or user data; gives the old value.
LONG_PTR SetWindowLongPtr(HWND hwnd, int index, LONG_PTR value);

// Family. GetParent gives the parent of a child, the owner of a WS_POPUP window, else null.
HWND GetParent(HWND hwnd);
HWND SetParent(HWND child, HWND newParent);
HWND GetWindow(HWND hwnd, UINT relation);
BOOL IsChild(HWND parent, HWND hwnd);
HWND GetDlgItem(HWND parent, int id);
int GetDlgCtrlID(HWND hwnd);
using WNDENUMPROC = BOOL (*)(HWND, LPARAM);
// All descendants, depth first, in creation order; stops when the callback gives FALSE.
BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM lParam);
// The first top-level window, in creation order, whose class and title match (a null
// argument matches all); case is ignored.
HWND FindWindow(LPCSTR className, LPCSTR windowName);

// Text, through WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH.
BOOL SetWindowText(HWND hwnd, LPCSTR text);
int GetWindowText(HWND hwnd, LPSTR buffer, int size);
int GetWindowTextLength(HWND hwnd);

// Show and enabled state.
BOOL ShowWindow(HWND hwnd, int cmdShow);
BOOL IsWindowVisible(HWND hwnd);
BOOL IsZoomed(HWND hwnd);
BOOL IsIconic(HWND hwnd);
BOOL EnableWindow(HWND hwnd, BOOL enable);
BOOL IsWindowEnabled(HWND hwnd);
HWND SetActiveWindow(HWND hwnd);
HWND GetActiveWindow();
BOOL BringWindowToTop(HWND hwnd);

// Geometry.
BOOL GetWindowRect(HWND hwnd, RECT* rect);
BOOL GetClientRect(HWND hwnd, RECT* rect);
BOOL ClientToScreen(HWND hwnd, POINT* point);
BOOL ScreenToClient(HWND hwnd, POINT* point);
BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND hwnd, HWND insertAfter, int x, int y, int cx, int cy, UINT flags);

// Painting needs: InvalidateRect marks, UpdateWindow sends WM_PAINT when something is
// marked, and the default handling of WM_PAINT clears the mark.
BOOL InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase);
BOOL ValidateRect(HWND hwnd, const RECT* rect);
BOOL GetUpdateRect(HWND hwnd, RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND hwnd);

// Mouse capture: the window that gets the mouse until it lets go. The window that loses
// it is sent WM_CAPTURECHANGED with the new holder in lParam.
HWND SetCapture(HWND hwnd);
BOOL ReleaseCapture();
HWND GetCapture();

// The window's top-level menu (menu.h).
HMENU GetMenu(HWND hwnd);
BOOL SetMenu(HWND hwnd, HMENU menu);
BOOL DrawMenuBar(HWND hwnd);

}  // namespace win
