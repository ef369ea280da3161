#include "core/simulator_info.h"

#include <algorithm>

#include "core/file_kinds.h"
#include "platform/win/registry.h"
#include "platform/win/strings.h"

namespace velorand {

std::string ReadTemplateSetting(const char* section, const char* entry, const char* defaultValue) {
    std::string value = defaultValue ? defaultValue : "";
    win::HKEY software = nullptr;
    if (win::RegOpenKeyEx(win::HKEY_LOCAL_MACHINE, "Software", 0, win::KEY_READ, &software) != 0)
        return value;
    const std::string path = std::string(kTemplateSettingsKey) + (section ? section : "");
    win::HKEY key = nullptr;
    if (win::RegOpenKeyEx(software, path.c_str(), 0, win::KEY_READ, &key) == 0) {
        win::DWORD size = 0;
        if (win::RegQueryValueEx(key, entry, nullptr, nullptr, nullptr, &size) == 0 && size > 0) {
            std::string data(size, '\0');
            if (win::RegQueryValueEx(key, entry, nullptr, nullptr,
                                     reinterpret_cast<win::BYTE*>(data.data()), &size) == 0) {
                data.resize(std::min<std::size_t>(size, data.size()));
                // The value comes with its closing zero.
                value.assign(data.c_str());
            }
        }
        win::RegCloseKey(key);
    }
    win::RegCloseKey(software);
    return value;
}

bool ExtractListEntry(const std::string& list, int index, char separator, std::string& out) {
    out.clear();
    if (index < 0)
        return false;
    std::size_t start = 0;
    for (int i = 0; i < index; ++i) {
        std::size_t next = list.find(separator, start);
        if (next == std::string::npos)
            return false;
        start = next + 1;
    }
    std::size_t end = list.find(separator, start);
    out = list.substr(start, end == std::string::npos ? std::string::npos : end - start);
    return true;
}

SimulatorInfo::SimulatorInfo(std::int32_t index) {
    if (index == 0) {
        translator = "sch2qt";
        netlistExtension = GetFileExtension(kNetlistSimulator0);
        shortTag = "qvx";
        std::string first;
        ExtractListEntry(ReadTemplateSetting("Template List", "Simulator", ""), 0, ',', first);
        if (win::EqualNoCase(first, "Quintaris") || win::EqualNoCase(first, "Prime-Lattice"))
            displayName = first;
        else
            displayName = "Not Installed";
    } else if (index == 1) {
        translator = "sch2lm";
        netlistExtension = GetFileExtension(kNetlistSimulator1);
        shortTag = "pln";
        displayName = "Lumentra";
    }
}

}  // namespace velorand
