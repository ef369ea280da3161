// The system's measures. There is no screen: its size is a setting (1280 by 1024 unless
// SetScreenSize says otherwise), and the other measures are fixed numbers of the usual
// desktop look, so that layout code computes the same sizes on every machine.
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXDLGFRAME = 7;
inline constexpr int SM_CYDLGFRAME = 8;
inline constexpr int SM_CYMENU = 15;
inline constexpr int SM_CXFULLSCREEN = 16;
inline constexpr int SM_CYFULLSCREEN = 17;
inline constexpr int SM_CXFRAME = 32;
inline constexpr int SM_CYFRAME = 33;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CYSMCAPTION = 51;
inline constexpr int SM_CXMINIMIZED = 57;
inline constexpr int SM_CYMINIMIZED = 58;
inline constexpr int SM_CXMAXIMIZED = 61;
inline constexpr int SM_CYMAXIMIZED = 62;
inline constexpr int SM_CXDRAG = 68;
inline constexpr int SM_CYDRAG = 69;

// The measure, or 0 for an index that has none.
int GetSystemMetrics(int index);

// Sets the screen's size in pixels; sizes below 1 are refused.
BOOL SetScreenSize(int cx, int cy);

}  // namespace win
