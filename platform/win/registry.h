// The platform's registry, kept in one profile file (RegistryPath()): one section per key,
// named by the key's full path ("HKEY_LOCAL_MACHINE\Software\..."), one line per value,
// the key's default value under the name "@". Key and value names are compared without
// regard to case. A value is read as a profile value is: blanks around it and one pair of
// quotes around it go, so a value with blanks or quotes at its ends is written in quotes. A key
// exists when it has a section or a subkey has one. The calls return the platform's error codes and
// leave the last error alone, as the platform's do.
#pragma once

#include "platform/win/types.h"

namespace win {

using REGSAM = DWORD;
using PHKEY = HKEY*;
using LPBYTE = BYTE*;

inline const HKEY HKEY_CLASSES_ROOT = HandleFromNumber<HKEY>(0x80000000u);
inline const HKEY HKEY_LOCAL_MACHINE = HandleFromNumber<HKEY>(0x80000002u);

inline constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
inline constexpr REGSAM KEY_SET_VALUE = 0x0002;
inline constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

// Opens a key below an open one (a null or empty subkey opens the same key again);
// 2 when the key doesn't exist.
LONG RegOpenKeyEx(HKEY key, LPCSTR subKey, DWORD options, REGSAM access, PHKEY result);

// Opens a key, making it first when it is missing; `disposition`, if given, tells which.
LONG RegCreateKeyEx(HKEY key, LPCSTR subKey, DWORD reserved, LPSTR keyClass, DWORD options,
                    REGSAM access, LPVOID securityAttributes, PHKEY result, LPDWORD disposition);

// Reads a value (a null or empty name is the default value) as REG_SZ with its closing NUL.
// With a null `data` only its size in bytes goes to `size`; a `size` too small for it gets
// the size needed and the result ERROR_MORE_DATA. 2 when the value doesn't exist.
LONG RegQueryValueEx(HKEY key, LPCSTR valueName, LPDWORD reserved, LPDWORD type, LPBYTE data,
                     LPDWORD size);

// Writes a REG_SZ value of `size` bytes (up to its first NUL); the key needs KEY_SET_VALUE.
LONG RegSetValueEx(HKEY key, LPCSTR valueName, DWORD reserved, DWORD type, const BYTE* data,
                   DWORD size);

LONG RegCloseKey(HKEY key);

}  // namespace win
