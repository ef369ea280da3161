#include "platform/afx/mdi_child_wnd.h"

#include "platform/afx/create_context.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace afx {

IMPLEMENT_DYNCREATE(CMDIChildWnd, CFrameWnd)

namespace {

CMDIFrameWnd* MainMDIFrame(CWnd* parent) {
    CWnd* frame = parent ? parent : AfxGetMainWnd();
    if (frame == nullptr || !frame->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))) {
        return nullptr;
    }
    return static_cast<CMDIFrameWnd*>(frame);
}

}  // namespace

BOOL CMDIChildWnd::Create(LPCSTR className, LPCSTR title, DWORD style, const win::RECT& rect,
                          CMDIFrameWnd* parent, CCreateContext* context) {
    CMDIFrameWnd* frame = MainMDIFrame(parent);
    if (frame == nullptr || frame->m_hWndMDIClient == nullptr) {
        PostNcDestroy();  // as when the window is refused: the frame is gone
        return FALSE;
    }
    win::RECT r = rect;
    if (r.left == win::CW_USEDEFAULT) {
        r = win::RECT{win::CW_USEDEFAULT, 0, win::CW_USEDEFAULT, 0};
    }
    return CreateUnder(0, className, title, style | win::WS_CHILD, r, frame->m_hWndMDIClient, 0,
                       context);
}

BOOL CMDIChildWnd::LoadFrame(UINT id, DWORD style, CWnd* parent, CCreateContext* context) {
    m_nIDHelp = id;
    if (context != nullptr && context->m_pNewDocTemplate != nullptr &&
        context->m_pNewDocTemplate->IsKindOf(RUNTIME_CLASS(CMultiDocTemplate))) {
        m_hMenuShared = static_cast<CMultiDocTemplate*>(context->m_pNewDocTemplate)->m_hMenuShared;
    }
    auto* frame = parent && parent->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd))
                      ? static_cast<CMDIFrameWnd*>(parent)
                      : nullptr;
    return Create(nullptr, nullptr, style, rectDefault, frame, context);
}

CMDIFrameWnd* CMDIChildWnd::GetMDIFrame() const {
    CWnd* wnd = FromHandle(win::GetParent(win::GetParent(m_hWnd)));
    return wnd && wnd->IsKindOf(RUNTIME_CLASS(CMDIFrameWnd)) ? static_cast<CMDIFrameWnd*>(wnd)
                                                             : nullptr;
}

void CMDIChildWnd::MDIActivate() {
    if (CMDIFrameWnd* frame = GetMDIFrame()) {
        frame->MDIActivate(this);
    }
}

void CMDIChildWnd::MDIDestroy() {
    win::SendMessage(win::GetParent(m_hWnd), win::WM_MDIDESTROY, reinterpret_cast<WPARAM>(m_hWnd),
                     0);
}

void CMDIChildWnd::MDIMaximize() {
    if (CMDIFrameWnd* frame = GetMDIFrame()) {
        frame->MDIMaximize(this);
    }
}

void CMDIChildWnd::MDIRestore() {
    if (CMDIFrameWnd* frame = GetMDIFrame()) {
        frame->MDIRestore(this);
    }
}

void CMDIChildWnd::ActivateFrame(int cmdShow) {
    CMDIFrameWnd* frame = GetMDIFrame();
    BOOL maximized = FALSE;
    CMDIChildWnd* active = frame ? frame->MDIGetActive(&maximized) : nullptr;
    if (cmdShow == -1) {
        cmdShow = !IsWindowVisible() ? win::SW_SHOWNORMAL
                  : IsIconic()       ? win::SW_RESTORE
                                     : win::SW_SHOW;
    }
    if (maximized && active != this &&
        (cmdShow == win::SW_SHOWNORMAL || cmdShow == win::SW_RESTORE || cmdShow == win::SW_SHOW)) {
        cmdShow = win::SW_SHOWMAXIMIZED;
    }
    HWND self = m_hWnd;
    ShowWindow(cmdShow);
    if (cmdShow != win::SW_HIDE && win::IsWindow(self)) {
        MDIActivate();
    }
}

void CMDIChildWnd::SetActiveView(CView* view, BOOL notify) {
    CFrameWnd::SetActiveView(view, notify);
    CMDIFrameWnd* frame = GetMDIFrame();
    if (frame != nullptr && frame->MDIGetActive() == this) {
        frame->m_pViewActive = view;
    }
}

void CMDIChildWnd::OnUpdateFrameMenu(BOOL activate, CWnd* activateWnd, win::HMENU menuAlt) {
    CMDIFrameWnd* frame = GetMDIFrame();
    if (frame == nullptr) {
        return;
    }
    win::HMENU menu = frame->m_hMenuDefault;
    if (activate) {
        menu = menuAlt ? menuAlt : (m_hMenuShared ? m_hMenuShared : frame->m_hMenuDefault);
    }
    win::SetMenu(frame->m_hWnd, menu);
}

LRESULT CMDIChildWnd::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == win::WM_MDIACTIVATE) {
        auto losing = reinterpret_cast<HWND>(wParam);
        auto gaining = reinterpret_cast<HWND>(lParam);
        OnMDIActivate(gaining == m_hWnd, FromHandle(gaining), FromHandle(losing));
        return 0;
    }
    return CFrameWnd::WindowProc(msg, wParam, lParam);
}

BOOL CMDIChildWnd::PreCreateWindow(win::CREATESTRUCT& cs) {
    cs.style |= win::WS_CHILD;
    cs.dwExStyle |= win::WS_EX_MDICHILD;
    return TRUE;
}

void CMDIChildWnd::OnMDIActivate(BOOL activate, CWnd* activateWnd, CWnd* deactivateWnd) {
    CMDIFrameWnd* frame = GetMDIFrame();
    if (frame == nullptr) {
        return;
    }
    if (activate) {
        frame->m_pViewActive = m_pViewActive;
        OnUpdateFrameMenu(TRUE, activateWnd, nullptr);
    } else {
        if (frame->m_pViewActive == m_pViewActive) {
            frame->m_pViewActive = nullptr;
        }
        if (activateWnd == nullptr) {
            OnUpdateFrameMenu(FALSE, nullptr, nullptr);
        }
    }
    if (m_pViewActive != nullptr) {
        m_pViewActive->OnActivateView(activate, m_pViewActive, m_pViewActive);
    }
}

}  // namespace afx
