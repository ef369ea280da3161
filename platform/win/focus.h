// The keyboard focus: one window of the process at a time. Moving it tells the window that
// loses it (WM_KILLFOCUS, wParam the new holder) and then the one that gains it
// (WM_SETFOCUS, wParam the old holder); controls pass both on to their parent.
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;

// Gives the focus to a live window, or takes it from everyone with null. Answers the
// window that had it; null, changing nothing, for a dead handle.
HWND SetFocus(HWND hwnd);
// The window with the focus; null when none has it or it has been destroyed.
HWND GetFocus();

}  // namespace win
