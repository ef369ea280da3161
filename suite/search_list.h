// The folders a tool looks in for the files a schematic names, in the order of -p: the
// work folder first, so that working copies win over the real files.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

class SearchList {
  public:
    // Folders as platform paths; relative ones count from the current folder.
    explicit SearchList(const std::vector<std::string>& folders);

    // The platform path of the first file of this name in the folders, spelled as the
    // folder is given and the file is named on disk. A name with a drive letter is looked
    // for where it points. Nothing when no folder holds it. Answers are kept for the
    // list's life: a hierarchy names the same cells and symbols again and again.
    std::optional<std::string> Find(std::string_view name) const;

    const std::vector<std::string>& Folders() const { return folders_; }

  private:
    std::optional<std::string> Search(std::string_view name) const;

    std::vector<std::string> folders_;  // full, without a final backslash
    mutable std::map<std::string, std::optional<std::string>> found_;  // by lower-case name
};

// Platform paths compare without regard to case.
bool SamePath(std::string_view a, std::string_view b);
// Whether a platform path lies in the folder or below it.
bool IsInside(std::string_view path, std::string_view folder);
// The file name of a platform path: what follows its last backslash.
std::string_view FileNameOf(std::string_view path);
// The folder of a platform path: what precedes its last backslash.
std::string_view FolderOf(std::string_view path);

}  // namespace suite
