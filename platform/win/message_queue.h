// Messages: SendMessage runs the target's window procedure at once, on the caller's
// stack, so sends may nest (a handler may send to another window or to its own). Posted
// messages wait in the one queue of the main thread until GetMessage or PeekMessage takes
// them. A message for a window that was destroyed before its turn is dropped.
//
// No input arrives from outside: when the queue is empty nothing more can come, so
// GetMessage answers -1 instead of waiting for ever.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace win {

struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    DWORD time = 0;
    POINT pt;
};

inline constexpr UINT PM_NOREMOVE = 0x0000;
inline constexpr UINT PM_REMOVE = 0x0001;

// The window procedure's answer; 0 for a dead handle (last error 1400).
LRESULT SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
// Queues the message. A null window posts to the thread (DispatchMessage ignores it).
// FALSE for a dead handle.
BOOL PostMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
// Queues WM_QUIT with the exit code in wParam.
void PostQuitMessage(int exitCode);

// The first queued message for the window (or any descendant of it; null takes all) with
// a number in [filterMin, filterMax] (both 0 take all). GetMessage takes it from the
// queue and answers 1, or 0 for WM_QUIT, or -1 when no such message is queued.
BOOL GetMessage(MSG* msg, HWND hwnd, UINT filterMin, UINT filterMax);
// As GetMessage, without the WM_QUIT rule: TRUE when a message was found, and it stays
// queued unless PM_REMOVE is given.
BOOL PeekMessage(MSG* msg, HWND hwnd, UINT filterMin, UINT filterMax, UINT removeMsg);
// Sends the message to its window; 0 for a thread message or a dead window.
LRESULT DispatchMessage(const MSG* msg);

}  // namespace win
