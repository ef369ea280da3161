// CMenu: an object that holds a menu handle. It destroys its menu when it is destroyed,
// unless the handle was detached first.
#pragma once

#include <string>

#include "platform/afx/object.h"
#include "platform/win/menu.h"

namespace afx {

class CMenu : public CObject {
    DECLARE_DYNAMIC(CMenu)
  public:
    CMenu() = default;
    ~CMenu() override;
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    win::HMENU m_hMenu = nullptr;

    win::HMENU GetSafeHmenu() const { return m_hMenu; }
    BOOL Attach(win::HMENU menu);
    win::HMENU Detach();

    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // Loads the menu resource from the module's resources (win/resources.h).
    BOOL LoadMenu(win::HINSTANCE instance, UINT id);
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, win::UINT_PTR idOrPopup = 0, win::LPCSTR text = nullptr);
    BOOL InsertMenu(UINT position, UINT flags, win::UINT_PTR idOrPopup = 0,
                    win::LPCSTR text = nullptr);
    BOOL RemoveMenu(UINT position, UINT flags);
    BOOL DeleteMenu(UINT position, UINT flags);
    UINT GetMenuItemCount() const;
    UINT GetMenuItemID(int position) const;
    UINT GetMenuState(UINT item, UINT flags) const;
    int GetMenuString(UINT item, std::string& text, UINT flags) const;
    win::HMENU GetSubMenu(int position) const;
    UINT EnableMenuItem(UINT item, UINT enable);
    UINT CheckMenuItem(UINT item, UINT check);
};

}  // namespace afx
