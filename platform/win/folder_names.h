// Finding a name in a folder without regard to case. That takes a read of the whole
// folder, and a project of thousands of files in one folder asks for every missing file
// (each symbol that doesn't exist, in each search folder): so a folder's names are kept,
// by their folded spelling, for as long as the folder is unchanged.
#pragma once

#include <optional>
#include <string>

namespace win {

// The name in the folder (a POSIX path) that equals `name` without regard to ASCII case;
// the first in byte order when several do, so that the choice never depends on the order
// of the folder. None when the folder can't be read or holds no such name.
std::optional<std::string> FindNameNoCase(const std::string& folder, const std::string& name);

}  // namespace win
