// The window messages between the component and the host's views and frames.
#pragma once

#include "platform/win/types.h"

namespace velorand {

// To a schematic view: wParam 0, lParam a line of the editor's command language (a text
// that begins with ':'), valid for the call.
inline constexpr win::UINT PM_RUN_SCRIPT = 0x6870;

}  // namespace velorand
