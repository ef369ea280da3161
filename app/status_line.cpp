#include "app/status_line.h"

#include "platform/afx/afx_messages.h"
#include "platform/afx/win_app.h"
#include "platform/afx/wnd.h"

namespace velorand::host {

void ShowStatus(const std::string& text) {
    if (afx::CWnd* main = afx::AfxGetMainWnd()) {
        main->SendMessage(afx::WM_SETMESSAGESTRING, 0, reinterpret_cast<win::LPARAM>(text.c_str()));
    }
}

}  // namespace velorand::host
