#include "platform/win/menu.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/win/last_error.h"

namespace win {

namespace {

struct MenuItem {
    UINT flags = 0;  // MF_GRAYED, MF_DISABLED, MF_CHECKED, MF_POPUP, MF_SEPARATOR
    UINT id = 0;
    HMENU popup = nullptr;
    std::string text;
};

struct MenuRecord {
    std::vector<MenuItem> items;
};

struct Menus {
    std::map<std::uintptr_t, std::unique_ptr<MenuRecord>> menus;
    std::uintptr_t next = 0x4000000;
};

Menus& M() {
    static Menus menus;
    return menus;
}

constexpr UINT kStateBits = MF_GRAYED | MF_DISABLED | MF_CHECKED;

MenuRecord* Find(HMENU menu) {
    auto it = M().menus.find(NumberFromHandle(menu));
    if (menu == nullptr || it == M().menus.end()) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return nullptr;
    }
    return it->second.get();
}

HMENU Make() {
    HMENU h = HandleFromNumber<HMENU>(M().next++);
    M().menus.emplace(NumberFromHandle(h), std::make_unique<MenuRecord>());
    return h;
}

// The item that (item, flags) names, searching popups for a command id; depth guards
// against a menu that holds itself.
MenuItem* FindItem(HMENU menu, UINT item, UINT flags, int depth = 0) {
    MenuRecord* rec = Find(menu);
    if (rec == nullptr || depth > 32) {
        return nullptr;
    }
    if (flags & MF_BYPOSITION) {
        return item < rec->items.size() ? &rec->items[item] : nullptr;
    }
    for (MenuItem& it : rec->items) {
        if (!(it.flags & MF_POPUP) && !(it.flags & MF_SEPARATOR) && it.id == item) {
            return &it;
        }
    }
    for (MenuItem& it : rec->items) {
        if (it.flags & MF_POPUP) {
            if (MenuItem* found = FindItem(it.popup, item, flags, depth + 1)) {
                return found;
            }
        }
    }
    return nullptr;
}

MenuItem MakeItem(UINT flags, UINT_PTR idOrPopup, LPCSTR text) {
    MenuItem item;
    item.flags = flags & (kStateBits | MF_POPUP | MF_SEPARATOR);
    if (flags & MF_POPUP) {
        item.popup = HandleFromNumber<HMENU>(idOrPopup);
    } else if (!(flags & MF_SEPARATOR)) {
        item.id = static_cast<UINT>(idOrPopup);
    }
    if (text && !(flags & MF_SEPARATOR)) {
        item.text = text;
    }
    return item;
}

BOOL TakeOut(HMENU menu, UINT position, UINT flags, bool destroyPopup) {
    MenuRecord* rec = Find(menu);
    if (rec == nullptr) {
        return FALSE;
    }
    for (std::size_t i = 0; i < rec->items.size(); ++i) {
        const MenuItem& it = rec->items[i];
        bool match =
            (flags & MF_BYPOSITION) ? i == position : !(it.flags & MF_POPUP) && it.id == position;
        if (match) {
            HMENU popup = (it.flags & MF_POPUP) ? it.popup : nullptr;
            rec->items.erase(rec->items.begin() + static_cast<std::ptrdiff_t>(i));
            if (destroyPopup && popup) {
                DestroyMenu(popup);
            }
            return TRUE;
        }
    }
    return FALSE;
}

}  // namespace

HMENU CreateMenu() {
    return Make();
}

HMENU CreatePopupMenu() {
    return Make();
}

BOOL DestroyMenu(HMENU menu) {
    auto it = M().menus.find(NumberFromHandle(menu));
    if (menu == nullptr || it == M().menus.end()) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    std::unique_ptr<MenuRecord> rec = std::move(it->second);
    M().menus.erase(it);
    for (const MenuItem& item : rec->items) {
        if (item.flags & MF_POPUP) {
            DestroyMenu(item.popup);
        }
    }
    return TRUE;
}

