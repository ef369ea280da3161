// Making and removing folders. A read-only folder (no write permission bit) takes no new
// names and cannot be removed, for any user: the call fails with error 5.
#pragma once

#include "platform/win/types.h"

namespace win {

// Makes one folder; the folder that holds it must exist (else error 3). An existing name
// fails with error 183.
BOOL CreateDirectory(LPCSTR pathName, LPVOID securityAttributes = nullptr);

// Removes an empty folder; one that holds anything fails with error 145.
BOOL RemoveDirectory(LPCSTR pathName);

// The C runtime's form of RemoveDirectory: 0, or -1 with errno ENOTEMPTY, ENOENT, EACCES
// or EINVAL. The last error is set as by RemoveDirectory.
int _rmdir(const char* dirName);

}  // namespace win
