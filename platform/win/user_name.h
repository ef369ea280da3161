// The name of the user the process runs for.
#pragma once

#include "platform/win/types.h"

namespace win {

// Copies the user's login name with its terminating zero and sets *size to the bytes
// copied, zero included. When the buffer is too small: FALSE, error 122, and *size the
// size needed.
BOOL GetUserName(LPSTR buffer, LPDWORD size);

}  // namespace win
