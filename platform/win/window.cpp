#include "platform/win/window.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "platform/win/cursor.h"
#include "platform/win/last_error.h"
#include "platform/win/mdi_client.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/strings.h"
#include "platform/win/system_metrics.h"
#include "platform/win/window_table.h"

namespace win {

namespace detail {

bool NoCaseLess::operator()(const std::string& a, const std::string& b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) <
               std::tolower(static_cast<unsigned char>(y));
    });
}

}  // namespace detail

namespace {

using detail::FindWindowRecord;
using detail::WindowRecord;

struct WindowClass {
    UINT style = 0;
    WNDPROC proc = nullptr;
    HINSTANCE instance = nullptr;
    HCURSOR cursor = nullptr;
};

struct Table {
    // Keyed by handle number; numbers only grow, so the map's order is creation order.
    std::map<std::uintptr_t, std::unique_ptr<WindowRecord>> windows;
    std::uintptr_t nextHandle = 0x10000;
    std::map<std::string, WindowClass, detail::NoCaseLess> classes{
        {MDICLIENT_CLASS, WindowClass{0, detail::MdiClientProc, nullptr, nullptr}}};
    ATOM nextAtom = 0xC000;
    CreateWindowHook hook = nullptr;
    HWND capture = nullptr;
    HWND active = nullptr;
};

Table& T() {
    static Table table;
    return table;
}

int Width(const RECT& r) {
    return r.right - r.left;
}
int Height(const RECT& r) {
    return r.bottom - r.top;
}

// The list a window stands in: its parent's children, or null for a top-level window.
std::vector<HWND>* SiblingList(const WindowRecord& rec) {
    if (rec.parent == nullptr) {
        return nullptr;
    }
    WindowRecord* parent = FindWindowRecord(rec.parent);
    return parent ? &parent->children : nullptr;
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> out;
    for (auto& [n, rec] : T().windows) {
        if (rec->parent == nullptr) {
            out.push_back(rec->handle);
        }
    }
    return out;
}

void RemoveFromParent(WindowRecord& rec) {
    if (auto* list = SiblingList(rec)) {
        list->erase(std::remove(list->begin(), list->end(), rec.handle), list->end());
    }
}

WPARAM SizeKind(DWORD style) {
    if (style & WS_MINIMIZE) {
        return SIZE_MINIMIZED;
    }
    return (style & WS_MAXIMIZE) ? SIZE_MAXIMIZED : SIZE_RESTORED;
}

bool IsTopLevel(const WindowRecord& rec) {
    return (rec.style & WS_CHILD) == 0;
}

HWND TopLevelOf(HWND hwnd) {
    for (WindowRecord* rec = FindWindowRecord(hwnd); rec; rec = FindWindowRecord(rec->parent)) {
        if (rec->parent == nullptr || IsTopLevel(*rec)) {
            return rec->handle;
        }
    }
    return nullptr;
}

// Moves the window to a minimised, maximised or normal rectangle, with the style bits
// that say which.
void ChangeShowState(HWND hwnd, DWORD stateBit) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    DWORD current = rec->style & (WS_MINIMIZE | WS_MAXIMIZE);
    if (current == stateBit) {
        return;
    }
    RECT target = rec->normalRect;
    if (stateBit == WS_MAXIMIZE) {
        SIZE area = detail::MaximisedSize(rec->parent);
        POINT at = rec->maxPosition.x == -1 ? POINT{0, 0} : rec->maxPosition;
        target = RECT{at.x, at.y, at.x + area.cx, at.y + area.cy};
    } else if (stateBit == WS_MINIMIZE) {
        SIZE area = detail::MaximisedSize(rec->parent);
        int cx = GetSystemMetrics(SM_CXMINIMIZED);
        int cy = GetSystemMetrics(SM_CYMINIMIZED);
        POINT at = rec->minPosition.x == -1 ? POINT{0, area.cy - cy} : rec->minPosition;
        target = RECT{at.x, at.y, at.x + cx, at.y + cy};
    }
    rec->style = (rec->style & ~(WS_MINIMIZE | WS_MAXIMIZE)) | stateBit;
    SetWindowPos(hwnd, nullptr, target.left, target.top, Width(target), Height(target),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

namespace detail {

WindowRecord* FindWindowRecord(HWND hwnd) {
    auto& windows = T().windows;
    auto it = windows.find(NumberFromHandle(hwnd));
    if (hwnd == nullptr || it == windows.end()) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    return it->second.get();
}

std::vector<HWND> AllWindows() {
    std::vector<HWND> out;
    for (auto& [n, rec] : T().windows) {
        out.push_back(rec->handle);
    }
    return out;
}

SIZE MaximisedSize(HWND parent) {
    if (WindowRecord* rec = FindWindowRecord(parent)) {
        return SIZE{Width(rec->rect), Height(rec->rect)};
    }
    return SIZE{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace detail

ATOM RegisterClass(const WNDCLASS* wc) {
    if (wc == nullptr || wc->lpszClassName == nullptr || wc->lpfnWndProc == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    auto [it, added] = T().classes.emplace(
        wc->lpszClassName, WindowClass{wc->style, wc->lpfnWndProc, wc->hInstance, wc->hCursor});
    if (!added) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    return T().nextAtom++;
}

BOOL UnregisterClass(LPCSTR className, HINSTANCE instance) {
    if (className == nullptr) {
        return FALSE;
    }
    auto it = T().classes.find(className);
    if (it == T().classes.end() || it->second.instance != instance) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return FALSE;
    }
    T().classes.erase(it);
    return TRUE;
}

int GetClassName(HWND hwnd, LPSTR buffer, int size) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || buffer == nullptr || size <= 0) {
        return 0;
    }
    int n = std::min<int>(static_cast<int>(rec->className.size()), size - 1);
    std::memcpy(buffer, rec->className.data(), n);
    buffer[n] = '\0';
    return n;
}

void SetCreateWindowHook(CreateWindowHook hook) {
    T().hook = hook;
}

HWND CreateWindowEx(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                    LPVOID param) {
    auto cls = className ? T().classes.find(className) : T().classes.end();
    if (cls == T().classes.end()) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    if (parent != nullptr && FindWindowRecord(parent) == nullptr) {
        return nullptr;
    }
    bool child = (style & WS_CHILD) != 0;
    if (child && parent == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (x == CW_USEDEFAULT) {
        x = 0;
        y = 0;
    }
    if (width == CW_USEDEFAULT) {
        SIZE area = detail::MaximisedSize(child ? parent : nullptr);
        width = area.cx * 3 / 4;
        height = area.cy * 3 / 4;
    }

    auto rec = std::make_unique<WindowRecord>();
    HWND hwnd = HandleFromNumber<HWND>(T().nextHandle++);
    rec->handle = hwnd;
    rec->className = cls->first;
    rec->proc = cls->second.proc;
    rec->classCursor = cls->second.cursor;
    rec->instance = instance;
    rec->text = windowName ? windowName : "";
    rec->style = style & ~(WS_MINIMIZE | WS_MAXIMIZE);
    rec->exStyle = exStyle;
    rec->rect = RECT{x, y, x + std::max(width, 0), y + std::max(height, 0)};
    rec->normalRect = rec->rect;
    if (child) {
        rec->parent = parent;
        rec->id = static_cast<INT_PTR>(NumberFromHandle(menu));
        FindWindowRecord(parent)->children.push_back(hwnd);
    } else {
        rec->owner = parent;
        rec->menu = menu;
    }
    T().windows.emplace(NumberFromHandle(hwnd), std::move(rec));
    if (T().hook) {
        T().hook(hwnd);
    }

    CREATESTRUCT cs{
        param,      instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
        windowName, className, exStyle};
    if (!SendMessage(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&cs)) || !IsWindow(hwnd)) {
        DestroyWindow(hwnd);
        return nullptr;
    }
    if (SendMessage(hwnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs)) == -1 || !IsWindow(hwnd)) {
        DestroyWindow(hwnd);
        return nullptr;
    }
    FindWindowRecord(hwnd)->created = true;
    if (child && !(exStyle & WS_EX_NOPARENTNOTIFY)) {
        SendMessage(parent, WM_PARENTNOTIFY,
                    MAKEWPARAM(WM_CREATE, static_cast<WORD>(NumberFromHandle(menu))),
                    reinterpret_cast<LPARAM>(hwnd));
    }
    if (IsWindow(hwnd)) {
        SendMessage(hwnd, WM_SIZE, SIZE_RESTORED,
                    MAKELPARAM(static_cast<WORD>(std::max(width, 0)),
                               static_cast<WORD>(std::max(height, 0))));
    }
    if (IsWindow(hwnd) && (style & (WS_MAXIMIZE | WS_MINIMIZE))) {
        ShowWindow(hwnd, (style & WS_MAXIMIZE) ? SW_MAXIMIZE : SW_SHOWMINNOACTIVE);
    }
    return IsWindow(hwnd) ? hwnd : nullptr;
}

BOOL DestroyWindow(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || rec->destroying) {
        return FALSE;
    }
    rec->destroying = true;

    for (HWND owned : TopLevelWindows()) {
        WindowRecord* o = FindWindowRecord(owned);
        if (o && o->owner == hwnd && !o->destroying) {
            DestroyWindow(owned);
        }
    }
    if (T().capture == hwnd) {
        ReleaseCapture();
    }
    if (rec = FindWindowRecord(hwnd);
        rec && rec->created && rec->parent && !(rec->exStyle & WS_EX_NOPARENTNOTIFY)) {
        WindowRecord* parent = FindWindowRecord(rec->parent);
        if (parent && !parent->destroying) {
            SendMessage(rec->parent, WM_PARENTNOTIFY,
                        MAKEWPARAM(WM_DESTROY, static_cast<WORD>(rec->id)),
                        reinterpret_cast<LPARAM>(hwnd));
        }
    }
    SendMessage(hwnd, WM_DESTROY, 0, 0);

    // Children made during the teardown go too; those already on their way out finish
    // their own destruction.
    for (;;) {
        rec = FindWindowRecord(hwnd);
        auto next = std::find_if(rec->children.begin(), rec->children.end(), [](HWND c) {
            WindowRecord* r = FindWindowRecord(c);
            return r && !r->destroying;
        });
        if (next == rec->children.end()) {
            break;
        }
        DestroyWindow(*next);
    }
    SendMessage(hwnd, WM_NCDESTROY, 0, 0);

    rec = FindWindowRecord(hwnd);
    for (HWND c : rec->children) {
        if (WindowRecord* r = FindWindowRecord(c)) {
            r->parent = nullptr;
        }
    }
    RemoveFromParent(*rec);
    if (T().active == hwnd) {
        T().active = nullptr;
    }
    if (T().capture == hwnd) {
        T().capture = nullptr;
    }
    T().windows.erase(NumberFromHandle(hwnd));
    return TRUE;
}

BOOL IsWindow(HWND hwnd) {
    return hwnd != nullptr && T().windows.count(NumberFromHandle(hwnd)) != 0;
}

LRESULT DefWindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return 0;
    }
    switch (msg) {
        case WM_NCCREATE:
            return TRUE;
        case WM_CLOSE:
            DestroyWindow(hwnd);
            return 0;
        case WM_SETTEXT:
            rec->text = lParam ? reinterpret_cast<LPCSTR>(lParam) : "";
            return TRUE;
        case WM_GETTEXT: {
            int size = static_cast<int>(wParam);
            auto* buffer = reinterpret_cast<LPSTR>(lParam);
            if (buffer == nullptr || size <= 0) {
                return 0;
            }
            int n = std::min<int>(static_cast<int>(rec->text.size()), size - 1);
            std::memcpy(buffer, rec->text.data(), n);
            buffer[n] = '\0';
            return n;
        }
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(rec->text.size());
        case WM_PAINT:
            rec->invalid = false;
            return 0;
        case WM_SETCURSOR:
            if (rec->parent && SendMessage(rec->parent, WM_SETCURSOR, wParam, lParam)) {
                return TRUE;
            }
            if (WindowRecord* again = FindWindowRecord(hwnd); again && again->classCursor) {
                SetCursor(again->classCursor);
            }
            return FALSE;
        case WM_WINDOWPOSCHANGED: {
            const auto* wp = reinterpret_cast<const WINDOWPOS*>(lParam);
            if (!(wp->flags & SWP_NOSIZE)) {
                SendMessage(hwnd, WM_SIZE, SizeKind(rec->style),
                            MAKELPARAM(static_cast<WORD>(wp->cx), static_cast<WORD>(wp->cy)));
            }
            if (!(wp->flags & SWP_NOMOVE) && IsWindow(hwnd)) {
                SendMessage(hwnd, WM_MOVE, 0,
                            MAKELPARAM(static_cast<WORD>(wp->x), static_cast<WORD>(wp->y)));
            }
            return 0;
        }
        default:
            return 0;
    }
}

LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (proc == nullptr || !IsWindow(hwnd)) {
        return 0;
    }
    return proc(hwnd, msg, wParam, lParam);
}

LONG_PTR GetWindowLongPtr(HWND hwnd, int index) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return 0;
    }
    switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(rec->proc);
        case GWLP_HINSTANCE:
            return static_cast<LONG_PTR>(NumberFromHandle(rec->instance));
        case GWLP_HWNDPARENT:
            return static_cast<LONG_PTR>(NumberFromHandle(rec->parent ? rec->parent : rec->owner));
        case GWLP_ID:
            return rec->id;
        case GWL_STYLE:
            return rec->style;
        case GWL_EXSTYLE:
            return rec->exStyle;
        case GWLP_USERDATA:
            return rec->userData;
        default:
            SetLastError(ERROR_INVALID_PARAMETER);
            return 0;
    }
}

LONG_PTR SetWindowLongPtr(HWND hwnd, int index, LONG_PTR value) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return 0;
    }
    LONG_PTR old = GetWindowLongPtr(hwnd, index);
    switch (index) {
        case GWLP_WNDPROC:
            if (value != 0) {
                rec->proc = reinterpret_cast<WNDPROC>(value);
            }
            break;
        case GWLP_HWNDPARENT:
            if (IsTopLevel(*rec)) {
                rec->owner = HandleFromNumber<HWND>(static_cast<std::uintptr_t>(value));
            }
            break;
        case GWLP_ID:
            rec->id = value;
            break;
        case GWL_STYLE:
            rec->style = static_cast<DWORD>(value);
            break;
        case GWL_EXSTYLE:
            rec->exStyle = static_cast<DWORD>(value);
            break;
        case GWLP_USERDATA:
            rec->userData = value;
            break;
        default:
            break;
    }
    return old;
}

