// Where the document finds the suite's settings: the registry tree of the suite, or the
// application's settings file when the tree has no "Simulator" value.
#include <unistd.h>

#include <climits>
#include <cstring>
#include <string>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/win/config_files.h"
#include "platform/win/private_profile.h"
#include "platform/win/registry.h"

namespace velorand {

namespace {

// The keys are kept in 257-byte buffers where the suite keeps them.
constexpr std::size_t kKeyLength = 256;
constexpr win::REGSAM kReadWrite = win::KEY_READ | win::KEY_WRITE;

// The running program's file name without folder and extension.
std::string ApplicationName() {
    char buffer[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (length <= 0) {
        return "";
    }
    std::string name(FileNamePart(std::string_view(buffer, static_cast<std::size_t>(length))));
    std::size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) {
        name.erase(dot);
    }
    return name.substr(0, kKeyLength);
}

}  // namespace

void CProjectDoc::ChooseSettingsStore() {
    appKey = ApplicationName();
    if (GetSuiteProfileString("Template List", "Simulator", "").empty()) {
        registryKey.reset();
        // A file name without folder is looked for beside the application's profile.
        appKey = std::string(FileNamePart(win::AppProfilePath()).substr(0, kKeyLength));
    }
}

win::HKEY CProjectDoc::GetSuiteRegistryKey() const {
    win::HKEY software = nullptr;
    if (win::RegOpenKeyEx(win::HKEY_LOCAL_MACHINE, "Software", 0, kReadWrite, &software) != 0) {
        return nullptr;
    }
    win::HKEY suite = nullptr;
    win::HKEY app = nullptr;
    if (win::RegCreateKeyEx(software, registryKey->c_str(), 0, nullptr,
                            win::REG_OPTION_NON_VOLATILE, kReadWrite, nullptr, &suite,
                            nullptr) == 0) {
        win::RegCreateKeyEx(suite, appKey.c_str(), 0, nullptr, win::REG_OPTION_NON_VOLATILE,
                            kReadWrite, nullptr, &app, nullptr);
        win::RegCloseKey(suite);
    }
    win::RegCloseKey(software);
    return app;
}

win::HKEY CProjectDoc::GetSuiteSectionKey(const char* section) const {
    win::HKEY app = GetSuiteRegistryKey();
    if (app == nullptr) {
        return nullptr;
    }
    win::HKEY key = nullptr;
    win::RegCreateKeyEx(app, section, 0, nullptr, win::REG_OPTION_NON_VOLATILE, kReadWrite, nullptr,
                        &key, nullptr);
    win::RegCloseKey(app);
    return key;
}

std::string CProjectDoc::GetSuiteProfileString(const char* section, const char* entry,
                                               const char* defaultValue) const {
    if (!registryKey) {
        char buffer[4096];
        win::GetPrivateProfileString(section, entry, defaultValue, buffer, sizeof buffer,
                                     appKey.c_str());
        return buffer;
    }
    win::HKEY key = GetSuiteSectionKey(section);
    if (key == nullptr) {
        return defaultValue;
    }
    std::string value = defaultValue;
    win::DWORD size = 0;
    if (win::RegQueryValueEx(key, entry, nullptr, nullptr, nullptr, &size) == 0) {
        std::string data(size, '\0');
        if (win::RegQueryValueEx(key, entry, nullptr, nullptr,
                                 reinterpret_cast<win::LPBYTE>(data.data()), &size) == 0) {
            value = data.c_str();
        }
    }
    win::RegCloseKey(key);
    return value;
}

}  // namespace velorand
