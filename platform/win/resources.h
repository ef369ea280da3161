// Resources of a module: each module (the component library, the host program) registers
// its menus and strings under its instance handle when it starts, and LoadMenu and
// LoadString find them there by id.
#pragma once

#include <string>
#include <vector>

#include "platform/win/bitmap.h"
#include "platform/win/dialog_template.h"
#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace win {

inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;

// One item of a menu resource: a command (text and id), a separator (MF_SEPARATOR), or
// a popup (MF_POPUP) with its own items. Flags may add MF_GRAYED and MF_CHECKED.
struct MenuTemplateItem {
    std::string text;
    UINT id = 0;
    UINT flags = 0;
    std::vector<MenuTemplateItem> popup;
};

// Registers or replaces a resource of the module.
void RegisterMenuResource(HINSTANCE instance, UINT id, std::vector<MenuTemplateItem> items);
void RegisterStringResource(HINSTANCE instance, UINT id, std::string text);
void RegisterDialogResource(HINSTANCE instance, UINT id, DialogTemplate dialog);
// A bitmap resource is its size in pixels; its picture is not kept.
void RegisterBitmapResource(HINSTANCE instance, UINT id, SIZE size);
// Forgets all resources of the module, as when it is unloaded.
void UnregisterResources(HINSTANCE instance);

// A new bitmap of the resource's size, or null (last error 1814). The caller owns it.
HBITMAP LoadBitmap(HINSTANCE instance, UINT id);

// A new menu built from the resource, or null (last error 1814). The caller owns it.
HMENU LoadMenu(HINSTANCE instance, UINT id);
// Copies the string (at most size - 1 bytes and a zero) and gives its length; 0 when the
// module has no such string.
int LoadString(HINSTANCE instance, UINT id, LPSTR buffer, int size);

// The module's dialog resource, valid until the module's resources change; null (last
// error 1814) when it has none.
const DialogTemplate* FindDialogResource(HINSTANCE instance, UINT id);
// The first module, in the order of the handles, that has the dialog resource; FALSE
// (last error 1814) when none has it.
BOOL FindDialogModule(UINT id, HINSTANCE* module);
// The same for a bitmap resource.
BOOL FindBitmapModule(UINT id, HINSTANCE* module);

}  // namespace win
