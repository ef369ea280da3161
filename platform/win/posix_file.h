// The POSIX side shared by the file calls: from a caller's platform path to a POSIX path,
// from errno to the platform's codes, and the read-only rule. Root passes every permission
// check of the kernel, so the rule that a read-only file or folder cannot be changed is
// checked here, for every user alike.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "platform/win/types.h"

namespace win::internal {

// The POSIX path of a platform path given to a file call; nothing, with the last error
// set, for a null pointer (87) or a path that cannot name a file (161).
std::optional<std::string> PosixPathOf(LPCSTR platformPath);

// The folder that holds a POSIX path.
std::string ParentFolder(const std::string& posixPath);

// Sets the last error for a system call that failed on a path with `err`. A missing file is
// 2 when its folder is there and 3 when a folder on the way is missing.
void SetLastErrorForPath(int err, const std::string& posixPath);

// The read-only attribute: a file or folder without any write permission bit.
bool IsReadOnly(mode_t mode);

// Whether the file at a path, if there is one, may be written or replaced; sets error 5
// and answers false for a read-only file.
bool MayReplace(const std::string& posixPath);

// Whether names may be made, removed or renamed in the folder that holds a path; sets
// error 5 and answers false when that folder is read-only.
bool MayChangeFolderOf(const std::string& posixPath);

}  // namespace win::internal
