// The application's profile: the platform's calls on its own settings file, kept where
// AppProfilePath() says; the file's folder is made at the first write.
#pragma once

#include "platform/win/types.h"

namespace win {

UINT GetProfileInt(LPCSTR section, LPCSTR key, INT defaultValue);
DWORD GetProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer, DWORD size);
BOOL WriteProfileString(LPCSTR section, LPCSTR key, LPCSTR value);
// Writes the number in decimal, as the framework's application object does.
BOOL WriteProfileInt(LPCSTR section, LPCSTR key, INT value);

}  // namespace win
