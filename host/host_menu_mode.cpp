// The host's menus go into a mode and out of it again, by commands to the main window. On
// the way out the active child frame comes up again, and its view is told to bring itself
// up to date.
#include "core/host_commands.h"
#include "core/project_doc.h"
#include "host/notify_codes.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/win/messages.h"
#include "views/project_view.h"

namespace velorand {

namespace {}  // namespace

void CProjectDoc::SetHostMenuMode(int option) {
    if (mainWnd == nullptr)
        return;
    mainWnd->SendMessage(win::WM_COMMAND, option == 1 ? kCmdMenuModeOn : kCmdMenuModeOff, 0);
    auto* main = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd);
    afx::CMDIChildWnd* child = main != nullptr ? main->MDIGetActive() : nullptr;
    if (option != 0 || child == nullptr)
        return;
    child->ActivateFrame(win::SW_SHOW);
    SendProjectNotify(child, kCodeFrameAsked);
}

}  // namespace velorand
