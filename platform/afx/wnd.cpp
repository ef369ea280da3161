#include "platform/afx/wnd.h"

#include <map>
#include <vector>

#include "platform/afx/menu.h"
#include "platform/win/focus.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace afx {

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

namespace {

// The handle table of the framework: each live window's object.
std::map<HWND, CWnd*>& Objects() {
    static std::map<HWND, CWnd*> objects;
    return objects;
}

// The object whose window CreateEx is making; its window's first message ties them.
CWnd* creating = nullptr;

LRESULT AfxWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    CWnd* wnd = CWnd::FromHandle(hwnd);
    if (wnd == nullptr) {
        return win::DefWindowProc(hwnd, msg, wParam, lParam);
    }
    return wnd->WindowProc(msg, wParam, lParam);
}

void SendToDescendants(HWND parent, UINT msg, WPARAM wParam, LPARAM lParam, BOOL deep,
                       BOOL onlyPerm) {
    std::vector<HWND> children;
    for (HWND c = win::GetWindow(parent, win::GW_CHILD); c;
         c = win::GetWindow(c, win::GW_HWNDNEXT)) {
        children.push_back(c);
    }
    for (HWND c : children) {
        if (win::IsWindow(c) && (!onlyPerm || CWnd::FromHandle(c) != nullptr)) {
            win::SendMessage(c, msg, wParam, lParam);
        }
        if (deep && win::IsWindow(c)) {
            SendToDescendants(c, msg, wParam, lParam, deep, onlyPerm);
        }
    }
}

}  // namespace

void AttachCreatingWindow(HWND hwnd) {
    CWnd* wnd = creating;
    if (wnd == nullptr) {
        return;
    }
    creating = nullptr;
    wnd->m_hWnd = hwnd;
    Objects()[hwnd] = wnd;
    auto old = reinterpret_cast<win::WNDPROC>(win::SetWindowLongPtr(
        hwnd, win::GWLP_WNDPROC, reinterpret_cast<win::LONG_PTR>(&AfxWndProc)));
    if (old != &AfxWndProc) {
        wnd->m_pfnSuper = old;
    }
}

namespace {

void InstallHook() {
    static bool installed = false;
    if (!installed) {
        win::SetCreateWindowHook(&AttachCreatingWindow);
        installed = true;
    }
}

}  // namespace

LPCSTR AfxRegisterWndClass(UINT classStyle, win::HCURSOR cursor) {
    static std::map<std::pair<UINT, win::HCURSOR>, std::string> names;
    auto [it, added] = names.emplace(std::make_pair(classStyle, cursor), std::string());
    if (added) {
        it->second = "AfxWnd:" + std::to_string(classStyle) + ":" +
                     std::to_string(win::NumberFromHandle(cursor));
        win::WNDCLASS wc;
        wc.style = classStyle;
        wc.lpfnWndProc = &AfxWndProc;
        wc.hCursor = cursor;
        wc.lpszClassName = it->second.c_str();
        win::RegisterClass(&wc);
    }
    return it->second.c_str();
}

CWnd::~CWnd() {
    if (creating == this) {
        creating = nullptr;
    }
    if (m_hWnd != nullptr && win::IsWindow(m_hWnd)) {
        win::DestroyWindow(m_hWnd);
    }
    // A window already on its way out (the object deleted by its own handler) outlives
    // the object: it must not find the object again.
    for (auto it = Objects().begin(); it != Objects().end();) {
        it = it->second == this ? Objects().erase(it) : std::next(it);
    }
}

CWnd* CWnd::FromHandle(HWND hwnd) {
    auto it = Objects().find(hwnd);
    return it == Objects().end() ? nullptr : it->second;
}

BOOL CWnd::Attach(HWND hwnd) {
    if (m_hWnd != nullptr || !win::IsWindow(hwnd) || FromHandle(hwnd) != nullptr) {
        return FALSE;
    }
    m_hWnd = hwnd;
    Objects()[hwnd] = this;
    return TRUE;
}

HWND CWnd::Detach() {
    HWND hwnd = m_hWnd;
    if (hwnd != nullptr) {
        Objects().erase(hwnd);
    }
    m_hWnd = nullptr;
    return hwnd;
}

