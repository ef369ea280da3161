#include "platform/afx/view.h"

#include "platform/afx/afx_messages.h"
#include "platform/afx/create_context.h"
#include "platform/afx/document.h"
#include "platform/afx/frame_wnd.h"

namespace afx {

IMPLEMENT_DYNAMIC(CView, CWnd)

CView::~CView() {
    LeaveFrames();
    if (m_pDocument != nullptr) {
        m_pDocument->RemoveView(this);
    }
}

// No frame may keep this view as its active view once it is gone.
void CView::LeaveFrames() {
    for (CFrameWnd* frame = GetParentFrame(); frame != nullptr; frame = frame->GetParentFrame()) {
        if (frame->m_pViewActive == this) {
            frame->m_pViewActive = nullptr;
        }
    }
}

BOOL CView::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (CWnd::OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    return m_pDocument != nullptr && m_pDocument->OnCmdMsg(id, code, extra, info);
}

LRESULT CView::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_INITIALUPDATE) {
        OnInitialUpdate();
        return 0;
    }
    return CWnd::WindowProc(msg, wParam, lParam);
}

int CView::OnCreate(win::CREATESTRUCT* cs) {
    if (CWnd::OnCreate(cs) == -1) {
        return -1;
    }
    auto* context = static_cast<CCreateContext*>(cs->lpCreateParams);
    if (context != nullptr && context->m_pCurrentDoc != nullptr) {
        context->m_pCurrentDoc->AddView(this);
    }
    return 0;
}

void CView::OnDestroy() {
    LeaveFrames();
    CWnd::OnDestroy();
}

void CView::PostNcDestroy() {
    delete this;
}

}  // namespace afx
