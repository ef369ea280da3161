// The user customizes the host's tool bar (code 231 from the tool bar): the tool group
// library and the host's menus follow, and the editors hear of it through the same record.
#include <cstdio>

#include "core/project_doc.h"
#include "core/tool_group_kit.h"
#include "host/notify_codes.h"
#include "host/project_notify.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/win/messages.h"

namespace velorand {

void CProjectDoc::OnCustomizing(ProjectNotify* record) {
    if (record->idFrom != kFromToolBar)
        return;
    char line[64];
    std::snprintf(line, sizeof line, "Customizing ToolBar %s ...",
                  record->option == 1 ? "started" : "ended");
    StatusMessage(line);
    IsCustomizingToolPane(record->option);
    SetHostMenuMode(record->option);
    const auto forward = reinterpret_cast<win::LPARAM>(record);
    if (activeDoc != nullptr) {
        if (afx::CFrameWnd* frame = GetDocFrame(activeDoc, win::TRUE))
            frame->ActivateFrame(win::SW_SHOW);
        if (afx::CView* view = GetFirstDocView(activeDoc))
            view->SendMessage(win::WM_NOTIFY, 0, forward);
    }
    if (afx::CView* view = GetFirstDocView(templateDoc))
        view->SendMessage(win::WM_NOTIFY, 0, forward);
}

}  // namespace velorand
