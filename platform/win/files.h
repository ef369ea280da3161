// Copying, moving and deleting files. A read-only file (no write permission bit) is never
// replaced or deleted, for any user: the call fails with error 5, as on the platform.
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x1;
inline constexpr DWORD MOVEFILE_COPY_ALLOWED = 0x2;
inline constexpr DWORD MOVEFILE_WRITE_THROUGH = 0x8;

// Copies a file with its read-only attribute and time of last change. With failIfExists
// an existing target fails with error 80. The target is either the whole copy or left as
// it was.
BOOL CopyFile(LPCSTR existingFileName, LPCSTR newFileName, BOOL failIfExists);

// Moves or renames a file or folder. An existing target fails with error 183 unless
// MOVEFILE_REPLACE_EXISTING is given; a read-only target or a folder as target fails with
// 5. Between file systems a file is copied and then deleted; a folder cannot move there
// (error 17).
BOOL MoveFileEx(LPCSTR existingFileName, LPCSTR newFileName, DWORD flags);

// Deletes a file; a folder or a read-only file fails with error 5.
BOOL DeleteFile(LPCSTR fileName);

}  // namespace win
