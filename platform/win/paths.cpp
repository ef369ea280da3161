#include "platform/win/paths.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <map>
#include <vector>

#include "platform/win/folder_names.h"
#include "platform/win/last_error.h"

namespace win {

namespace {

char Upper(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsDriveLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Splits at any of the separators, dropping empty pieces.
std::vector<std::string> Split(std::string_view text, std::string_view separators) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find_first_of(separators, start);
        if (end == std::string_view::npos)
            end = text.size();
        if (end > start)
            pieces.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

// Folds "." and ".." out of a list of names; ".." at the top stays at the top.
std::vector<std::string> Fold(const std::vector<std::string>& names) {
    std::vector<std::string> folded;
    for (const std::string& name : names) {
        if (name == ".")
            continue;
        if (name == "..") {
            if (!folded.empty())
                folded.pop_back();
            continue;
        }
        folded.push_back(name);
    }
    return folded;
}

std::string JoinPosix(const std::vector<std::string>& names) {
    std::string path;
    for (const std::string& name : names)
        path += "/" + name;
    return path.empty() ? "/" : path;
}

// One drive: its letter and its folder, as configured and as the kernel resolves it, so
// that a current folder reached through a symbolic link still finds its drive.
struct Drive {
    std::string folder;
    std::string resolved;
};

using DriveTable = std::map<char, Drive>;

std::string NormalPosixFolder(std::string_view folder) {
    return JoinPosix(Fold(Split(folder, "/")));
}

DriveTable ParseDrives(const std::string& setting) {
    DriveTable drives;
    drives['Z'] = Drive{"/", "/"};
    for (const std::string& entry : Split(setting, ";")) {
        std::size_t eq = entry.find('=');
        if (eq != 1 || !IsDriveLetter(entry[0]) || entry.size() < 3 || entry[2] != '/')
            continue;
        Drive drive;
        drive.folder = NormalPosixFolder(std::string_view(entry).substr(2));
        char buffer[PATH_MAX];
        drive.resolved = realpath(drive.folder.c_str(), buffer) ? buffer : drive.folder;
        drives[Upper(entry[0])] = drive;
    }
    return drives;
}

// The drive table, read again whenever VELORAND_DRIVES has changed since the last call.
const DriveTable& Drives() {
    thread_local std::string lastSetting;
    thread_local DriveTable table = ParseDrives("");
    const char* env = getenv("VELORAND_DRIVES");
    std::string setting = env ? env : "";
    if (setting != lastSetting) {
        table = ParseDrives(setting);
        lastSetting = std::move(setting);
    }
    return table;
}

// The rest of a POSIX path below a folder, or nothing when it doesn't lie below it.
std::optional<std::string_view> Below(std::string_view path, const std::string& folder) {
    if (folder == "/")
        return path.substr(1);
    if (path.substr(0, folder.size()) != folder)
        return std::nullopt;
    std::string_view rest = path.substr(folder.size());
    if (rest.empty())
        return rest;
    if (rest[0] != '/')
        return std::nullopt;
    return rest.substr(1);
}

std::string CurrentPosixFolder() {
    char buffer[PATH_MAX];
    return getcwd(buffer, sizeof buffer) ? buffer : "/";
}

bool IsForbidden(char c) {
    switch (c) {
        case '<':
        case '>':
        case ':':
        case '"':
        case '|':
        case '?':
        case '*':
            return true;
        default:
            return static_cast<unsigned char>(c) < 32;
    }
}

bool Exists(const std::string& posixPath) {
    struct stat info;
    return lstat(posixPath.c_str(), &info) == 0;
}

}  // namespace

std::string FullPlatformPath(std::string_view path) {
    std::string text(path);
    for (char& c : text)
        if (c == '/')
            c = '\\';

    std::string prefix;  // "C:" or "\\server\share"
    std::string_view rest = text;
    bool trailing = !text.empty() && text.back() == '\\';
    std::vector<std::string> names;
    if (rest.size() >= 2 && rest[0] == '\\' && rest[1] == '\\') {
        // A network path keeps its server and share as they stand.
        std::vector<std::string> pieces = Split(rest, "\\");
        prefix = "\\";
        for (std::size_t i = 0; i < pieces.size() && i < 2; ++i)
            prefix += "\\" + pieces[i];
        if (pieces.size() > 2)
            names.assign(pieces.begin() + 2, pieces.end());
    } else {
        bool hasDrive = rest.size() >= 2 && IsDriveLetter(rest[0]) && rest[1] == ':';
        if (hasDrive) {
            prefix = {Upper(rest[0]), ':'};
            rest.remove_prefix(2);
        }
        bool rooted = !rest.empty() && rest[0] == '\\';
        if (!hasDrive || !rooted) {
            std::string current = PlatformPath(CurrentPosixFolder());
            // A current folder outside every drive: relative paths count from Z:'s root.
            if (current.size() < 2 || current[1] != ':')
                current = "Z:\\";
            if (!hasDrive)
                prefix = current.substr(0, 2);
            // Relative to the current folder when it lies on the path's drive, else to the
            // drive's root.
            if (!rooted && current.substr(0, 2) == prefix)
                names = Split(std::string_view(current).substr(2), "\\");
        }
        for (std::string& name : Split(rest, "\\"))
            names.push_back(std::move(name));
    }

    std::string full = prefix;
    for (const std::string& name : Fold(names))
        full += "\\" + name;
    if (full == prefix || trailing)
        full += "\\";
    return full;
}

std::optional<std::string> PosixPath(std::string_view platformPath) {
    std::string full = FullPlatformPath(platformPath);
    if (full.size() > MAX_PATH - 1 || full.size() < 3 || full[1] != ':') {
        SetLastError(ERROR_BAD_PATHNAME);
        return std::nullopt;
    }
    const DriveTable& drives = Drives();
    auto drive = drives.find(full[0]);
    if (drive == drives.end()) {
        SetLastError(ERROR_BAD_PATHNAME);
        return std::nullopt;
    }
    std::vector<std::string> names = Split(std::string_view(full).substr(3), "\\");
    for (const std::string& name : names) {
        for (char c : name) {
            if (IsForbidden(c)) {
                SetLastError(ERROR_BAD_PATHNAME);
                return std::nullopt;
            }
        }
    }

    std::string base = drive->second.folder == "/" ? "" : drive->second.folder;
    std::string posix = base;
    for (const std::string& name : names)
        posix += "/" + name;
    // The common case, a path that exists as written, costs one system call.
    if (names.empty() || Exists(posix))
        return posix.empty() ? "/" : posix;

    // A missing file in a folder that exists as written (a search along the search
    // folders) needs a look at that folder alone.
    std::string parent = posix.substr(0, posix.rfind('/'));
    if (names.size() > 1 && Exists(parent)) {
        std::optional<std::string> other = FindNameNoCase(parent, names.back());
        return parent + "/" + (other ? *other : names.back());
    }

    posix = base;
    bool searching = true;  // below a name that matched nothing, nothing can match
    for (const std::string& name : names) {
        std::string exact = posix + "/" + name;
        if (searching && !Exists(exact)) {
            std::optional<std::string> other = FindNameNoCase(posix.empty() ? "/" : posix, name);
            if (other) {
                posix += "/" + *other;
                continue;
            }
            searching = false;
        }
        posix = std::move(exact);
    }
    return posix.empty() ? "/" : posix;
}

std::string PlatformPath(std::string_view posixPath) {
    std::string absolute(posixPath);
    if (absolute.empty() || absolute[0] != '/')
        absolute = CurrentPosixFolder() + "/" + absolute;
    absolute = NormalPosixFolder(absolute);

    // The drive whose folder is the longest prefix; the first letter among equals.
    char bestLetter = 0;
    std::size_t bestLength = 0;
    std::string_view bestRest;
    for (const auto& [letter, drive] : Drives()) {
        for (const std::string* folder : {&drive.folder, &drive.resolved}) {
            std::optional<std::string_view> rest = Below(absolute, *folder);
            if (rest && (bestLetter == 0 || folder->size() > bestLength)) {
                bestLetter = letter;
                bestLength = folder->size();
                bestRest = *rest;
            }
        }
    }
    std::string platform;
    if (bestLetter == 0) {
        // Outside every drive (Z: was moved away from /): the path without a drive.
        platform = absolute;
    } else {
        platform = {bestLetter, ':', '\\'};
        platform += bestRest;
    }
    for (char& c : platform)
        if (c == '/')
            c = '\\';
    return platform;
}

}  // namespace win
