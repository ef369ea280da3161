// The framework's own window messages and child window ids.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace afx {

// Sent by RecalcLayout to each child of a frame, lParam an AFX_SIZEPARENTPARAMS: a child
// that takes room in the frame (a control bar) cuts its part off the rectangle.
inline constexpr win::UINT WM_SIZEPARENT = 0x0361;
// wParam 0 and lParam the text: the frame shows the text on its status line.
inline constexpr win::UINT WM_SETMESSAGESTRING = 0x0362;
// Asks a window to bring the state of its commands up to date.
inline constexpr win::UINT WM_IDLEUPDATECMDUI = 0x0363;
// Sent to the views of a new frame once it is complete.
inline constexpr win::UINT WM_INITIALUPDATE = 0x0364;

struct AFX_SIZEPARENTPARAMS {
    win::RECT rect;  // the room still free
    win::SIZE sizeTotal;
    win::BOOL bStretch = win::TRUE;
};

// The id of a frame's main pane: its view, or the MDI client.
inline constexpr win::UINT AFX_IDW_PANE_FIRST = 0xE900;
inline constexpr win::UINT AFX_IDW_DOCKBAR_TOP = 0xE81B;
inline constexpr win::UINT AFX_IDW_DOCKBAR_LEFT = 0xE81C;
inline constexpr win::UINT AFX_IDW_DOCKBAR_RIGHT = 0xE81D;
inline constexpr win::UINT AFX_IDW_DOCKBAR_BOTTOM = 0xE81E;
inline constexpr win::UINT AFX_IDW_DOCKBAR_FLOAT = 0xE81F;

}  // namespace afx