HWND GetParent(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return nullptr;
    }
    if (rec->style & WS_CHILD) {
        return rec->parent;
    }
    return (rec->style & WS_POPUP) ? rec->owner : nullptr;
}

HWND SetParent(HWND child, HWND newParent) {
    WindowRecord* rec = FindWindowRecord(child);
    if (rec == nullptr || (newParent != nullptr && FindWindowRecord(newParent) == nullptr)) {
        return nullptr;
    }
    if (newParent == child || IsChild(child, newParent)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    HWND old = rec->parent;
    if (old == newParent) {
        return old;
    }
    RemoveFromParent(*rec);
    rec->parent = newParent;
    if (newParent) {
        FindWindowRecord(newParent)->children.push_back(child);
    }
    return old;
}

HWND GetWindow(HWND hwnd, UINT relation) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return nullptr;
    }
    if (relation == GW_OWNER) {
        return rec->owner;
    }
    if (relation == GW_CHILD) {
        return rec->children.empty() ? nullptr : rec->children.front();
    }
    std::vector<HWND> siblings = rec->parent ? *SiblingList(*rec) : TopLevelWindows();
    auto at = std::find(siblings.begin(), siblings.end(), hwnd);
    switch (relation) {
        case GW_HWNDFIRST:
            return siblings.front();
        case GW_HWNDLAST:
            return siblings.back();
        case GW_HWNDNEXT:
            return (at + 1) < siblings.end() ? *(at + 1) : nullptr;
        case GW_HWNDPREV:
            return at != siblings.begin() ? *(at - 1) : nullptr;
        default:
            return nullptr;
    }
}

