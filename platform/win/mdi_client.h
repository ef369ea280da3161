// The MDI client: the window class "MDICLIENT", which holds the child frames of a
// multiple-document frame and knows which of them is active. Its messages:
//   WM_MDIACTIVATE (child)       makes the child active; both children are sent
//                                WM_MDIACTIVATE (wParam the one losing, lParam the one gaining)
//   WM_MDIGETACTIVE (0, BOOL*)   the active child, or null; *lParam tells if it is maximised
//   WM_MDINEXT (child or 0, prev) activates the next visible child after the given one (or
//                                the active one), which goes to the back; prev != 0 takes the
//                                last visible child instead
//   WM_MDIMAXIMIZE, WM_MDIRESTORE, WM_MDIDESTROY (child)
//   WM_MDIICONARRANGE            lines the minimised children up along the bottom edge
// When the active child is destroyed, the next visible child becomes active; when there
// is none, the child going is sent WM_MDIACTIVATE with lParam null.
#pragma once

#include "platform/win/types.h"

namespace win {

inline constexpr char MDICLIENT_CLASS[] = "MDICLIENT";

namespace detail {
LRESULT MdiClientProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
}

}  // namespace win
