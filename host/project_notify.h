// The record of every notification between the host's views and the project: the sender
// zeroes it, fills it and owns it; the receiver writes its answer into `result`. It begins
// with the platform's notification header, so that it travels as the lParam of WM_NOTIFY.
#pragma once

#include <cstddef>

#include "platform/win/messages.h"
#include "platform/win/types.h"

namespace afx {
class CDocument;
}

namespace velorand {

struct ProjectNotify {
    win::HWND hwndFrom = nullptr;        // the sender's window; the tree view's when we send
    win::UINT_PTR idFrom = 0;            // sender number; 100 is the component itself
    win::UINT code = 0;                  // notification code
    afx::CDocument* document = nullptr;  // the document concerned, may be null
    int option = 0;                      // a small number; 1 means "started" in reports
    win::LPARAM argument = 0;            // text, pointer or handle, by code
    int reserved = 0;
    win::LRESULT result = 0;  // the receiver's answer, by code
};

// The header part must lie where the platform's header has it.
static_assert(offsetof(ProjectNotify, hwndFrom) == offsetof(win::NMHDR, hwndFrom));
static_assert(offsetof(ProjectNotify, idFrom) == offsetof(win::NMHDR, idFrom));
static_assert(offsetof(ProjectNotify, code) == offsetof(win::NMHDR, code));
// Files and partner programs built for 32 bits know the record as 32 bytes.
static_assert(sizeof(void*) != 4 || sizeof(ProjectNotify) == 32);

}  // namespace velorand
