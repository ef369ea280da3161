// The attributes of a file or folder, as the platform reports them.
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

// FILE_ATTRIBUTE_DIRECTORY for a folder, FILE_ATTRIBUTE_READONLY for a file or folder
// without any write permission bit, FILE_ATTRIBUTE_NORMAL for a plain file.
// INVALID_FILE_ATTRIBUTES, with the last error 2, 3 or 161, when there is nothing there.
DWORD GetFileAttributes(LPCSTR fileName);

}  // namespace win
