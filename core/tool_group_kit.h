// Calls into ToolGroupKit, the suite's tool bar library. Each call loads the library by
// name, calls its export and frees it again; a missing library or export does nothing.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace afx {
class CWnd;
}

namespace velorand {

// Registers a group of buttons by command id (0 a separator); the library's answer, 0
// when it can't be asked.
int RegisterToolGroup(const char* group, const char* title, win::HINSTANCE instance,
                      const win::UINT* ids, win::UINT count, win::SIZE* sizes);
// Shows the group in the frame.
void LoadToolGroup(const char* group, win::HINSTANCE instance, afx::CWnd* frame, win::UINT id);
// Takes the group down; `finally` when the component ends.
void UnloadToolGroup(const char* group, int finally);

}  // namespace velorand
