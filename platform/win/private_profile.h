// The platform's profile file calls, with its buffer rules and results. Files are named by
// platform paths; a name without a folder means a file in the folder of the application's
// profile, where the platform would look in its system folder.
#pragma once

#include <string>

#include "platform/win/types.h"

namespace win {

// The value of a key, blanks around it and one pair of quotes dropped, or the default
// without its trailing blanks. A null section lists the section names, a null key the
// key names of the section: each name ends in a NUL, the list in a second NUL. The result
// is the number of characters copied without the last NUL; size - 1 for a value cut short,
// size - 2 for a list cut short (last error 234). A missing file, section or key gives the
// default (last error 2).
DWORD GetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer,
                              DWORD size, LPCSTR fileName);

// The lines of a section as "key=value", each ending in a NUL, the list in a second NUL;
// the result as for a list above.
DWORD GetPrivateProfileSection(LPCSTR section, LPSTR buffer, DWORD size, LPCSTR fileName);

// The whole number at the start of a key's value (decimal, or hexadecimal after "0x"); the
// default when the key is missing or empty, 0 when the value isn't a number.
UINT GetPrivateProfileInt(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName);

// Sets a key: in place when it exists, else at the end of its section, or in a new section
// at the end of the file, which is made when missing. A null value removes the key, a null
// key the section. FALSE with last error 5 when the file or its folder is read-only, 3 when
// the folder is missing; the file is then as it was.
BOOL WritePrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR fileName);

// The same calls on a file named by its POSIX path, for the application's profile and
// other files of the system's own; `makeFolder` makes the file's folder on a write.
DWORD GetProfileStringAt(const std::string& posixPath, LPCSTR section, LPCSTR key,
                         LPCSTR defaultValue, LPSTR buffer, DWORD size);
UINT GetProfileIntAt(const std::string& posixPath, LPCSTR section, LPCSTR key, INT defaultValue);
BOOL WriteProfileStringAt(const std::string& posixPath, LPCSTR section, LPCSTR key, LPCSTR value,
                          bool makeFolder);

}  // namespace win
