#include "platform/win/private_profile.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/win/config_files.h"
#include "platform/win/last_error.h"
#include "platform/win/paths.h"
#include "platform/win/profile_store.h"

namespace win {

namespace {

// A file named by a caller: its POSIX path, and whether a write may make its folder.
struct Location {
    std::string posixPath;
    bool makeFolder;
};

std::optional<Location> Locate(LPCSTR fileName) {
    if (fileName == nullptr || *fileName == '\0') {
        SetLastError(ERROR_INVALID_PARAMETER);
        return std::nullopt;
    }
    if (std::strpbrk(fileName, "\\/:") == nullptr) {
        std::filesystem::path profile = AppProfilePath();
        return Location{(profile.parent_path() / fileName).string(), true};
    }
    std::optional<std::string> posix = PosixPath(fileName);
    if (!posix)
        return std::nullopt;
    return Location{*posix, false};
}

// Mapping a platform path looks at every folder on the way, which costs more than a look-up
// in a cached file. A full path whose names all stood as written maps to the same POSIX path
// for as long as that file exists and the drive table is the same, so reads remember it.
class ExactPaths {
  public:
    std::optional<std::string> Find(const char* fileName) {
        std::lock_guard lock(mutex_);
        if (drives_ != Drives())
            return std::nullopt;
        auto found = paths_.find(std::string_view(fileName));
        if (found == paths_.end())
            return std::nullopt;
        return found->second;
    }

    void Remember(const char* fileName, const std::string& posixPath) {
        if (!IsExact(fileName, posixPath))
            return;
        std::lock_guard lock(mutex_);
        if (drives_ != Drives() || paths_.size() >= kRemembered) {
            paths_.clear();
            drives_ = Drives();
        }
        paths_.insert_or_assign(fileName, posixPath);
    }

    void Forget(const char* fileName) {
        std::lock_guard lock(mutex_);
        paths_.erase(std::string(fileName));
    }

  private:
    static constexpr std::size_t kRemembered = 64;

    static std::string_view Drives() {
        const char* drives = getenv("VELORAND_DRIVES");
        return drives ? drives : "";
    }

    // "X:\a\b" mapped to ".../a/b": rooted on a drive, nothing folded, each name as written.
    static bool IsExact(std::string_view fileName, std::string_view posixPath) {
        if (fileName.size() < 4 || fileName[1] != ':' || fileName[2] != '\\' ||
            fileName.find('/') != std::string_view::npos)
            return false;
        std::string tail(fileName.substr(2));
        if (tail.find("\\\\") != std::string::npos || tail.find("\\.") != std::string::npos ||
            tail.back() == '\\')
            return false;
        for (char& c : tail)
            if (c == '\\')
                c = '/';
        return posixPath.size() > tail.size() && posixPath.ends_with(tail);
    }

    std::mutex mutex_;
    std::string drives_;
    std::map<std::string, std::string, std::less<>> paths_;
};

ExactPaths exactPaths;

// The file that a read names, the empty file when it is missing; null with the last error
// set when the name can't name a file.
std::shared_ptr<const ProfileFile> LoadNamed(LPCSTR fileName) {
    if (fileName != nullptr) {
        if (std::optional<std::string> known = exactPaths.Find(fileName)) {
            bool found;
            std::shared_ptr<const ProfileFile> file = LoadProfile(*known, &found);
            if (found)
                return file;
            exactPaths.Forget(fileName);
        }
    }
    std::optional<Location> location = Locate(fileName);
    if (!location)
        return nullptr;
    bool found;
    std::shared_ptr<const ProfileFile> file = LoadProfile(location->posixPath, &found);
    if (found)
        exactPaths.Remember(fileName, location->posixPath);
    return file;
}

DWORD CopyString(std::string_view text, LPSTR buffer, DWORD size) {
    if (buffer == nullptr || size == 0)
        return 0;
    std::size_t count = std::min<std::size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), count);
    buffer[count] = '\0';
    SetLastError(count < text.size() ? ERROR_MORE_DATA : ERROR_SUCCESS);
    return static_cast<DWORD>(count);
}

// Names, each ended by a NUL, and a NUL after the last; a list that doesn't fit is cut,
// still ending in two NULs.
DWORD CopyList(const std::vector<std::string_view>& items, LPSTR buffer, DWORD size) {
    if (buffer == nullptr || size == 0)
        return 0;
    std::size_t at = 0;
    for (std::string_view item : items) {
        if (item.empty())
            continue;
        if (at + item.size() + 2 > size) {
            if (size < 2) {
                buffer[0] = '\0';
                return 0;
            }
            if (at < size - 2)
                std::memcpy(buffer + at, item.data(), size - 2 - at);
            buffer[size - 2] = '\0';
            buffer[size - 1] = '\0';
            SetLastError(ERROR_MORE_DATA);
            return size - 2;
        }
        std::memcpy(buffer + at, item.data(), item.size());
        at += item.size();
        buffer[at++] = '\0';
    }
    buffer[at] = '\0';
    if (at == 0 && size >= 2)
        buffer[1] = '\0';
    SetLastError(ERROR_SUCCESS);
    return static_cast<DWORD>(at);
}

