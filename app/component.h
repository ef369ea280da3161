// The component as the host holds it: a library loaded by name, whose LinkProjectDll
// gives the project's document template, and whose UnlinkProjectDll ends it before the
// library is freed.
#pragma once

#include <string>

#include "platform/win/types.h"

namespace afx {
class CDocTemplate;
}

namespace velorand::host {

class Component {
  public:
    Component() = default;
    // Unlinks and frees a component that is still loaded.
    ~Component();
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    // Loads the library (win::LoadLibrary's names) and calls its LinkProjectDll. False,
    // with the reason in `error` and nothing loaded, when the library cannot be loaded or
    // lacks one of the two exports, or when one is loaded already.
    bool Load(const std::string& name, std::string& error);
    // Calls UnlinkProjectDll and frees the library; nothing when none is loaded.
    void Unload();

    bool Loaded() const { return module_ != nullptr; }
    // What LinkProjectDll gave: the document template, or null when it could make none.
    afx::CDocTemplate* Template() const { return template_; }

  private:
    using UnlinkProc = int (*)();

    win::HMODULE module_ = nullptr;
    UnlinkProc unlink_ = nullptr;
    afx::CDocTemplate* template_ = nullptr;
};

}  // namespace velorand::host
