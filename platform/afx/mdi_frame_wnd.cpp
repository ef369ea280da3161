#include "platform/afx/mdi_frame_wnd.h"

#include "platform/afx/mdi_child_wnd.h"
#include "platform/win/mdi_client.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace afx {

IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)

CMDIChildWnd* CMDIFrameWnd::MDIGetActive(BOOL* maximized) const {
    BOOL zoomed = FALSE;
    auto hwnd = reinterpret_cast<HWND>(win::SendMessage(m_hWndMDIClient, win::WM_MDIGETACTIVE, 0,
                                                        reinterpret_cast<LPARAM>(&zoomed)));
    CWnd* child = FromHandle(hwnd);
    if (maximized != nullptr) {
        *maximized = child ? zoomed : FALSE;
    }
    return child && child->IsKindOf(RUNTIME_CLASS(CMDIChildWnd)) ? static_cast<CMDIChildWnd*>(child)
                                                                 : nullptr;
}

void CMDIFrameWnd::MDIActivate(CWnd* child) {
    if (child != nullptr) {
        win::SendMessage(m_hWndMDIClient, win::WM_MDIACTIVATE,
                         reinterpret_cast<WPARAM>(child->m_hWnd), 0);
    }
}

void CMDIFrameWnd::MDINext() {
    win::SendMessage(m_hWndMDIClient, win::WM_MDINEXT, 0, 0);
}

void CMDIFrameWnd::MDIMaximize(CWnd* child) {
    if (child != nullptr) {
        win::SendMessage(m_hWndMDIClient, win::WM_MDIMAXIMIZE,
                         reinterpret_cast<WPARAM>(child->m_hWnd), 0);
    }
}

void CMDIFrameWnd::MDIRestore(CWnd* child) {
    if (child != nullptr) {
        win::SendMessage(m_hWndMDIClient, win::WM_MDIRESTORE,
                         reinterpret_cast<WPARAM>(child->m_hWnd), 0);
    }
}

void CMDIFrameWnd::MDIIconArrange() {
    win::SendMessage(m_hWndMDIClient, win::WM_MDIICONARRANGE, 0, 0);
}

CFrameWnd* CMDIFrameWnd::GetActiveFrame() {
    CMDIChildWnd* child = MDIGetActive();
    return child ? static_cast<CFrameWnd*>(child) : this;
}

void CMDIFrameWnd::OnUpdateFrameMenu(win::HMENU menuAlt) {
    if (CMDIChildWnd* child = MDIGetActive()) {
        child->OnUpdateFrameMenu(TRUE, child, menuAlt);
    } else {
        win::SetMenu(m_hWnd, menuAlt ? menuAlt : m_hMenuDefault);
    }
}

void CMDIFrameWnd::OnUpdateFrameTitle(BOOL addToTitle) {}

BOOL CMDIFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (CMDIChildWnd* child = MDIGetActive(); child && child->OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    return CFrameWnd::OnCmdMsg(id, code, extra, info);
}

BOOL CMDIFrameWnd::OnCreateClient(win::CREATESTRUCT* cs, CCreateContext* context) {
    win::RECT client;
    GetClientRect(&client);
    m_hWndMDIClient = win::CreateWindowEx(
        0, win::MDICLIENT_CLASS, nullptr, win::WS_CHILD | win::WS_VISIBLE | win::WS_CLIPCHILDREN, 0,
        0, client.right, client.bottom, m_hWnd,
        win::HandleFromNumber<win::HMENU>(AFX_IDW_PANE_FIRST), nullptr, nullptr);
    return m_hWndMDIClient != nullptr;
}

void CMDIFrameWnd::OnDestroy() {
    CFrameWnd::OnDestroy();
    m_hWndMDIClient = nullptr;
}

}  // namespace afx
