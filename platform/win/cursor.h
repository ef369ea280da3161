// Mouse cursors by resource id. Nothing is shown: the current cursor is a handle that
// tells which (module, id) pair was loaded, so that code and tests can compare it. The
// cursor's position on the screen is a point that whoever plays the mouse sets before it
// sends a mouse message, as the system does before it delivers one.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace win {

inline constexpr UINT IDC_ARROW = 32512;
inline constexpr UINT IDC_IBEAM = 32513;
inline constexpr UINT IDC_WAIT = 32514;
inline constexpr UINT IDC_CROSS = 32515;
inline constexpr UINT IDC_SIZEWE = 32644;
inline constexpr UINT IDC_SIZENS = 32645;

// The same (instance, id) pair always gives the same handle; a null instance names the
// system's cursors.
HCURSOR LoadCursor(HINSTANCE instance, UINT id);
// Makes the cursor current; gives the one that was.
HCURSOR SetCursor(HCURSOR cursor);
HCURSOR GetCursor();

// The mouse position in screen coordinates; (0, 0) until it is first set.
BOOL GetCursorPos(POINT* point);
BOOL SetCursorPos(int x, int y);

}  // namespace win
