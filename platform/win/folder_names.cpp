#include "platform/win/folder_names.h"

#include <dirent.h>
#include <sys/stat.h>
#include <time.h>

#include <cstdint>
#include <map>
#include <unordered_map>

#include "platform/win/strings.h"

namespace win {

namespace {

// The file system stamps a change with a clock that advances by ticks of a few
// milliseconds; a folder changed this shortly before its names were read may change again
// within the same tick, with the same stamp, and its names are read anew.
constexpr std::int64_t kStampSlackNs = 50'000'000;
constexpr std::size_t kKeptFolders = 64;

std::int64_t Nanoseconds(const timespec& t) {
    return static_cast<std::int64_t>(t.tv_sec) * 1'000'000'000 + t.tv_nsec;
}

struct Names {
    dev_t device = 0;
    ino_t inode = 0;
    std::int64_t changed = 0;  // the folder's modification stamp
    std::int64_t read = 0;     // when its names were read
    std::uint64_t used = 0;    // of the last lookup, for the eviction
    std::unordered_map<std::string, std::string> byFolded;
};

std::map<std::string, Names>& Kept() {
    static std::map<std::string, Names> kept;
    return kept;
}

bool Read(const std::string& folder, Names& names) {
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    DIR* dir = opendir(folder.c_str());
    if (!dir)
        return false;
    names.read = Nanoseconds(now);
    names.byFolded.clear();
    while (dirent* entry = readdir(dir)) {
        std::string name = entry->d_name;
        auto [it, added] = names.byFolded.try_emplace(ToLower(name), name);
        if (!added && name < it->second)
            it->second = name;
    }
    closedir(dir);
    return true;
}

}  // namespace

std::optional<std::string> FindNameNoCase(const std::string& folder, const std::string& name) {
    struct stat info;
    if (stat(folder.c_str(), &info) != 0)
        return std::nullopt;
    static std::uint64_t lookups = 0;
    std::map<std::string, Names>& kept = Kept();
    auto it = kept.find(folder);
    if (it == kept.end()) {
        if (kept.size() == kKeptFolders) {
            auto oldest = kept.begin();
            for (auto k = kept.begin(); k != kept.end(); ++k)
                if (k->second.used < oldest->second.used)
                    oldest = k;
            kept.erase(oldest);
        }
        it = kept.emplace(folder, Names()).first;
    }
    Names& names = it->second;
    std::int64_t changed = Nanoseconds(info.st_mtim);
    bool current = names.device == info.st_dev && names.inode == info.st_ino &&
                   names.changed == changed && changed + kStampSlackNs < names.read;
    if (!current) {
        if (!Read(folder, names)) {
            kept.erase(it);
            return std::nullopt;
        }
        names.device = info.st_dev;
        names.inode = info.st_ino;
        names.changed = changed;
    }
    names.used = ++lookups;
    auto found = names.byFolded.find(ToLower(name));
    if (found == names.byFolded.end())
        return std::nullopt;
    return found->second;
}

}  // namespace win