BOOL IsMenu(HMENU menu) {
    return menu != nullptr && M().menus.count(NumberFromHandle(menu)) != 0;
}

BOOL AppendMenu(HMENU menu, UINT flags, UINT_PTR idOrPopup, LPCSTR text) {
    return InsertMenu(menu, static_cast<UINT>(-1), flags | MF_BYPOSITION, idOrPopup, text);
}

BOOL InsertMenu(HMENU menu, UINT position, UINT flags, UINT_PTR idOrPopup, LPCSTR text) {
    MenuRecord* rec = Find(menu);
    if (rec == nullptr) {
        return FALSE;
    }
    if ((flags & MF_POPUP) && !IsMenu(HandleFromNumber<HMENU>(idOrPopup))) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    auto& items = rec->items;
    std::size_t at = items.size();
    if (flags & MF_BYPOSITION) {
        at = std::min<std::size_t>(position, items.size());
    } else {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (!(items[i].flags & MF_POPUP) && items[i].id == position) {
                at = i;
                break;
            }
        }
    }
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), MakeItem(flags, idOrPopup, text));
    return TRUE;
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags) {
    return TakeOut(menu, position, flags, false);
}

BOOL DeleteMenu(HMENU menu, UINT position, UINT flags) {
    return TakeOut(menu, position, flags, true);
}

int GetMenuItemCount(HMENU menu) {
    MenuRecord* rec = Find(menu);
    return rec ? static_cast<int>(rec->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
    MenuItem* item = position < 0 ? nullptr : FindItem(menu, position, MF_BYPOSITION);
    if (item == nullptr || (item->flags & MF_POPUP)) {
        return static_cast<UINT>(-1);
    }
    return item->id;
}

HMENU GetSubMenu(HMENU menu, int position) {
    MenuItem* item = position < 0 ? nullptr : FindItem(menu, position, MF_BYPOSITION);
    return item && (item->flags & MF_POPUP) ? item->popup : nullptr;
}

int GetMenuString(HMENU menu, UINT item, LPSTR buffer, int size, UINT flags) {
    MenuItem* it = FindItem(menu, item, flags);
    if (it == nullptr) {
        if (buffer && size > 0) {
            buffer[0] = '\0';
        }
        return 0;
    }
    if (buffer == nullptr) {
        return static_cast<int>(it->text.size());
    }
    if (size <= 0) {
        return 0;
    }
    int n = std::min<int>(static_cast<int>(it->text.size()), size - 1);
    std::memcpy(buffer, it->text.data(), n);
    buffer[n] = '\0';
    return n;
}

UINT GetMenuState(HMENU menu, UINT item, UINT flags) {
    MenuItem* it = FindItem(menu, item, flags);
    if (it == nullptr) {
        return static_cast<UINT>(-1);
    }
    UINT state = it->flags;
    if (it->flags & MF_POPUP) {
        int count = GetMenuItemCount(it->popup);
        state = (state & 0xFF) | (static_cast<UINT>(count < 0 ? 0 : count & 0xFF) << 8);
    }
    return state;
}

UINT EnableMenuItem(HMENU menu, UINT item, UINT enable) {
    MenuItem* it = FindItem(menu, item, enable);
    if (it == nullptr) {
        return static_cast<UINT>(-1);
    }
    UINT old = it->flags & (MF_GRAYED | MF_DISABLED);
    it->flags = (it->flags & ~(MF_GRAYED | MF_DISABLED)) | (enable & (MF_GRAYED | MF_DISABLED));
    return old;
}

DWORD CheckMenuItem(HMENU menu, UINT item, UINT check) {
    MenuItem* it = FindItem(menu, item, check);
    if (it == nullptr) {
        return static_cast<DWORD>(-1);
    }
    DWORD old = it->flags & MF_CHECKED;
    it->flags = (it->flags & ~MF_CHECKED) | (check & MF_CHECKED);
    return old;
}

}  // namespace win
