// Platform paths on a POSIX file system. Inside the component every path is a platform
// path: a drive letter, backslashes, names compared without regard to case. A drive table
// maps each letter to a POSIX folder: Z: is / unless configured, and VELORAND_DRIVES
// ("C=/srv/velorand;D=/mnt/data") adds or changes drives.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/win/types.h"

namespace win {

// The full platform path of a path as a caller gives it: relative paths count from the
// process's current folder, '/' becomes '\', "." and ".." are folded. A path that is
// already full comes back with only those changes.
std::string FullPlatformPath(std::string_view path);

// The POSIX path that a platform path names. Each component is taken as it stands when it
// exists, and otherwise matched without regard to case among the names of its folder, so
// that a project made with other letter cases opens unchanged. A component that matches
// nothing is kept as written (the file may be about to be made). Nothing, with the last
// error set, when the path cannot name a file: an unknown drive or a forbidden character
// (161), or more than MAX_PATH - 1 characters (161).
std::optional<std::string> PosixPath(std::string_view platformPath);

// The platform path of a POSIX path, through the drive table: the drive whose folder is
// the longest prefix of the path wins, and Z: stands for /. Relative POSIX paths count
// from the process's current folder.
std::string PlatformPath(std::string_view posixPath);

}  // namespace win
