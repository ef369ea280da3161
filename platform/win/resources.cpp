#include "platform/win/resources.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

#include "platform/win/last_error.h"
#include "platform/win/menu.h"

namespace win {

namespace {

using Key = std::pair<std::uintptr_t, UINT>;

struct Resources {
    std::map<Key, std::vector<MenuTemplateItem>> menus;
    std::map<Key, std::string> strings;
    std::map<Key, DialogTemplate> dialogs;
    std::map<Key, SIZE> bitmaps;
};

Resources& R() {
    static Resources resources;
    return resources;
}

Key KeyOf(HINSTANCE instance, UINT id) {
    return {NumberFromHandle(instance), id};
}

void Fill(HMENU menu, const std::vector<MenuTemplateItem>& items) {
    for (const MenuTemplateItem& item : items) {
        if (item.flags & MF_POPUP) {
            HMENU popup = CreatePopupMenu();
            Fill(popup, item.popup);
            AppendMenu(menu, item.flags, NumberFromHandle(popup), item.text.c_str());
        } else {
            AppendMenu(menu, item.flags, item.id, item.text.c_str());
        }
    }
}

template <class Map>
void EraseModule(Map& map, std::uintptr_t module) {
    for (auto it = map.begin(); it != map.end();) {
        it = it->first.first == module ? map.erase(it) : std::next(it);
    }
}

}  // namespace

void RegisterMenuResource(HINSTANCE instance, UINT id, std::vector<MenuTemplateItem> items) {
    R().menus[KeyOf(instance, id)] = std::move(items);
}

void RegisterStringResource(HINSTANCE instance, UINT id, std::string text) {
    R().strings[KeyOf(instance, id)] = std::move(text);
}

void RegisterDialogResource(HINSTANCE instance, UINT id, DialogTemplate dialog) {
    R().dialogs[KeyOf(instance, id)] = std::move(dialog);
}

void RegisterBitmapResource(HINSTANCE instance, UINT id, SIZE size) {
    R().bitmaps[KeyOf(instance, id)] = size;
}

void UnregisterResources(HINSTANCE instance) {
    EraseModule(R().menus, NumberFromHandle(instance));
    EraseModule(R().strings, NumberFromHandle(instance));
    EraseModule(R().dialogs, NumberFromHandle(instance));
    EraseModule(R().bitmaps, NumberFromHandle(instance));
}

HBITMAP LoadBitmap(HINSTANCE instance, UINT id) {
    auto it = R().bitmaps.find(KeyOf(instance, id));
    if (it == R().bitmaps.end()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return CreateBitmap(it->second.cx, it->second.cy, 1, 24, nullptr);
}

HMENU LoadMenu(HINSTANCE instance, UINT id) {
    auto it = R().menus.find(KeyOf(instance, id));
    if (it == R().menus.end()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    HMENU menu = CreateMenu();
    Fill(menu, it->second);
    return menu;
}

int LoadString(HINSTANCE instance, UINT id, LPSTR buffer, int size) {
    auto it = R().strings.find(KeyOf(instance, id));
    if (buffer == nullptr || size <= 0) {
        return 0;
    }
    if (it == R().strings.end()) {
        buffer[0] = '\0';
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return 0;
    }
    int n = std::min<int>(static_cast<int>(it->second.size()), size - 1);
    std::memcpy(buffer, it->second.data(), n);
    buffer[n] = '\0';
    return n;
}

const DialogTemplate* FindDialogResource(HINSTANCE instance, UINT id) {
    auto it = R().dialogs.find(KeyOf(instance, id));
    if (it == R().dialogs.end()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return &it->second;
}

namespace {

template <class Map>
BOOL FindModule(const Map& map, UINT id, HINSTANCE* module) {
    for (const auto& entry : map) {
        if (entry.first.second == id) {
            *module = HandleFromNumber<HINSTANCE>(entry.first.first);
            return TRUE;
        }
    }
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return FALSE;
}

}  // namespace

BOOL FindDialogModule(UINT id, HINSTANCE* module) {
    return FindModule(R().dialogs, id, module);
}

BOOL FindBitmapModule(UINT id, HINSTANCE* module) {
    return FindModule(R().bitmaps, id, module);
}

}  // namespace win
