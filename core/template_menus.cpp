// The menus that the project adds to the host's: "&Layout" and "&Parts" in the simulator
// template's menu, and the template's own popups in the menu of a schematic or symbol
// that is about to show.
#include <array>
#include <string>

#include "core/component_module.h"
#include "core/project_cmd_ui.h"
#include "core/project_doc.h"
#include "host/project_notify.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/wnd.h"
#include "platform/win/menu.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/resources.h"
#include "platform/win/strings.h"
#include "platform/win/window.h"

namespace velorand {

namespace {

constexpr win::UINT kLayoutMenu = 26533;
constexpr win::UINT kPartsMenu = 26530;
constexpr win::UINT kDeviceSelection = 26529;
constexpr win::UINT kAutoGenerateLayout = 26534;
constexpr win::UINT kSearchPath = 26459;
constexpr win::UINT kRuleCheck = 26485;
constexpr win::UINT kMenuChanged = 26467;
// Where the Layout and Parts menus go in the template's menu bar.
constexpr win::UINT kInsertPosition = 3;

// Popups of the template's menu that the host's menus have themselves.
constexpr std::array<const char*, 7> kHostPopups = {"&File",  "Pr&oject", "&Edit", "&Parts",
                                                    "&Tools", "&Window",  "&Help"};

std::string ItemText(win::HMENU menu, int position) {
    char text[256] = {};
    win::GetMenuString(menu, static_cast<win::UINT>(position), text, sizeof text,
                       win::MF_BYPOSITION);
    return text;
}

// The position of the last item with the text, case ignored, above the first; -1 if none.
int FindMenuItem(win::HMENU menu, const char* text) {
    for (int i = win::GetMenuItemCount(menu) - 1; i >= 1; --i) {
        if (win::EqualNoCase(ItemText(menu, i), text))
            return i;
    }
    return -1;
}

bool IsHostPopup(const std::string& text) {
    for (const char* name : kHostPopups) {
        if (win::EqualNoCase(text, name))
            return true;
    }
    return false;
}

win::UINT_PTR AsItem(win::HMENU popup) {
    return win::NumberFromHandle(popup);
}

// Appends each item of `from` to `to`: popups as popups, commands under their ids,
// items without text as separators.
void AppendItems(win::HMENU to, win::HMENU from) {
    const int count = win::GetMenuItemCount(from);
    for (int i = 0; i < count; ++i) {
        const std::string text = ItemText(from, i);
        if (win::HMENU popup = win::GetSubMenu(from, i))
            win::AppendMenu(to, win::MF_POPUP, AsItem(popup), text.c_str());
        else if (!text.empty())
            win::AppendMenu(to, win::MF_STRING, win::GetMenuItemID(from, i), text.c_str());
        else
            win::AppendMenu(to, win::MF_SEPARATOR, 0, nullptr);
    }
}

}  // namespace

void RegisterTemplateMenuResources(win::HINSTANCE instance) {
    using Item = win::MenuTemplateItem;
    win::RegisterMenuResource(instance, kLayoutMenu,
                              {Item{"&Auto-Generate Layout", kAutoGenerateLayout, 0, {}}});
    win::RegisterMenuResource(
        instance, kPartsMenu,
        {Item{"&Search Paths...", kSearchPath, 0, {}}, Item{"", 0, win::MF_SEPARATOR, {}},
         Item{"Electrical &Rule Check", kRuleCheck, 0, {}}});
}

void CProjectDoc::SetupTemplateMenus(ProjectNotify* record) {
    hostMenu = reinterpret_cast<win::HMENU>(record->argument);
    const std::string layout = GetSuiteProfileString("Template List", "Layout", "");
    if (!layout.empty() && !topLevelSchematic.empty() &&
        layoutMenu.LoadMenu(ComponentInstance(), kLayoutMenu))
        win::InsertMenu(hostMenu, kInsertPosition, win::MF_BYPOSITION | win::MF_POPUP,
                        AsItem(layoutMenu.m_hMenu), "&Layout");
    if (partsMenu.m_hMenu != nullptr || templateDoc == nullptr)
        return;
    std::string extension;
    afx::CDocTemplate* docTemplate = templateDoc->GetDocTemplate();
    if (docTemplate != nullptr &&
        docTemplate->GetDocString(extension, afx::CDocTemplate::filterExt) &&
        win::EqualNoCase(extension, ".ckt") && partsMenu.LoadMenu(ComponentInstance(), kPartsMenu))
        win::InsertMenu(hostMenu, kInsertPosition, win::MF_BYPOSITION | win::MF_POPUP,
                        AsItem(partsMenu.m_hMenu), "&Parts");
}

void CProjectDoc::MergeTemplateMenus(ProjectNotify* record) {
    auto menu = reinterpret_cast<win::HMENU>(record->argument);
    win::HWND main = mainWnd ? mainWnd->m_hWnd : nullptr;
    if (topLevelSchematic.empty()) {
        win::SetMenu(main, menu);
        win::SendMessage(main, win::WM_COMMAND, kMenuChanged, 0);
        win::UpdateWindow(main);
    }
    if (record->idFrom == 145)
        return;

    const bool projectCmdUI = ProjectCmdUIHolds(mainWnd);
    int settingsPos = -1;
    // The template's own popups join the menu before its last three; a menu is not merged
    // into itself.
    if (hostMenu != nullptr && templateDoc != nullptr && projectCmdUI && hostMenu != menu) {
        const win::UINT insertAt = static_cast<win::UINT>(win::GetMenuItemCount(menu) - 3);
        for (int i = win::GetMenuItemCount(hostMenu) - 1; i >= 0; --i) {
            win::HMENU popup = win::GetSubMenu(hostMenu, i);
            const std::string text = ItemText(hostMenu, i);
            if (popup == nullptr || text.empty())
                continue;
            if (win::EqualNoCase(text, "&Settings"))
                settingsPos = i;
            else if (!IsHostPopup(text))
                win::InsertMenu(menu, insertAt, win::MF_BYPOSITION | win::MF_POPUP, AsItem(popup),
                                text.c_str());
        }
    }
    if (hostMenu == nullptr || templateDoc == nullptr) {
        if (record->option != 0 && partsMenu.m_hMenu != nullptr) {
            partsMenu.DestroyMenu();
            win::SetMenu(main, menu);
        } else if (record->option == 0 && partsMenu.m_hMenu == nullptr) {
            partsMenu.LoadMenu(ComponentInstance(), kPartsMenu);
        }
    }
    if (projectCmdUI && settingsPos != -1) {
        const int settings = FindMenuItem(menu, "&Settings");
        win::HMENU to = settings != -1 ? win::GetSubMenu(menu, settings) : nullptr;
        win::HMENU from = win::GetSubMenu(hostMenu, settingsPos);
        if (to != nullptr && from != nullptr) {
            AppendItems(to, from);
            win::AppendMenu(to, win::MF_SEPARATOR, 0, nullptr);
        }
    }
    if (partsMenu.m_hMenu != nullptr && record->option == 0) {
        const int parts = FindMenuItem(menu, "&Parts");
        if (win::HMENU to = parts != -1 ? win::GetSubMenu(menu, parts) : nullptr) {
            win::AppendMenu(to, win::MF_STRING, kDeviceSelection, "Device Library ...");
            win::AppendMenu(to, win::MF_SEPARATOR, 0, nullptr);
        }
    }
}

}  // namespace velorand
