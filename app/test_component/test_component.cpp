// A component for the host's tests: linking speaks to the host's main window as the
// Project Manager does (a status text, a sent and a posted command, a tool log, the MDI
// client, a command to the application), and unlinking says goodbye on the status line.
#include "platform/afx/afx_messages.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace afx {
class CDocTemplate;
}

extern "C" afx::CDocTemplate* LinkProjectDll() {
    afx::CWnd* main = afx::AfxGetMainWnd();
    if (main == nullptr) {
        return nullptr;
    }
    main->SendMessage(afx::WM_SETMESSAGESTRING, 0,
                      reinterpret_cast<win::LPARAM>("Building Schematic Tree..."));
    main->SendMessage(win::WM_COMMAND, 26467, 0);
    main->PostMessage(win::WM_COMMAND, 26454, 0);
    main->SendMessage(0x68A1, 0, reinterpret_cast<win::LPARAM>("C:\\amp\\treescan.log"));
    if (auto* frame = dynamic_cast<afx::CMDIFrameWnd*>(main)) {
        win::SendMessage(frame->m_hWndMDIClient, win::WM_MDINEXT, 0, 0);
    }
    afx::AfxGetApp()->OnCmdMsg(26478, 0, nullptr, nullptr);
    return nullptr;
}

extern "C" int UnlinkProjectDll() {
    if (afx::CWnd* main = afx::AfxGetMainWnd()) {
        main->SendMessage(afx::WM_SETMESSAGESTRING, 0, reinterpret_cast<win::LPARAM>("Ready"));
    }
    return 0;
}
