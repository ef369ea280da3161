// The notification hub: every WM_NOTIFY that the host's editors send to the tree view
// enters here. Until the hub's codes are handled, the framework answers.
#include "views/project_view.h"

namespace velorand {

win::BOOL CProjectView::OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) {
    return afx::CTreeView::OnNotify(wParam, lParam, result);
}

}  // namespace velorand
