// Calls into partshelf, the suite's device library. The library is held from the
// component's link to its unlink, since its window lives in it; while it is missing, or
// lacks an export, the calls do nothing.
#pragma once

#include "platform/win/types.h"

namespace velorand {

// Loads the library for the life of the link; a second call keeps the first load.
void AttachPartShelf();
// Frees it again.
void DetachPartShelf();

// The device library's window, null while it has none.
win::HWND GetPartShelfHandle();
// Opens the device selection: "-d" and 0 show the library's window.
void SelectDevice(const char* arguments, int flags);

}  // namespace velorand
