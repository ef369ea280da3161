#include "app/component.h"

#include <cstdio>

#include "platform/win/last_error.h"
#include "platform/win/library.h"

namespace velorand::host {

namespace {

using LinkProc = afx::CDocTemplate* (*)();

}  // namespace

Component::~Component() {
    Unload();
}

bool Component::Load(const std::string& name, std::string& error) {
    if (module_ != nullptr) {
        error = "A component is loaded already.";
        return false;
    }
    win::HMODULE module = win::LoadLibrary(name.c_str());
    if (module == nullptr) {
        char code[16];
        std::snprintf(code, sizeof code, "%x", win::GetLastError());
        error = "Unable to load the component '" + name + "' (error code " + code + ").";
        return false;
    }
    auto link = reinterpret_cast<LinkProc>(win::GetProcAddress(module, "LinkProjectDll"));
    auto unlink = reinterpret_cast<UnlinkProc>(win::GetProcAddress(module, "UnlinkProjectDll"));
    if (link == nullptr || unlink == nullptr) {
        error = "The library '" + name + "' is no component: it lacks " +
                (link == nullptr ? "LinkProjectDll." : "UnlinkProjectDll.");
        win::FreeLibrary(module);
        return false;
    }
    module_ = module;
    unlink_ = unlink;
    template_ = link();
    return true;
}

void Component::Unload() {
    if (module_ == nullptr) {
        return;
    }
    // The component's objects go before its code does.
    unlink_();
    win::FreeLibrary(module_);
    module_ = nullptr;
    unlink_ = nullptr;
    template_ = nullptr;
}

}  // namespace velorand::host
