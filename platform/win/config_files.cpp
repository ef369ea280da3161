#include "platform/win/config_files.h"

#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

namespace win {

namespace {

std::string NonEmptyEnv(const char* name) {
    const char* value = getenv(name);
    return value ? value : "";
}

std::string ConfigFile(const char* variable, const char* name) {
    std::string path = NonEmptyEnv(variable);
    if (!path.empty())
        return path;
    std::string folder = NonEmptyEnv("XDG_CONFIG_HOME");
    if (folder.empty()) {
        std::string home = NonEmptyEnv("HOME");
        if (home.empty()) {
            const passwd* user = getpwuid(getuid());
            home = user && user->pw_dir ? user->pw_dir : "/";
        }
        folder = home + "/.config";
    }
    return folder + "/velorand/" + name;
}

}  // namespace

std::string AppProfilePath() {
    return ConfigFile("VELORAND_PROFILE", "velorand.ini");
}

std::string RegistryPath() {
    return ConfigFile("VELORAND_REGISTRY", "registry.ini");
}

}  // namespace win
