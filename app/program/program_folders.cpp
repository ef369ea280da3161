#include "app/program/program_folders.h"

#include <limits.h>
#include <stdlib.h>
#include <unistd.h>

namespace velorand::program {

namespace {

std::string ParentOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos || slash == 0 ? std::string("/") : path.substr(0, slash);
}

}  // namespace

std::string InstallFolder() {
    char buffer[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (length <= 0) {
        return {};
    }
    return ParentOf(ParentOf(std::string(buffer, static_cast<std::size_t>(length))));
}

void AddLibraryFolders() {
    const std::string install = InstallFolder();
    if (install.empty()) {
        return;
    }
    const char* before = getenv("VELORAND_LIBRARY_PATH");
    std::string path = before != nullptr && *before != '\0' ? std::string(before) + ":" : "";
    path += install + "/lib:" + install + "/siblings";
    setenv("VELORAND_LIBRARY_PATH", path.c_str(), 1);
}

std::string ExamplesFolder() {
    return InstallFolder() + "/share/velorand/examples";
}

}  // namespace velorand::program
