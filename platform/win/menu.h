// Menus: a menu handle names a list of items; an item is a command (text and id), a
// separator, or a popup that holds another menu. Nothing is shown: the items, their
// texts and their enabled and checked states are what code and tests look at.
// A popup handle may stand in more than one menu; DestroyMenu destroys a menu with its
// popups, so a menu that shares a popup is left pointing at a dead handle (IsMenu false).
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr DWORD ERROR_INVALID_MENU_HANDLE = 1401;

inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_UNCHECKED = 0x0000;
inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002;
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_POPUP = 0x0010;
inline constexpr UINT MF_BYPOSITION = 0x0400;
inline constexpr UINT MF_SEPARATOR = 0x0800;

HMENU CreateMenu();
HMENU CreatePopupMenu();
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);

// With MF_POPUP, idOrPopup is the popup's HMENU as a number. MF_BYPOSITION counts from 0;
// InsertMenu at a position past the end (or -1) appends. Without MF_BYPOSITION the item
// goes before the item with that command id.
BOOL AppendMenu(HMENU menu, UINT flags, UINT_PTR idOrPopup, LPCSTR text);
BOOL InsertMenu(HMENU menu, UINT position, UINT flags, UINT_PTR idOrPopup, LPCSTR text);
// Takes an item out; RemoveMenu keeps its popup alive, DeleteMenu destroys it.
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);
BOOL DeleteMenu(HMENU menu, UINT position, UINT flags);

// -1 for a dead menu.
int GetMenuItemCount(HMENU menu);
// The command id at the position; -1 for a popup or no item, 0 for a separator.
UINT GetMenuItemID(HMENU menu, int position);
HMENU GetSubMenu(HMENU menu, int position);
// Copies the item's text (at most size - 1 bytes and a zero) and gives its length; with
// a null buffer only the length. 0 when there is no such item.
int GetMenuString(HMENU menu, UINT item, LPSTR buffer, int size, UINT flags);
// The item's MF_ flags; for a popup the item count is in bits 8 to 15. -1 for no item.
UINT GetMenuState(HMENU menu, UINT item, UINT flags);
// Set MF_GRAYED or MF_DISABLED, or neither for enabled; the old MF_GRAYED|MF_DISABLED
// bits, or -1 for no item. By command the popups are searched too.
UINT EnableMenuItem(HMENU menu, UINT item, UINT enable);
// MF_CHECKED or MF_UNCHECKED; the old state, or -1 for no item.
DWORD CheckMenuItem(HMENU menu, UINT item, UINT check);

}  // namespace win
