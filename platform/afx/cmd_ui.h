// Command state queries. The owner of a menu item or button fills a CCmdUI with the
// command id and asks the command route (DoUpdate); the handler that answers calls Enable
// and SetCheck. A CCmdUI tied to a menu (m_hMenu, m_nIndex) or a window (m_pOther) passes
// the state on to it; every CCmdUI keeps the last state it was given, for the asker.
#pragma once

#include "platform/afx/object.h"
#include "platform/win/types.h"

namespace afx {

class CCmdTarget;
class CWnd;

class CCmdUI {
  public:
    CCmdUI() = default;
    explicit CCmdUI(UINT id) : m_nID(id) {}
    virtual ~CCmdUI() = default;

    UINT m_nID = 0;
    UINT m_nIndex = 0;             // position in m_hMenu
    win::HMENU m_hMenu = nullptr;  // the menu that holds the item, if any
    CWnd* m_pOther = nullptr;      // the window that stands for the command, if any
    BOOL m_bEnableChanged = FALSE;

    virtual void Enable(BOOL on = TRUE);
    // 0 unchecked, 1 checked.
    virtual void SetCheck(int check = 1);

    // Asks the route that starts at target. Without a state handler, a command with no
    // command handler either is disabled when disableIfNoHandler is set. TRUE when a
    // state handler answered.
    BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);

    // The state last given; a command nobody answered for is enabled and unchecked.
    BOOL IsEnabled() const { return m_bEnabled; }
    int GetCheck() const { return m_nCheck; }

  private:
    BOOL m_bEnabled = TRUE;
    int m_nCheck = 0;
};

}  // namespace afx
