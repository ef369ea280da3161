// Loading the suite's libraries. A bare name is the platform's library name: "treescan"
// and "BOMGEN.DLL" stand for libtreescan.so and libBOMGEN.so, looked for in the folders of
// VELORAND_LIBRARY_PATH (colon-separated), then in lib/ beside the running program, then
// by the system's own search. A name holding a '/' or ending in ".so" is taken as it is.
#pragma once

#include "platform/win/types.h"

namespace win {

// An exported function; cast to its real type to call it (this type converts without
// warnings).
using FARPROC = void (*)();

// The loaded library, or null with error 126 when it cannot be found or loaded. Every
// LoadLibrary needs its FreeLibrary; loading a loaded library gives the same handle.
HMODULE LoadLibrary(LPCSTR fileName);

// The address of an exported function, or null with error 127 (6 for a stale handle).
FARPROC GetProcAddress(HMODULE module, LPCSTR procName);

// Gives back one load of the library; FALSE with error 6 for a handle that is not loaded.
BOOL FreeLibrary(HMODULE module);

}  // namespace win