BOOL IsChild(HWND parent, HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    while (rec && rec->parent) {
        if (rec->parent == parent) {
            return TRUE;
        }
        rec = FindWindowRecord(rec->parent);
    }
    return FALSE;
}

HWND GetDlgItem(HWND parent, int id) {
    WindowRecord* rec = FindWindowRecord(parent);
    if (rec == nullptr) {
        return nullptr;
    }
    for (HWND c : rec->children) {
        if (FindWindowRecord(c)->id == id) {
            return c;
        }
    }
    return nullptr;
}

int GetDlgCtrlID(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec ? static_cast<int>(rec->id) : 0;
}

namespace {

bool EnumDescendants(HWND parent, WNDENUMPROC proc, LPARAM lParam) {
    WindowRecord* rec = FindWindowRecord(parent);
    if (rec == nullptr) {
        return true;
    }
    std::vector<HWND> children = rec->children;
    for (HWND c : children) {
        if (!IsWindow(c)) {
            continue;
        }
        if (!proc(c, lParam) || !EnumDescendants(c, proc, lParam)) {
            return false;
        }
    }
    return true;
}

}  // namespace

BOOL EnumChildWindows(HWND parent, WNDENUMPROC proc, LPARAM lParam) {
    if (proc == nullptr || FindWindowRecord(parent) == nullptr) {
        return FALSE;
    }
    EnumDescendants(parent, proc, lParam);
    return TRUE;
}

