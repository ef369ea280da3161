// The component's own module: its instance handle, under which its resources are kept,
// and a scope in which the framework looks for resources there rather than in the host's.
#pragma once

#include "platform/win/types.h"

namespace velorand {

// The handle of the component's module: its load address, as the platform has it.
win::HINSTANCE ComponentInstance();

// Registers the component's menus and strings under its instance; again is harmless.
void RegisterComponentResources();
// The "&Layout" and "&Parts" menus that the project adds to the simulator template's menu.
void RegisterTemplateMenuResources(win::HINSTANCE instance);

// While it lives, templates and frames made by the framework take the component's
// resources; the host's resource module comes back at its end.
class ComponentResourceScope {
  public:
    ComponentResourceScope();
    ~ComponentResourceScope();
    ComponentResourceScope(const ComponentResourceScope&) = delete;
    ComponentResourceScope& operator=(const ComponentResourceScope&) = delete;

  private:
    win::HINSTANCE before_;
};

}  // namespace velorand
