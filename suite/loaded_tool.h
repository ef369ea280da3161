// Tests call a tool as the component does: load its library, look up "main", call it
// with an argument vector on this thread, unload it.
#pragma once

#include <dlfcn.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"
#include "platform/win/library.h"

namespace suite::testing {

inline std::string ToolLibraryPath(const std::string& tool) {
    return std::string(VELORAND_TOOL_DIR) + "/lib" + tool + ".so";
}

// Runs the tool with argv[0] = its name and the given arguments; the tool's result. The
// library is found by its bare name through VELORAND_LIBRARY_PATH, as the launcher finds
// it. A library that doesn't load or has no main fails the test and gives -2.
inline int CallTool(const std::string& tool, const std::vector<std::string>& arguments) {
    setenv("VELORAND_LIBRARY_PATH", VELORAND_TOOL_DIR, 1);
    win::HMODULE library = win::LoadLibrary(tool.c_str());
    if (library == nullptr) {
        ADD_FAILURE() << "cannot load " << tool << ": error " << win::GetLastError();
        return -2;
    }
    using Main = int (*)(int, char**);
    auto entry = reinterpret_cast<Main>(win::GetProcAddress(library, "main"));
    int result = -2;
    if (entry == nullptr) {
        ADD_FAILURE() << tool << " has no main";
    } else {
        // The strings are only lent to the tool for the call, as the launcher lends them.
        std::vector<std::string> strings{tool};
        strings.insert(strings.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& s : strings)
            argv.push_back(s.data());
        argv.push_back(nullptr);
        result = entry(static_cast<int>(strings.size()), argv.data());
    }
    win::FreeLibrary(library);
    return result;
}

// Whether the tool's library is still in the process.
inline bool ToolIsLoaded(const std::string& tool) {
    void* library = dlopen(ToolLibraryPath(tool).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr)
        dlclose(library);
    return library != nullptr;
}

// Copies the example project amp2 to C:\amp2 of the sandbox.
inline void CopyExampleProject(const velorand::testing::Sandbox& sandbox) {
    std::filesystem::copy(std::string(VELORAND_EXAMPLES_DIR) + "/amp2", sandbox.Posix("amp2"),
                          std::filesystem::copy_options::recursive);
}

}  // namespace suite::testing
