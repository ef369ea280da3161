// The commands with which the project tells the host where its open, save and close
// stand. They go as WM_COMMAND to the main window, or along the application's command
// route; what the host makes of them is its own business.
#pragma once

#include "platform/win/types.h"

namespace velorand {

// To the main window, sent: a load or an update begins and ends, the tree changed, the
// project is ready.
inline constexpr win::UINT kCmdLoadBegins = 26476;
inline constexpr win::UINT kCmdLoadEnds = 26477;
inline constexpr win::UINT kCmdTreeChanged = 26660;
inline constexpr win::UINT kCmdProjectReady = 26461;
// To the main window, posted after a failed open: the host offers a new project instead.
inline constexpr win::UINT kCmdNewProject = 26454;
// Along the application's route, around the saving of all the project's files.
inline constexpr win::UINT kCmdSaveBegins = 26478;
inline constexpr win::UINT kCmdSaveEnds = 26479;
// To the simulator template through its own route: read the netlist again.
inline constexpr win::UINT kCmdTemplateRefresh = 25621;
// To the main window, sent for a project file without a name of its own.
inline constexpr win::UINT kMsgProjectWithoutName = 0x68A3;

}  // namespace velorand
