#include "core/tool_group_kit.h"

#include "platform/win/library.h"

namespace velorand {

namespace {

constexpr char kLibrary[] = "ToolGroupKit";

// Calls the export with the arguments while the library is loaded; `fallback` when it
// can't be had.
template <class Result, class... Args>
Result Call(const char* name, Result fallback, Args... args) {
    win::HMODULE module = win::LoadLibrary(kLibrary);
    if (module == nullptr) {
        return fallback;
    }
    Result result = fallback;
    if (auto proc = reinterpret_cast<Result (*)(Args...)>(win::GetProcAddress(module, name))) {
        result = proc(args...);
    }
    win::FreeLibrary(module);
    return result;
}

template <class... Args>
void CallVoid(const char* name, Args... args) {
    win::HMODULE module = win::LoadLibrary(kLibrary);
    if (module == nullptr) {
        return;
    }
    if (auto proc = reinterpret_cast<void (*)(Args...)>(win::GetProcAddress(module, name))) {
        proc(args...);
    }
    win::FreeLibrary(module);
}

}  // namespace

int RegisterToolGroup(const char* group, const char* title, win::HINSTANCE instance,
                      const win::UINT* ids, win::UINT count, win::SIZE* sizes) {
    return Call<int>("RegisterToolGroup", 0, group, title, instance, ids, count, sizes);
}

void LoadToolGroup(const char* group, win::HINSTANCE instance, afx::CWnd* frame, win::UINT id) {
    CallVoid("LoadToolGroup", group, instance, frame, id);
}

void UnloadToolGroup(const char* group, int finally) {
    CallVoid("UnloadToolGroup", group, finally);
}

}  // namespace velorand
