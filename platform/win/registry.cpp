#include "platform/win/registry.h"

#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/win/config_files.h"
#include "platform/win/last_error.h"
#include "platform/win/profile_store.h"

namespace win {

namespace {

struct OpenKey {
    std::string path;
    REGSAM access;
};

std::mutex keysMutex;
std::map<std::uintptr_t, OpenKey> openKeys;
// Handles are never used twice, so that a closed handle stays invalid.
std::uintptr_t nextHandle = 1;

std::optional<OpenKey> Find(HKEY key) {
    if (key == HKEY_LOCAL_MACHINE)
        return OpenKey{"HKEY_LOCAL_MACHINE", KEY_ALL_ACCESS};
    if (key == HKEY_CLASSES_ROOT)
        return OpenKey{"HKEY_CLASSES_ROOT", KEY_ALL_ACCESS};
    std::lock_guard lock(keysMutex);
    auto found = openKeys.find(NumberFromHandle(key));
    if (found == openKeys.end())
        return std::nullopt;
    return found->second;
}

HKEY Open(std::string path, REGSAM access) {
    std::lock_guard lock(keysMutex);
    std::uintptr_t number = nextHandle++;
    openKeys.emplace(number, OpenKey{std::move(path), access});
    return HandleFromNumber<HKEY>(number);
}

// The full path of a subkey, or the error that the name gives.
LONG SubKeyPath(const std::string& base, LPCSTR subKey, std::string& path) {
    path = base;
    std::string_view name = subKey ? subKey : "";
    if (!name.empty() && name.front() == '\\')
        return static_cast<LONG>(ERROR_BAD_PATHNAME);
    // The key's name becomes a section head: it must stay one line and one head.
    if (name.find_first_of("]\r\n") != std::string_view::npos)
        return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    while (!name.empty() && name.back() == '\\')
        name.remove_suffix(1);
    if (!name.empty())
        path.append("\\").append(name);
    return static_cast<LONG>(ERROR_SUCCESS);
}

bool Exists(const ProfileFile& registry, const std::string& path) {
    return path.find('\\') == std::string::npos || registry.HasSection(path) ||
           registry.HasSectionStartingWith(path + "\\");
}

bool IsBlankOrQuote(char c) {
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '"' || c == '\'';
}

// How a value stands in the file so that reading gives it back unchanged: in quotes when
// blanks or quotes at its ends would otherwise be dropped.
std::string Stored(std::string_view value) {
    if (!value.empty() && (IsBlankOrQuote(value.front()) || IsBlankOrQuote(value.back())))
        return "\"" + std::string(value) + "\"";
    return std::string(value);
}

// The full path of a subkey of an open key, for a call that will hand back a handle.
LONG KeyPath(HKEY key, LPCSTR subKey, PHKEY result, std::string& path) {
    if (result == nullptr)
        return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    std::optional<OpenKey> base = Find(key);
    if (!base)
        return static_cast<LONG>(ERROR_INVALID_HANDLE);
    return SubKeyPath(base->path, subKey, path);
}

std::string_view ValueName(LPCSTR name) {
    return name && *name ? name : "@";
}

}  // namespace

LONG RegOpenKeyEx(HKEY key, LPCSTR subKey, DWORD options, REGSAM access, PHKEY result) {
    std::string path;
    if (LONG error = KeyPath(key, subKey, result, path))
        return error;
    if (!Exists(*LoadProfile(RegistryPath()), path))
        return static_cast<LONG>(ERROR_FILE_NOT_FOUND);
    *result = Open(std::move(path), access);
    return static_cast<LONG>(ERROR_SUCCESS);
}

LONG RegCreateKeyEx(HKEY key, LPCSTR subKey, DWORD reserved, LPSTR keyClass, DWORD options,
                    REGSAM access, LPVOID securityAttributes, PHKEY result, LPDWORD disposition) {
    std::string path;
    if (LONG error = KeyPath(key, subKey, result, path))
        return error;
    bool existed = Exists(*LoadProfile(RegistryPath()), path);
    if (!existed) {
        DWORD error = EditProfile(
            RegistryPath(), [&](const ProfileFile& file) { return file.AddSection(path); }, true);
        if (error != ERROR_SUCCESS)
            return static_cast<LONG>(error);
    }
    if (disposition)
        *disposition = existed ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
    *result = Open(std::move(path), access);
    return static_cast<LONG>(ERROR_SUCCESS);
}

LONG RegQueryValueEx(HKEY key, LPCSTR valueName, LPDWORD reserved, LPDWORD type, LPBYTE data,
                     LPDWORD size) {
    std::optional<OpenKey> open = Find(key);
    if (!open)
        return static_cast<LONG>(ERROR_INVALID_HANDLE);
    if (!(open->access & KEY_QUERY_VALUE))
        return static_cast<LONG>(ERROR_ACCESS_DENIED);
    if (data && !size)
        return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    std::shared_ptr<const ProfileFile> registry = LoadProfile(RegistryPath());
    std::optional<std::string_view> stored = registry->Value(open->path, ValueName(valueName));
    if (!stored)
        return static_cast<LONG>(ERROR_FILE_NOT_FOUND);
    std::string_view value = Unquoted(*stored);
    DWORD needed = static_cast<DWORD>(value.size() + 1);
    if (type)
        *type = REG_SZ;
    if (!data) {
        if (size)
            *size = needed;
        return static_cast<LONG>(ERROR_SUCCESS);
    }
    if (*size < needed) {
        *size = needed;
        return static_cast<LONG>(ERROR_MORE_DATA);
    }
    std::memcpy(data, value.data(), value.size());
    data[value.size()] = 0;
    *size = needed;
    return static_cast<LONG>(ERROR_SUCCESS);
}

LONG RegSetValueEx(HKEY key, LPCSTR valueName, DWORD reserved, DWORD type, const BYTE* data,
                   DWORD size) {
    std::optional<OpenKey> open = Find(key);
    if (!open)
        return static_cast<LONG>(ERROR_INVALID_HANDLE);
    if (!(open->access & KEY_SET_VALUE))
        return static_cast<LONG>(ERROR_ACCESS_DENIED);
    if (type != REG_SZ || (data == nullptr && size != 0))
        return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    std::string_view value(reinterpret_cast<const char*>(data), data ? size : 0);
    value = value.substr(0, value.find('\0'));
    std::string_view name = ValueName(valueName);
    if (value.find_first_of("\r\n") != std::string_view::npos ||
        name.find_first_of("=\r\n") != std::string_view::npos)
        return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    std::string line = Stored(value);
    DWORD error = EditProfile(
        RegistryPath(),
        [&](const ProfileFile& file) { return file.SetValue(open->path, name, line); }, true);
    return static_cast<LONG>(error);
}

LONG RegCloseKey(HKEY key) {
    if (key == HKEY_LOCAL_MACHINE || key == HKEY_CLASSES_ROOT)
        return static_cast<LONG>(ERROR_SUCCESS);
    std::lock_guard lock(keysMutex);
    return static_cast<LONG>(openKeys.erase(NumberFromHandle(key)) ? ERROR_SUCCESS
                                                                   : ERROR_INVALID_HANDLE);
}

}  // namespace win
