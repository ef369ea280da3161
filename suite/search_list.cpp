#include "suite/search_list.h"

#include "platform/win/paths.h"
#include "platform/win/strings.h"
#include "suite/text_file.h"

namespace suite {

namespace {

char Lower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string WithoutFinalBackslash(std::string folder) {
    while (folder.size() > 3 && folder.back() == '\\')
        folder.pop_back();
    return folder;
}

// The path with its last name as the disk spells it, which may differ in case.
std::string AsOnDisk(std::string_view platformPath, const std::string& posixPath) {
    std::size_t slash = posixPath.rfind('/');
    return std::string(FolderOf(platformPath)) + "\\" + posixPath.substr(slash + 1);
}

}  // namespace

SearchList::SearchList(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders)
        folders_.push_back(WithoutFinalBackslash(win::FullPlatformPath(folder)));
}

std::optional<std::string> SearchList::Find(std::string_view name) const {
    std::string key(name);
    for (char& c : key)
        c = Lower(c);
    auto known = found_.find(key);
    if (known == found_.end())
        known = found_.emplace(std::move(key), Search(name)).first;
    return known->second;
}

std::optional<std::string> SearchList::Search(std::string_view name) const {
    if (name.empty())
        return std::nullopt;
    if (name.size() > 1 && name[1] == ':') {
        std::string full = win::FullPlatformPath(name);
        std::optional<std::string> posix = ExistingFile(full);
        return posix ? std::optional(AsOnDisk(full, *posix)) : std::nullopt;
    }
    for (const std::string& folder : folders_) {
        std::string candidate = win::FullPlatformPath(folder + "\\" + std::string(name));
        if (std::optional<std::string> posix = ExistingFile(candidate))
            return AsOnDisk(candidate, *posix);
    }
    return std::nullopt;
}

bool SamePath(std::string_view a, std::string_view b) {
    return win::EqualNoCase(a, b);
}

bool IsInside(std::string_view path, std::string_view folder) {
    while (!folder.empty() && folder.back() == '\\')
        folder.remove_suffix(1);
    return path.size() > folder.size() + 1 && path[folder.size()] == '\\' &&
           SamePath(path.substr(0, folder.size()), folder);
}

std::string_view FileNameOf(std::string_view path) {
    std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view FolderOf(std::string_view path) {
    std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

}  // namespace suite