BOOL CWnd::Create(LPCSTR className, LPCSTR windowName, DWORD style, const win::RECT& rect,
                  CWnd* parent, UINT id, CCreateContext* context) {
    return CreateEx(0, className, windowName, style | win::WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                    const win::RECT& rect, CWnd* parent, UINT id, win::LPVOID param) {
    return CreateUnder(exStyle, className, windowName, style, rect,
                       parent ? parent->m_hWnd : nullptr, id, param);
}

BOOL CWnd::CreateUnder(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                       const win::RECT& rect, HWND parent, UINT id, win::LPVOID param) {
    if (m_hWnd != nullptr) {
        return FALSE;
    }
    win::CREATESTRUCT cs;
    cs.dwExStyle = exStyle;
    cs.lpszClass = className ? className : AfxRegisterWndClass(0);
    cs.lpszName = windowName;
    cs.style = static_cast<win::LONG>(style);
    cs.x = rect.left;
    cs.y = rect.top;
    cs.cx = rect.right - rect.left;
    cs.cy = rect.bottom - rect.top;
    cs.hwndParent = parent;
    cs.hMenu = win::HandleFromNumber<win::HMENU>(id);
    cs.lpCreateParams = param;
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    InstallHook();
    creating = this;
    HWND hwnd = win::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName,
                                    static_cast<DWORD>(cs.style), cs.x, cs.y, cs.cx, cs.cy,
                                    cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    if (creating == this) {
        creating = nullptr;
    }
    return hwnd != nullptr ? TRUE : FALSE;
}

BOOL CWnd::PreCreateWindow(win::CREATESTRUCT& cs) {
    return TRUE;
}

BOOL CWnd::DestroyWindow() {
    if (m_hWnd == nullptr) {
        return FALSE;
    }
    // The object may be gone when this returns.
    HWND hwnd = m_hWnd;
    return win::DestroyWindow(hwnd);
}

LRESULT CWnd::SendMessage(UINT msg, WPARAM wParam, LPARAM lParam) const {
    return win::SendMessage(m_hWnd, msg, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT msg, WPARAM wParam, LPARAM lParam) const {
    return win::PostMessage(m_hWnd, msg, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT msg, WPARAM wParam, LPARAM lParam, BOOL deep,
                                    BOOL onlyPerm) const {
    SendToDescendants(m_hWnd, msg, wParam, lParam, deep, onlyPerm);
}

LRESULT CWnd::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case win::WM_CREATE:
            return OnCreate(reinterpret_cast<win::CREATESTRUCT*>(lParam));
        case win::WM_DESTROY:
            OnDestroy();
            return 0;
        case win::WM_NCDESTROY:
            OnNcDestroy();
            return 0;
        case win::WM_CLOSE:
            OnClose();
            return 0;
        case win::WM_SIZE:
            OnSize(static_cast<UINT>(wParam), win::LOWORD(lParam), win::HIWORD(lParam));
            return 0;
        case win::WM_COMMAND:
            if (OnCommand(wParam, lParam)) {
                return 0;
            }
            break;
        case win::WM_NOTIFY: {
            LRESULT result = 0;
            if (OnNotify(wParam, lParam, &result)) {
                return result;
            }
            break;
        }
        default:
            break;
    }
    return DefWindowProc(msg, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (m_pfnSuper != nullptr) {
        return win::CallWindowProc(m_pfnSuper, m_hWnd, msg, wParam, lParam);
    }
    return win::DefWindowProc(m_hWnd, msg, wParam, lParam);
}

int CWnd::OnCreate(win::CREATESTRUCT* cs) {
    return static_cast<int>(DefWindowProc(win::WM_CREATE, 0, reinterpret_cast<LPARAM>(cs)));
}

void CWnd::OnDestroy() {
    DefWindowProc(win::WM_DESTROY, 0, 0);
}

void CWnd::OnNcDestroy() {
    HWND hwnd = m_hWnd;
    DefWindowProc(win::WM_NCDESTROY, 0, 0);
    Objects().erase(hwnd);
    m_hWnd = nullptr;
    m_pfnSuper = nullptr;
    PostNcDestroy();
}

void CWnd::OnClose() {
    DefWindowProc(win::WM_CLOSE, 0, 0);
}

void CWnd::OnSize(UINT type, int cx, int cy) {}

void CWnd::PostNcDestroy() {}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    return OnCmdMsg(win::LOWORD(wParam), static_cast<short>(win::HIWORD(wParam)), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* header = reinterpret_cast<const win::NMHDR*>(lParam);
    CWnd* sender = header != nullptr ? FromHandle(header->hwndFrom) : nullptr;
    return sender != nullptr && sender->OnChildNotify(win::WM_NOTIFY, wParam, lParam, result);
}

BOOL CWnd::OnChildNotify(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    return FALSE;
}

CWnd* CWnd::SetFocus() {
    return FromHandle(win::SetFocus(m_hWnd));
}

CWnd* CWnd::GetFocus() {
    return FromHandle(win::GetFocus());
}

CWnd* CWnd::GetParent() const {
    return FromHandle(win::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* newParent) {
    return FromHandle(win::SetParent(m_hWnd, newParent ? newParent->m_hWnd : nullptr));
}

CWnd* CWnd::GetOwner() const {
    if (m_hWndOwner != nullptr && win::IsWindow(m_hWndOwner)) {
        return FromHandle(m_hWndOwner);
    }
    return GetParent();
}

void CWnd::SetOwner(CWnd* owner) {
    m_hWndOwner = owner ? owner->m_hWnd : nullptr;
}

CWnd* CWnd::GetDlgItem(int id) const {
    return FromHandle(win::GetDlgItem(m_hWnd, id));
}

int CWnd::GetDlgCtrlID() const {
    return win::GetDlgCtrlID(m_hWnd);
}

BOOL CWnd::IsChild(const CWnd* wnd) const {
    return wnd != nullptr && win::IsChild(m_hWnd, wnd->m_hWnd);
}

void CWnd::SetWindowText(LPCSTR text) {
    win::SetWindowText(m_hWnd, text);
}

int CWnd::GetWindowText(LPSTR buffer, int size) const {
    return win::GetWindowText(m_hWnd, buffer, size);
}

void CWnd::GetWindowText(std::string& text) const {
    int length = GetWindowTextLength();
    std::string buffer(static_cast<std::size_t>(length) + 1, '\0');
    int n = win::GetWindowText(m_hWnd, buffer.data(), length + 1);
    buffer.resize(static_cast<std::size_t>(n));
    text = std::move(buffer);
}

int CWnd::GetWindowTextLength() const {
    return win::GetWindowTextLength(m_hWnd);
}

BOOL CWnd::ShowWindow(int cmdShow) {
    return win::ShowWindow(m_hWnd, cmdShow);
}

BOOL CWnd::IsWindowVisible() const {
    return win::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable) {
    return win::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const {
    return win::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::IsZoomed() const {
    return win::IsZoomed(m_hWnd);
}

BOOL CWnd::IsIconic() const {
    return win::IsIconic(m_hWnd);
}

BOOL CWnd::BringWindowToTop() {
    return win::BringWindowToTop(m_hWnd);
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(win::GetWindowLongPtr(m_hWnd, win::GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(win::GetWindowLongPtr(m_hWnd, win::GWL_EXSTYLE));
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add) {
    DWORD style = GetStyle();
    DWORD changed = (style & ~remove) | add;
    if (changed == style) {
        return FALSE;
    }
    win::SetWindowLongPtr(m_hWnd, win::GWL_STYLE, changed);
    return TRUE;
}

void CWnd::GetWindowRect(win::RECT* rect) const {
    win::GetWindowRect(m_hWnd, rect);
}

void CWnd::GetClientRect(win::RECT* rect) const {
    win::GetClientRect(m_hWnd, rect);
}

void CWnd::ClientToScreen(win::POINT* point) const {
    win::ClientToScreen(m_hWnd, point);
}

void CWnd::ScreenToClient(win::POINT* point) const {
    win::ScreenToClient(m_hWnd, point);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    win::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const win::RECT& rect, BOOL repaint) {
    MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags) {
    return win::SetWindowPos(m_hWnd, insertAfter ? insertAfter->m_hWnd : nullptr, x, y, cx, cy,
                             flags);
}

BOOL CWnd::GetWindowPlacement(win::WINDOWPLACEMENT* placement) const {
    return win::GetWindowPlacement(m_hWnd, placement);
}

BOOL CWnd::SetWindowPlacement(const win::WINDOWPLACEMENT* placement) {
    return win::SetWindowPlacement(m_hWnd, placement);
}

void CWnd::Invalidate(BOOL erase) {
    win::InvalidateRect(m_hWnd, nullptr, erase);
}

void CWnd::InvalidateRect(const win::RECT* rect, BOOL erase) {
    win::InvalidateRect(m_hWnd, rect, erase);
}

void CWnd::UpdateWindow() {
    win::UpdateWindow(m_hWnd);
}

CWnd* CWnd::SetCapture() {
    return FromHandle(win::SetCapture(m_hWnd));
}

CWnd* CWnd::GetCapture() {
    return FromHandle(win::GetCapture());
}

BOOL CWnd::SetMenu(CMenu* menu) {
    return win::SetMenu(m_hWnd, menu ? menu->m_hMenu : nullptr);
}

void CWnd::DrawMenuBar() {
    win::DrawMenuBar(m_hWnd);
}

}  // namespace afx