HWND FindWindow(LPCSTR className, LPCSTR windowName) {
    for (HWND h : TopLevelWindows()) {
        WindowRecord* rec = FindWindowRecord(h);
        if (rec->destroying) {
            continue;
        }
        if (className && !EqualNoCase(rec->className, className)) {
            continue;
        }
        if (windowName && !EqualNoCase(rec->text, windowName)) {
            continue;
        }
        return h;
    }
    return nullptr;
}

BOOL SetWindowText(HWND hwnd, LPCSTR text) {
    if (!IsWindow(hwnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    return SendMessage(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) ? TRUE : FALSE;
}

int GetWindowText(HWND hwnd, LPSTR buffer, int size) {
    if (buffer && size > 0) {
        buffer[0] = '\0';
    }
    return static_cast<int>(
        SendMessage(hwnd, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLength(HWND hwnd) {
    return static_cast<int>(SendMessage(hwnd, WM_GETTEXTLENGTH, 0, 0));
}

BOOL ShowWindow(HWND hwnd, int cmdShow) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    bool wasVisible = (rec->style & WS_VISIBLE) != 0;
    if (cmdShow == SW_HIDE) {
        if (wasVisible) {
            SendMessage(hwnd, WM_SHOWWINDOW, FALSE, 0);
            SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                         SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            if (T().active == hwnd) {
                T().active = nullptr;
            }
        }
        return wasVisible ? TRUE : FALSE;
    }
    switch (cmdShow) {
        case SW_SHOWMINIMIZED:
        case SW_MINIMIZE:
        case SW_SHOWMINNOACTIVE:
            ChangeShowState(hwnd, WS_MINIMIZE);
            break;
        case SW_SHOWMAXIMIZED:
            ChangeShowState(hwnd, WS_MAXIMIZE);
            break;
        case SW_SHOWNORMAL:
        case SW_SHOWNOACTIVATE:
        case SW_RESTORE:
        case SW_SHOWDEFAULT:
            ChangeShowState(hwnd, 0);
            break;
        default:  // SW_SHOW and SW_SHOWNA keep the state
            break;
    }
    rec = FindWindowRecord(hwnd);
    if (rec && !(rec->style & WS_VISIBLE)) {
        SendMessage(hwnd, WM_SHOWWINDOW, TRUE, 0);
        SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                     SWP_SHOWWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    bool activates = cmdShow != SW_SHOWNOACTIVATE && cmdShow != SW_SHOWMINNOACTIVE &&
                     cmdShow != SW_SHOWNA && cmdShow != SW_MINIMIZE;
    rec = FindWindowRecord(hwnd);
    if (activates && rec && IsTopLevel(*rec)) {
        SetActiveWindow(hwnd);
    }
    return wasVisible ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    for (; rec; rec = rec->parent ? FindWindowRecord(rec->parent) : nullptr) {
        if (!(rec->style & WS_VISIBLE)) {
            return FALSE;
        }
    }
    return TRUE;
}

BOOL IsZoomed(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec && (rec->style & WS_MAXIMIZE) ? TRUE : FALSE;
}

BOOL IsIconic(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec && (rec->style & WS_MINIMIZE) ? TRUE : FALSE;
}

BOOL EnableWindow(HWND hwnd, BOOL enable) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    bool wasDisabled = (rec->style & WS_DISABLED) != 0;
    if (wasDisabled == !enable) {
        return wasDisabled ? TRUE : FALSE;
    }
    rec->style = enable ? (rec->style & ~WS_DISABLED) : (rec->style | WS_DISABLED);
    SendMessage(hwnd, WM_ENABLE, enable ? TRUE : FALSE, 0);
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec && !(rec->style & WS_DISABLED) ? TRUE : FALSE;
}

HWND SetActiveWindow(HWND hwnd) {
    HWND top = TopLevelOf(hwnd);
    if (top == nullptr) {
        return nullptr;
    }
    HWND old = T().active;
    if (old == top) {
        return old;
    }
    T().active = top;
    if (IsWindow(old)) {
        SendMessage(old, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 0), reinterpret_cast<LPARAM>(top));
    }
    if (IsWindow(top)) {
        SendMessage(top, WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0), reinterpret_cast<LPARAM>(old));
    }
    return old;
}

HWND GetActiveWindow() {
    return IsWindow(T().active) ? T().active : nullptr;
}

BOOL BringWindowToTop(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    if (IsTopLevel(*rec)) {
        SetActiveWindow(hwnd);
    } else if (WindowRecord* parent = FindWindowRecord(rec->parent);
               parent && EqualNoCase(parent->className, MDICLIENT_CLASS)) {
        SendMessage(rec->parent, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(hwnd), 0);
    }
    return TRUE;
}

BOOL GetWindowRect(HWND hwnd, RECT* rect) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || rect == nullptr) {
        return FALSE;
    }
    *rect = rec->rect;
    POINT origin{0, 0};
    if (rec->parent && ClientToScreen(rec->parent, &origin)) {
        OffsetRect(rect, origin.x, origin.y);
    }
    return TRUE;
}

