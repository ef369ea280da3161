#include "platform/afx/cmd_ui.h"

#include "platform/afx/cmd_target.h"
#include "platform/afx/wnd.h"
#include "platform/win/menu.h"

namespace afx {

void CCmdUI::Enable(BOOL on) {
    m_bEnableChanged = TRUE;
    m_bEnabled = on ? TRUE : FALSE;
    if (m_hMenu != nullptr) {
        win::EnableMenuItem(m_hMenu, m_nIndex,
                            win::MF_BYPOSITION | (on ? win::MF_ENABLED : win::MF_GRAYED));
    } else if (m_pOther != nullptr) {
        m_pOther->EnableWindow(on);
    }
}

void CCmdUI::SetCheck(int check) {
    m_nCheck = check;
    if (m_hMenu != nullptr) {
        win::CheckMenuItem(m_hMenu, m_nIndex,
                           win::MF_BYPOSITION | (check ? win::MF_CHECKED : win::MF_UNCHECKED));
    }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler) {
    if (target == nullptr) {
        return FALSE;
    }
    m_bEnableChanged = FALSE;
    BOOL handled = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (!handled && disableIfNoHandler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info;
        if (!target->OnCmdMsg(m_nID, CN_COMMAND, nullptr, &info)) {
            Enable(FALSE);
        }
    }
    return handled;
}

}  // namespace afx
