#include "app/child_frame.h"

#include "app/host_messages.h"
#include "platform/afx/view.h"

namespace velorand::host {

using afx::CMDIChildWnd;
IMPLEMENT_DYNCREATE(CChildFrame, CMDIChildWnd)

win::LRESULT CChildFrame::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    if (msg == PM_RULE_CHECK_MODE || msg == PM_RENAME_REFERENCE) {
        afx::CView* view = GetActiveView();
        return view != nullptr ? view->SendMessage(msg, wParam, lParam) : 0;
    }
    return CMDIChildWnd::WindowProc(msg, wParam, lParam);
}

}  // namespace velorand::host