BOOL GetClientRect(HWND hwnd, RECT* rect) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || rect == nullptr) {
        return FALSE;
    }
    *rect = RECT{0, 0, Width(rec->rect), Height(rec->rect)};
    return TRUE;
}

BOOL ClientToScreen(HWND hwnd, POINT* point) {
    RECT r;
    if (point == nullptr || !GetWindowRect(hwnd, &r)) {
        return FALSE;
    }
    point->x += r.left;
    point->y += r.top;
    return TRUE;
}

BOOL ScreenToClient(HWND hwnd, POINT* point) {
    RECT r;
    if (point == nullptr || !GetWindowRect(hwnd, &r)) {
        return FALSE;
    }
    point->x -= r.left;
    point->y -= r.top;
    return TRUE;
}

BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint) {
    if (!SetWindowPos(hwnd, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE)) {
        return FALSE;
    }
    if (repaint) {
        InvalidateRect(hwnd, nullptr, TRUE);
    }
    return TRUE;
}

BOOL SetWindowPos(HWND hwnd, HWND insertAfter, int x, int y, int cx, int cy, UINT flags) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    WINDOWPOS wp{hwnd, insertAfter, x, y, cx, cy, flags};
    if (flags & SWP_NOMOVE) {
        wp.x = rec->rect.left;
        wp.y = rec->rect.top;
    }
    if (flags & SWP_NOSIZE) {
        wp.cx = Width(rec->rect);
        wp.cy = Height(rec->rect);
    }
    SendMessage(hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wp));
    rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    RECT old = rec->rect;
    if (!(wp.flags & SWP_NOMOVE)) {
        OffsetRect(&rec->rect, wp.x - old.left, wp.y - old.top);
    }
    if (!(wp.flags & SWP_NOSIZE)) {
        rec->rect.right = rec->rect.left + std::max(wp.cx, 0);
        rec->rect.bottom = rec->rect.top + std::max(wp.cy, 0);
    }
    if (wp.flags & SWP_SHOWWINDOW) {
        rec->style |= WS_VISIBLE;
    }
    if (wp.flags & SWP_HIDEWINDOW) {
        rec->style &= ~WS_VISIBLE;
    }
    if (!(rec->style & (WS_MINIMIZE | WS_MAXIMIZE))) {
        rec->normalRect = rec->rect;
    }
    // The notice after the change tells only what did change.
    if (rec->rect.left == old.left && rec->rect.top == old.top) {
        wp.flags |= SWP_NOMOVE;
    }
    if (Width(rec->rect) == Width(old) && Height(rec->rect) == Height(old)) {
        wp.flags |= SWP_NOSIZE;
    }
    wp.x = rec->rect.left;
    wp.y = rec->rect.top;
    wp.cx = Width(rec->rect);
    wp.cy = Height(rec->rect);
    SendMessage(hwnd, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&wp));
    return TRUE;
}

