#include "core/command_test_mode.h"

#include "platform/win/library.h"

namespace velorand {

int AskCommandTestMode() {
    win::HMODULE module = win::LoadLibrary("qvxtools");
    if (module == nullptr) {
        return 0;
    }
    int mode = 0;
    using Query = int (*)();
    if (auto query = reinterpret_cast<Query>(win::GetProcAddress(module, "IsInCommandTestMode"))) {
        mode = query();
    }
    win::FreeLibrary(module);
    return mode;
}

}  // namespace velorand
