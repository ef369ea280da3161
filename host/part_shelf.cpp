#include "host/part_shelf.h"

#include "platform/win/library.h"

namespace velorand {

namespace {

win::HMODULE partShelf = nullptr;

template <class Function>
Function Export(const char* name) {
    if (partShelf == nullptr)
        return nullptr;
    return reinterpret_cast<Function>(win::GetProcAddress(partShelf, name));
}

}  // namespace

void AttachPartShelf() {
    if (partShelf == nullptr)
        partShelf = win::LoadLibrary("partshelf");
}

void DetachPartShelf() {
    if (partShelf != nullptr) {
        win::FreeLibrary(partShelf);
        partShelf = nullptr;
    }
}

win::HWND GetPartShelfHandle() {
    using Proc = win::HWND (*)();
    auto proc = Export<Proc>("GetPartShelfHandle");
    return proc != nullptr ? proc() : nullptr;
}

void SelectDevice(const char* arguments, int flags) {
    using Proc = void (*)(const char*, int);
    if (auto proc = Export<Proc>("SelectDevice"))
        proc(arguments, flags);
}

}  // namespace velorand
