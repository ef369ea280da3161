#include "platform/win/library.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

#include <cctype>
#include <climits>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/last_error.h"
#include "platform/win/strings.h"

namespace win {

namespace {

struct Loaded {
    void* library;
    int loads;
};

std::mutex modulesMutex;
std::map<std::uintptr_t, Loaded> modules;
std::uintptr_t lastModule = 0;

std::string ProgramFolder() {
    char buffer[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (length <= 0)
        return "";
    std::string program(buffer, static_cast<std::size_t>(length));
    return program.substr(0, program.find_last_of('/'));
}

// The files to try for a library name, in order; the last is left to the system's search.
std::vector<std::string> Candidates(std::string_view name) {
    if (name.find('/') != std::string_view::npos || name.ends_with(".so"))
        return {std::string(name)};
    if (EndsWithNoCase(name, ".dll"))
        name.remove_suffix(4);
    std::string file = "lib" + std::string(name) + ".so";

    std::vector<std::string> folders;
    const char* path = getenv("VELORAND_LIBRARY_PATH");
    std::string_view list = path ? path : "";
    while (!list.empty()) {
        std::size_t colon = list.find(':');
        std::string_view folder = list.substr(0, colon);
        if (!folder.empty())
            folders.emplace_back(folder);
        list = colon == std::string_view::npos ? "" : list.substr(colon + 1);
    }
    std::string program = ProgramFolder();
    if (!program.empty()) {
        folders.push_back(program + "/../lib");
        folders.push_back(program + "/lib");
    }
    std::vector<std::string> candidates;
    for (const std::string& folder : folders) {
        std::string candidate = folder + "/" + file;
        if (access(candidate.c_str(), F_OK) == 0)
            candidates.push_back(candidate);
    }
    candidates.push_back(file);
    return candidates;
}

}  // namespace

HMODULE LoadLibrary(LPCSTR fileName) {
    if (fileName == nullptr || *fileName == '\0') {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    for (const std::string& candidate : Candidates(fileName)) {
        void* library = dlopen(candidate.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!library)
            continue;
        std::lock_guard lock(modulesMutex);
        for (auto& [number, loaded] : modules) {
            if (loaded.library == library) {
                ++loaded.loads;
                return HandleFromNumber<HMODULE>(number);
            }
        }
        modules[++lastModule] = Loaded{library, 1};
        return HandleFromNumber<HMODULE>(lastModule);
    }
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR procName) {
    std::lock_guard lock(modulesMutex);
    auto loaded = modules.find(NumberFromHandle(module));
    if (loaded == modules.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    void* address = procName ? dlsym(loaded->second.library, procName) : nullptr;
    if (!address) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return nullptr;
    }
    return reinterpret_cast<FARPROC>(address);
}

BOOL FreeLibrary(HMODULE module) {
    std::lock_guard lock(modulesMutex);
    auto loaded = modules.find(NumberFromHandle(module));
    if (loaded == modules.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    dlclose(loaded->second.library);
    if (--loaded->second.loads == 0)
        modules.erase(loaded);
    return TRUE;
}

}  // namespace win
