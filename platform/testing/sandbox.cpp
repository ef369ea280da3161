#include "platform/testing/sandbox.h"

#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace velorand::testing {

namespace fs = std::filesystem;

Sandbox::Sandbox() {
    std::string pattern = (fs::temp_directory_path() / "velorand-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("mkdtemp failed");
    root_ = pattern;
    for (const char* dir : {"c", "config", "tmp", "run"})
        fs::create_directories(root_ / dir);
    fs::permissions(root_ / "run", fs::perms::owner_all, fs::perm_options::replace);
    SetEnv("VELORAND_DRIVES", "C=" + (root_ / "c").string());
    SetEnv("VELORAND_PROFILE", (root_ / "config" / "velorand.ini").string());
    SetEnv("VELORAND_REGISTRY", (root_ / "config" / "registry.ini").string());
    SetEnv("XDG_CONFIG_HOME", (root_ / "config").string());
    SetEnv("XDG_RUNTIME_DIR", (root_ / "run").string());
    SetEnv("TMPDIR", (root_ / "tmp").string());
    SetEnv("VELORAND_LIBRARY_PATH", "");
}

Sandbox::~Sandbox() {
    for (const auto& [name, value] : savedEnv_) {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }
    std::error_code ignored;
    // Read-only files and folders made by a test must not keep the sandbox alive.
    for (auto it = fs::recursive_directory_iterator(root_, ignored);
         it != fs::recursive_directory_iterator(); it.increment(ignored)) {
        fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(root_, ignored);
}

void Sandbox::SetEnv(const char* name, const std::string& value) {
    if (!savedEnv_.contains(name)) {
        const char* old = getenv(name);
        savedEnv_[name] = old ? std::optional<std::string>(old) : std::nullopt;
    }
    setenv(name, value.c_str(), 1);
}

fs::path Sandbox::Posix(const std::string& relative) const {
    return root_ / "c" / relative;
}

std::string Sandbox::Platform(const std::string& relative) const {
    std::string path = "C:\\" + relative;
    for (char& c : path)
        if (c == '/')
            c = '\\';
    return path;
}

fs::path Sandbox::Write(const std::string& relative, const std::string& text) const {
    fs::path path = Posix(relative);
    WriteFile(path, text);
    return path;
}

std::string Sandbox::Read(const std::string& relative) const {
    return ReadFile(Posix(relative));
}

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteFile(const fs::path& path, const std::string& text) {
    if (path.has_parent_path())
        fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
}

}  // namespace velorand::testing
