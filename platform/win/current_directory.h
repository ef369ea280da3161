// The process's current folder, as a platform path.
#pragma once

#include "platform/win/types.h"

namespace win {

// Copies the current folder ("C:\p", a drive's root with its backslash) into the buffer
// and returns its length. When the buffer is too small it is left alone and the result is
// the size needed, terminating zero included.
DWORD GetCurrentDirectory(DWORD bufferLength, LPSTR buffer);

// Makes a folder the current one: FALSE with error 2 or 3 when it is missing, 267 when it
// is a file.
BOOL SetCurrentDirectory(LPCSTR pathName);

}  // namespace win
