// Calls into ToolGroupKit, the suite's tool bar library. The library is held from the
// component's link to its unlink; while it is missing, or lacks an export, the calls do
// nothing.
#pragma once

#include "platform/win/geometry.h"
#include "platform/win/types.h"

namespace afx {
class CWnd;
}

namespace velorand {

// Loads the library for the life of the link; a second call keeps the first load.
void AttachToolGroupKit();
// Frees it again.
void DetachToolGroupKit();

// Registers a group of buttons by command id (0 a separator); the library's answer, 0
// when it can't be asked.
int RegisterToolGroup(const char* group, const char* title, win::HINSTANCE instance,
                      const win::UINT* ids, win::UINT count, win::SIZE* sizes);
// Shows the group in the frame.
void LoadToolGroup(const char* group, win::HINSTANCE instance, afx::CWnd* frame, win::UINT id);
// Takes the group down; `finally` when the component ends.
void UnloadToolGroup(const char* group, int finally);
// Starts (1) or ends (0) the customizing of the tool pane, or only asks (-1); the state
// before, 0 when the library can't be asked.
int IsCustomizingToolPane(int state);

}  // namespace velorand
