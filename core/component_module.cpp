#include "core/component_module.h"

#include <dlfcn.h>

#include "core/warning_dlg.h"
#include "platform/afx/win_app.h"
#include "platform/win/menu.h"
#include "platform/win/resources.h"
#include "views/project_view.h"

namespace velorand {

win::HINSTANCE ComponentInstance() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&ComponentInstance), &info) == 0) {
        return nullptr;
    }
    return win::HandleFromNumber<win::HINSTANCE>(reinterpret_cast<std::uintptr_t>(info.dli_fbase));
}

namespace {

win::MenuTemplateItem Item(const char* text, win::UINT id) {
    return win::MenuTemplateItem{text, id, 0, {}};
}

win::MenuTemplateItem Separator() {
    return win::MenuTemplateItem{"", 0, win::MF_SEPARATOR, {}};
}

win::MenuTemplateItem Popup(const char* text, std::vector<win::MenuTemplateItem> items) {
    return win::MenuTemplateItem{text, 0, win::MF_POPUP, std::move(items)};
}

}  // namespace

void RegisterComponentResources() {
    win::HINSTANCE instance = ComponentInstance();
    win::RegisterStringResource(instance, 430,
                                "Project\nProject\nProject\nProject (*.vpj)\n.vpj\n"
                                "Project Document\nProject Document");
    // The template's shared menu, shown while the project's frame is active.
    win::RegisterMenuResource(
        instance, 26625,
        {Popup("&File", {Item("&New Project...", 26454), Item("&Open Project...", 26449),
                         Item("&Close Project", 26450), Separator(), Item("E&xit", 57665)}),
         Popup("Pr&oject", {Item("&Modify Project...", 26452), Item("&Update Project", 26456),
                            Item("&Copy Project...", 26458), Item("&Archive Project...", 26453),
                            Item("&Rename Project...", 26457), Item("&Delete Project...", 26475)}),
         Popup("&Window", {Item("&Next Window", 26473)})});
    RegisterTemplateMenuResources(instance);
    win::RegisterDialogResource(instance, CWarningDlg::IDD, CWarningDlg::Resource());
    CProjectView::RegisterBitmaps(instance);
}

ComponentResourceScope::ComponentResourceScope() : before_(afx::AfxGetResourceHandle()) {
    afx::AfxSetResourceHandle(ComponentInstance());
}

ComponentResourceScope::~ComponentResourceScope() {
    afx::AfxSetResourceHandle(before_);
}

}  // namespace velorand
