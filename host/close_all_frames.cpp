// Closes the windows of all the project's documents (command 26451). Each close tells the
// project of itself and leaves the list, so the walk goes over a copy and skips documents
// that have gone meanwhile.
#include <algorithm>
#include <vector>

#include "core/project_doc.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace velorand {

void CProjectDoc::CloseAllFrames() {
    const std::vector<afx::CDocument*> docs(openDocs.begin(), openDocs.end());
    for (afx::CDocument* doc : docs) {
        if (std::find(openDocs.begin(), openDocs.end(), doc) == openDocs.end())
            continue;
        afx::CView* view = GetFirstDocView(doc);
        afx::CWnd* frame = view != nullptr ? view->GetParent() : nullptr;
        if (frame != nullptr)
            frame->SendMessage(win::WM_CLOSE, 0, 0);
    }
    if (auto* main = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd)) {
        win::InvalidateRect(main->m_hWndMDIClient, nullptr, win::TRUE);
        win::UpdateWindow(main->m_hWndMDIClient);
    }
}

}  // namespace velorand