BOOL InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    RECT area = rect ? *rect : RECT{0, 0, Width(rec->rect), Height(rec->rect)};
    if (!rec->invalid) {
        rec->invalidRect = area;
    } else {
        RECT& r = rec->invalidRect;
        r = RECT{std::min(r.left, area.left), std::min(r.top, area.top),
                 std::max(r.right, area.right), std::max(r.bottom, area.bottom)};
    }
    rec->invalid = true;
    return TRUE;
}

BOOL ValidateRect(HWND hwnd, const RECT* rect) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    rec->invalid = false;
    return TRUE;
}

BOOL GetUpdateRect(HWND hwnd, RECT* rect, BOOL erase) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || !rec->invalid) {
        if (rect) {
            SetRectEmpty(rect);
        }
        return FALSE;
    }
    if (rect) {
        *rect = rec->invalidRect;
    }
    return TRUE;
}

BOOL UpdateWindow(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr) {
        return FALSE;
    }
    if (rec->invalid) {
        SendMessage(hwnd, WM_PAINT, 0, 0);
        if (WindowRecord* after = FindWindowRecord(hwnd)) {
            after->invalid = false;
        }
    }
    return TRUE;
}

HWND SetCapture(HWND hwnd) {
    if (!IsWindow(hwnd)) {
        return nullptr;
    }
    HWND old = T().capture;
    T().capture = hwnd;
    if (old != hwnd && IsWindow(old)) {
        SendMessage(old, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hwnd));
    }
    return old;
}

BOOL ReleaseCapture() {
    HWND old = T().capture;
    T().capture = nullptr;
    if (IsWindow(old)) {
        SendMessage(old, WM_CAPTURECHANGED, 0, 0);
    }
    return TRUE;
}

HWND GetCapture() {
    return IsWindow(T().capture) ? T().capture : nullptr;
}

HMENU GetMenu(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec && IsTopLevel(*rec) ? rec->menu : nullptr;
}

BOOL SetMenu(HWND hwnd, HMENU menu) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    if (rec == nullptr || !IsTopLevel(*rec)) {
        return FALSE;
    }
    rec->menu = menu;
    return TRUE;
}

BOOL DrawMenuBar(HWND hwnd) {
    WindowRecord* rec = FindWindowRecord(hwnd);
    return rec && IsTopLevel(*rec) ? TRUE : FALSE;
}

}  // namespace win
