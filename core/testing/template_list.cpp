#include "core/testing/template_list.h"

#include <errno.h>

#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"

namespace velorand::testing {

void InstallTemplateList(const std::string& lines) {
    std::string text;
    const std::string apps[] = {"vel85", program_invocation_short_name};
    for (const std::string& app : apps) {
        text += "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\" + app +
                "\\Template List]\n" + lines;
    }
    WriteFile(win::RegistryPath(), text);
}

}  // namespace velorand::testing
