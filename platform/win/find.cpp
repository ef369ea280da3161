#include "platform/win/find.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win/last_error.h"
#include "platform/win/paths.h"
#include "platform/win/posix_file.h"

namespace win {

namespace {

char Lower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

// '*' and '?' without regard to case; a '*' that fails to match backs up to the last one.
bool Glob(std::string_view pattern, std::string_view name) {
    std::size_t p = 0, n = 0;
    std::optional<std::size_t> star;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starName = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || Lower(pattern[p]) == Lower(name[n]))) {
            ++p;
            ++n;
        } else if (star) {
            p = *star + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

// Names in order without regard to case, and by their bytes among equals.
bool LessNoCase(const std::string& a, const std::string& b) {
    auto lower = [](std::string text) {
        for (char& c : text)
            c = Lower(c);
        return text;
    };
    std::string la = lower(a), lb = lower(b);
    return la != lb ? la < lb : a < b;
}

struct Search {
    std::vector<_finddata_t> entries;
    std::size_t next = 0;
};

std::mutex searchesMutex;
std::map<std::intptr_t, Search> searches;
std::intptr_t lastHandle = 0;

int Fail(int err, DWORD code) {
    errno = err;
    SetLastError(code);
    return -1;
}

_finddata_t Entry(const std::string& folder, const std::string& name) {
    _finddata_t data{};
    std::string path = folder + "/" + name;
    struct stat info;
    if (stat(path.c_str(), &info) == 0 || lstat(path.c_str(), &info) == 0) {
        if (S_ISDIR(info.st_mode))
            data.attrib |= _A_SUBDIR;
        if (internal::IsReadOnly(info.st_mode))
            data.attrib |= _A_RDONLY;
        data.time_create = info.st_ctime;
        data.time_access = info.st_atime;
        data.time_write = info.st_mtime;
        data.size = S_ISDIR(info.st_mode) ? 0 : static_cast<unsigned long>(info.st_size);
    }
    std::memcpy(data.name, name.c_str(), name.size() + 1);
    return data;
}

}  // namespace

bool MatchesWildcard(const char* pattern, const char* name) {
    std::string_view p = pattern;
    if (Glob(p, name))
        return true;
    // A trailing ".*" also matches a name with no extension at all.
    return p.size() >= 2 && p.substr(p.size() - 2) == ".*" && Glob(p.substr(0, p.size() - 2), name);
}

std::intptr_t _findfirst(const char* fileSpec, _finddata_t* fileInfo) {
    if (fileSpec == nullptr || fileInfo == nullptr)
        return Fail(EINVAL, ERROR_INVALID_PARAMETER);
    std::string full = FullPlatformPath(fileSpec);
    std::size_t cut = full.find_last_of('\\');
    std::string folderPath = full.substr(0, cut + 1);
    std::string pattern = full.substr(cut + 1);
    if (full.size() > MAX_PATH - 1 || pattern.find_first_of("<>:\"|") != std::string::npos)
        return Fail(EINVAL, ERROR_BAD_PATHNAME);
    std::optional<std::string> folder = PosixPath(folderPath);
    if (!folder)
        return Fail(EINVAL, GetLastError());
    if (pattern.empty())
        return Fail(ENOENT, ERROR_FILE_NOT_FOUND);

    DIR* dir = opendir(folder->c_str());
    if (!dir) {
        bool missing = errno == ENOENT || errno == ENOTDIR;
        return Fail(ENOENT, missing ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
    }
    // A drive's root has no "." and "..", as on the platform.
    bool driveRoot = folderPath.size() == 3;
    std::vector<std::string> names;
    while (dirent* entry = readdir(dir)) {
        std::string name = entry->d_name;
        if (driveRoot && (name == "." || name == ".."))
            continue;
        if (name.size() < MAX_PATH && MatchesWildcard(pattern.c_str(), name.c_str()))
            names.push_back(std::move(name));
    }
    closedir(dir);
    if (names.empty())
        return Fail(ENOENT, ERROR_FILE_NOT_FOUND);
    std::sort(names.begin(), names.end(), LessNoCase);

    Search search;
    for (const std::string& name : names)
        search.entries.push_back(Entry(*folder, name));
    *fileInfo = search.entries[0];
    search.next = 1;
    std::lock_guard lock(searchesMutex);
    std::intptr_t handle = ++lastHandle;
    searches.emplace(handle, std::move(search));
    return handle;
}

int _findnext(std::intptr_t handle, _finddata_t* fileInfo) {
    std::lock_guard lock(searchesMutex);
    auto search = searches.find(handle);
    if (search == searches.end() || fileInfo == nullptr)
        return Fail(EINVAL, ERROR_INVALID_HANDLE);
    if (search->second.next >= search->second.entries.size())
        return Fail(ENOENT, ERROR_NO_MORE_FILES);
    *fileInfo = search->second.entries[search->second.next++];
    return 0;
}

int _findclose(std::intptr_t handle) {
    std::lock_guard lock(searchesMutex);
    if (searches.erase(handle) == 0)
        return Fail(EINVAL, ERROR_INVALID_HANDLE);
    return 0;
}

}  // namespace win
