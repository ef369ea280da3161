// The temporary folder: $TMPDIR, else /tmp.
#pragma once

#include "platform/win/types.h"

namespace win {

// Copies the temporary folder as a platform path with its trailing backslash into the
// buffer and returns its length. When the buffer is too small it is left alone and the
// result is the size needed, terminating zero included.
DWORD GetTempPath(DWORD bufferLength, LPSTR buffer);

}  // namespace win
