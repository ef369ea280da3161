// A window's placement: its show state and the places it takes when minimised, maximised
// and restored. The ten numbers after `length` are what a saved layout stores.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace win {

inline constexpr UINT WPF_SETMINPOSITION = 0x0001;
inline constexpr UINT WPF_RESTORETOMAXIMIZED = 0x0002;

struct WINDOWPLACEMENT {
    UINT length = sizeof(WINDOWPLACEMENT);
    UINT flags = 0;
    UINT showCmd = 0;
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition;
};

// showCmd is 3 for a maximised window, 2 for a minimised one, else 1 (also when hidden).
// rcNormalPosition is the restored rectangle, from the parent's top left.
BOOL GetWindowPlacement(HWND hwnd, WINDOWPLACEMENT* placement);

// Takes the restored rectangle and the minimised and maximised positions, then shows the
// window with showCmd as ShowWindow does; 8 (SW_SHOWNA) keeps the state it has.
BOOL SetWindowPlacement(HWND hwnd, const WINDOWPLACEMENT* placement);

}  // namespace win
