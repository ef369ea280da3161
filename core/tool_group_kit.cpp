#include "core/tool_group_kit.h"

#include "platform/win/library.h"

namespace velorand {

namespace {

win::HMODULE toolGroupKit = nullptr;

// The export as a function of the given type, or null.
template <class Function>
Function Export(const char* name) {
    if (toolGroupKit == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<Function>(win::GetProcAddress(toolGroupKit, name));
}

}  // namespace

void AttachToolGroupKit() {
    if (toolGroupKit == nullptr) {
        toolGroupKit = win::LoadLibrary("ToolGroupKit");
    }
}

void DetachToolGroupKit() {
    if (toolGroupKit != nullptr) {
        win::FreeLibrary(toolGroupKit);
        toolGroupKit = nullptr;
    }
}

int RegisterToolGroup(const char* group, const char* title, win::HINSTANCE instance,
                      const win::UINT* ids, win::UINT count, win::SIZE* sizes) {
    using Proc =
        int (*)(const char*, const char*, win::HINSTANCE, const win::UINT*, win::UINT, win::SIZE*);
    auto proc = Export<Proc>("RegisterToolGroup");
    return proc != nullptr ? proc(group, title, instance, ids, count, sizes) : 0;
}

void LoadToolGroup(const char* group, win::HINSTANCE instance, afx::CWnd* frame, win::UINT id) {
    using Proc = void (*)(const char*, win::HINSTANCE, afx::CWnd*, win::UINT);
    if (auto proc = Export<Proc>("LoadToolGroup")) {
        proc(group, instance, frame, id);
    }
}

void UnloadToolGroup(const char* group, int finally) {
    using Proc = void (*)(const char*, int);
    if (auto proc = Export<Proc>("UnloadToolGroup")) {
        proc(group, finally);
    }
}

int IsCustomizingToolPane(int state) {
    using Proc = int (*)(int);
    auto proc = Export<Proc>("IsCustomizingToolPane");
    return proc != nullptr ? proc(state) : 0;
}

}  // namespace velorand