DWORD CopyDefault(LPCSTR defaultValue, LPSTR buffer, DWORD size) {
    std::string_view text = defaultValue ? defaultValue : "";
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    DWORD copied = CopyString(text, buffer, size);
    if (GetLastError() == ERROR_SUCCESS)
        SetLastError(ERROR_FILE_NOT_FOUND);
    return copied;
}

bool HasLineEnd(LPCSTR text) {
    return text && std::strpbrk(text, "\r\n") != nullptr;
}

UINT ParseInt(std::string_view text) {
    bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    unsigned base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    UINT number = 0;
    for (char c : text) {
        unsigned digit;
        if (c >= '0' && c <= '9')
            digit = static_cast<unsigned>(c - '0');
        else if (base == 16 && c >= 'a' && c <= 'f')
            digit = static_cast<unsigned>(c - 'a' + 10);
        else if (base == 16 && c >= 'A' && c <= 'F')
            digit = static_cast<unsigned>(c - 'A' + 10);
        else
            break;
        number = number * base + digit;
    }
    return negative ? 0u - number : number;
}

DWORD GetString(const ProfileFile& file, LPCSTR section, LPCSTR key, LPCSTR defaultValue,
                LPSTR buffer, DWORD size) {
    if (section == nullptr)
        return CopyList(file.SectionNames(), buffer, size);
    if (key == nullptr) {
        std::optional<std::vector<std::string_view>> names = file.KeyNames(section);
        DWORD copied = CopyList(names ? *names : std::vector<std::string_view>(), buffer, size);
        if (!names)
            SetLastError(ERROR_FILE_NOT_FOUND);
        return copied;
    }
    std::optional<std::string_view> value = file.Value(section, key);
    if (!value)
        return CopyDefault(defaultValue, buffer, size);
    return CopyString(Unquoted(*value), buffer, size);
}

UINT GetInt(const ProfileFile& file, LPCSTR section, LPCSTR key, INT defaultValue) {
    std::optional<std::string_view> value;
    if (section != nullptr && key != nullptr)
        value = file.Value(section, key);
    if (!value || Unquoted(*value).empty())
        return static_cast<UINT>(defaultValue);
    return ParseInt(Unquoted(*value));
}

}  // namespace

DWORD GetProfileStringAt(const std::string& posixPath, LPCSTR section, LPCSTR key,
                         LPCSTR defaultValue, LPSTR buffer, DWORD size) {
    return GetString(*LoadProfile(posixPath), section, key, defaultValue, buffer, size);
}

UINT GetProfileIntAt(const std::string& posixPath, LPCSTR section, LPCSTR key, INT defaultValue) {
    return GetInt(*LoadProfile(posixPath), section, key, defaultValue);
}

BOOL WriteProfileStringAt(const std::string& posixPath, LPCSTR section, LPCSTR key, LPCSTR value,
                          bool makeFolder) {
    if (section == nullptr) {
        // All three null asks to flush the platform's cache; this cache never lags the disk.
        if (key == nullptr && value == nullptr)
            return TRUE;
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    // A line end would break the line into two and the file's layout with it.
    if (HasLineEnd(section) || HasLineEnd(key) || HasLineEnd(value)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::string_view sectionName = section;
    ProfileEdit edit;
    if (key == nullptr)
        edit = [&](const ProfileFile& file) { return file.RemoveSection(sectionName); };
    else if (value == nullptr)
        edit = [&](const ProfileFile& file) { return file.RemoveKey(sectionName, key); };
    else
        edit = [&](const ProfileFile& file) { return file.SetValue(sectionName, key, value); };
    DWORD error = EditProfile(posixPath, edit, makeFolder);
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

DWORD GetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer,
                              DWORD size, LPCSTR fileName) {
    std::shared_ptr<const ProfileFile> file = LoadNamed(fileName);
    if (!file) {
        DWORD error = GetLastError();
        DWORD copied = CopyDefault(defaultValue, buffer, size);
        SetLastError(error);
        return copied;
    }
    return GetString(*file, section, key, defaultValue, buffer, size);
}

DWORD GetPrivateProfileSection(LPCSTR section, LPSTR buffer, DWORD size, LPCSTR fileName) {
    std::shared_ptr<const ProfileFile> file = LoadNamed(fileName);
    DWORD error = file ? ERROR_FILE_NOT_FOUND : GetLastError();
    std::vector<std::string> lines;
    if (file && section) {
        if (std::optional<std::vector<ProfileFile::Entry>> entries = file->Entries(section)) {
            error = ERROR_SUCCESS;
            for (const ProfileFile::Entry& entry : *entries) {
                std::string line(entry.key);
                if (entry.isKey)
                    line.append("=").append(entry.value);
                lines.push_back(std::move(line));
            }
        }
    }
    DWORD copied =
        CopyList(std::vector<std::string_view>(lines.begin(), lines.end()), buffer, size);
    if (error != ERROR_SUCCESS)
        SetLastError(error);
    return copied;
}

UINT GetPrivateProfileInt(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName) {
    std::shared_ptr<const ProfileFile> file = LoadNamed(fileName);
    if (!file)
        return static_cast<UINT>(defaultValue);
    return GetInt(*file, section, key, defaultValue);
}

BOOL WritePrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR fileName) {
    std::optional<Location> location = Locate(fileName);
    if (!location)
        return FALSE;
    return WriteProfileStringAt(location->posixPath, section, key, value, location->makeFolder);
}

}  // namespace win
