// Window properties: named values that anyone may hang on a window. Names compare without
// regard to case; the values are not owned, and go with the window when it is destroyed.
#pragma once

#include "platform/win/types.h"

namespace win {

// FALSE for a dead window or a null name.
BOOL SetProp(HWND hwnd, LPCSTR name, HANDLE data);
// The value, or null when the window or the property is not there.
HANDLE GetProp(HWND hwnd, LPCSTR name);
// Takes the property away and gives its value, or null when it was not there.
HANDLE RemoveProp(HWND hwnd, LPCSTR name);

}  // namespace win
