#include "app/program/demo.h"

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "app/program/program_folders.h"

namespace velorand::program {

namespace {

namespace fs = std::filesystem;

bool WriteText(const fs::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    return static_cast<bool>(out.flush());
}

// The suite's template list, under the suite's own key and the program's, where an
// installation leaves it.
std::string Registry() {
    std::string text;
    for (const char* app : {"vel85", "velorand"}) {
        text += std::string("[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\") + app +
                "\\Template List]\nSimulator=Quintaris,Lumentra\n";
    }
    return text;
}

}  // namespace

DemoWorld::~DemoWorld() {
    if (!folder_.empty() && !keep_) {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
}

bool DemoWorld::Prepare(std::string& error) {
    const char* tmp = getenv("TMPDIR");
    std::string pattern =
        std::string(tmp != nullptr && *tmp != '\0' ? tmp : "/tmp") + "/velorand-demo-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        error = "can't make a folder for the demo in " + pattern;
        return false;
    }
    folder_ = pattern;
    const fs::path folder(folder_);
    std::error_code failure;
    fs::copy(fs::path(ExamplesFolder()) / "amp2", folder / "amp2", fs::copy_options::recursive,
             failure);
    if (failure) {
        error = "can't copy the example " + ExamplesFolder() + "/amp2: " + failure.message();
        return false;
    }
    fs::create_directory(folder / "config", failure);
    const fs::path profile = folder / "config" / "velorand.ini";
    const fs::path registry = folder / "config" / "registry.ini";
    if (failure || !WriteText(profile, "[Project]\nSkipNetlist=0\n") ||
        !WriteText(registry, Registry())) {
        error = "can't write the demo's settings in " + (folder / "config").string();
        return false;
    }
    setenv("VELORAND_PROFILE", profile.c_str(), 1);
    setenv("VELORAND_REGISTRY", registry.c_str(), 1);
    return true;
}

std::string DemoWorld::Script() const {
    return ExamplesFolder() + "/amp2_demo.script";
}

}  // namespace velorand::program
