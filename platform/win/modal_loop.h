// Modal loops: a dialog, or the drag loop of a dock bar, dispatches the queued messages
// until something ends it from inside. Loops nest; each belongs to one window.
#pragma once

#include "platform/win/types.h"

namespace win {

// What a loop answers when it ends without EndModalLoop: its window died, WM_QUIT came
// (it is queued again for the outer loop), or the queue ran dry with nothing left that
// could end it.
inline constexpr INT_PTR MODAL_LOOP_ABORTED = -1;

// Dispatches messages until EndModalLoop is called for hwnd, and answers the result
// given there. A dead window answers MODAL_LOOP_ABORTED at once.
INT_PTR RunModalLoop(HWND hwnd);

// Ends the innermost running loop of hwnd with the result; the loop returns once the
// handler that called this has returned. FALSE when no loop of hwnd runs or it has been
// ended already (the first result stands).
BOOL EndModalLoop(HWND hwnd, INT_PTR result);

// TRUE while a loop of hwnd runs and has not been ended.
BOOL IsInModalLoop(HWND hwnd);

}  // namespace win
