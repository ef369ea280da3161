#include "platform/afx/menu.h"

#include <utility>

#include "platform/win/resources.h"

namespace afx {

IMPLEMENT_DYNAMIC(CMenu, CObject)

CMenu::~CMenu() {
    DestroyMenu();
}

BOOL CMenu::Attach(win::HMENU menu) {
    if (m_hMenu != nullptr || !win::IsMenu(menu)) {
        return FALSE;
    }
    m_hMenu = menu;
    return TRUE;
}

win::HMENU CMenu::Detach() {
    return std::exchange(m_hMenu, nullptr);
}

BOOL CMenu::CreateMenu() {
    return m_hMenu == nullptr && Attach(win::CreateMenu());
}

BOOL CMenu::CreatePopupMenu() {
    return m_hMenu == nullptr && Attach(win::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(win::HINSTANCE instance, UINT id) {
    if (m_hMenu != nullptr) {
        return FALSE;
    }
    win::HMENU menu = win::LoadMenu(instance, id);
    return menu != nullptr && Attach(menu);
}

BOOL CMenu::DestroyMenu() {
    if (m_hMenu == nullptr) {
        return FALSE;
    }
    return win::DestroyMenu(Detach());
}

BOOL CMenu::AppendMenu(UINT flags, win::UINT_PTR idOrPopup, win::LPCSTR text) {
    return win::AppendMenu(m_hMenu, flags, idOrPopup, text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, win::UINT_PTR idOrPopup, win::LPCSTR text) {
    return win::InsertMenu(m_hMenu, position, flags, idOrPopup, text);
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags) {
    return win::RemoveMenu(m_hMenu, position, flags);
}

BOOL CMenu::DeleteMenu(UINT position, UINT flags) {
    return win::DeleteMenu(m_hMenu, position, flags);
}

UINT CMenu::GetMenuItemCount() const {
    return static_cast<UINT>(win::GetMenuItemCount(m_hMenu));
}

UINT CMenu::GetMenuItemID(int position) const {
    return win::GetMenuItemID(m_hMenu, position);
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
    return win::GetMenuState(m_hMenu, item, flags);
}

int CMenu::GetMenuString(UINT item, std::string& text, UINT flags) const {
    int length = win::GetMenuString(m_hMenu, item, nullptr, 0, flags);
    std::string buffer(static_cast<std::size_t>(length) + 1, '\0');
    int n = win::GetMenuString(m_hMenu, item, buffer.data(), length + 1, flags);
    buffer.resize(static_cast<std::size_t>(n));
    text = std::move(buffer);
    return n;
}

win::HMENU CMenu::GetSubMenu(int position) const {
    return win::GetSubMenu(m_hMenu, position);
}

UINT CMenu::EnableMenuItem(UINT item, UINT enable) {
    return win::EnableMenuItem(m_hMenu, item, enable);
}

UINT CMenu::CheckMenuItem(UINT item, UINT check) {
    return win::CheckMenuItem(m_hMenu, item, check);
}

}  // namespace afx
