// The window messages between the project and the host's views and frames, besides
// WM_NOTIFY, with the arguments each carries.
#pragma once

#include "host/project_messages.h"
#include "platform/win/types.h"

namespace velorand::host {

// PM_RUN_SCRIPT and PM_SHOW_INFO_FILE are the component's own, in host/project_messages.h.
using velorand::PM_RUN_SCRIPT;
using velorand::PM_SHOW_INFO_FILE;

// lParam a schematic's path: the view takes that file's content in place of its own.
inline constexpr win::UINT PM_IMPORT_TEXT = 0x6421;
// To a frame; lParam "old path+new path+report file": a schematic was renamed.
inline constexpr win::UINT PM_RENAME_REFERENCE = 0x00F9;
// wParam the ask-to-continue flag and lParam a 2048-byte buffer: the active view checks
// its schematic; 0 refuses the run. Both 0: the view writes its schematic's report.
inline constexpr win::UINT PM_RULE_CHECK = 0x014A;
inline constexpr win::UINT kRuleCheckBufferSize = 2048;
// wParam 0 and lParam 0: the page count; lParam a print record: print the view.
inline constexpr win::UINT PM_PRINT_VIEW = 0x014D;
// To a child frame; wParam 1 or 0: rule check mode on or off.
inline constexpr win::UINT PM_RULE_CHECK_MODE = 0x014F;

// Commands that the project gives the host.
inline constexpr win::UINT ID_TEMPLATE_REFRESH = 25621;  // to the netlist document: reread it
inline constexpr win::UINT ID_FATAL_END = 25612;         // to the main window: end in order
inline constexpr win::UINT ID_TUNING_NETLIST = 1004;     // to the netlist frame, lParam 9998

}  // namespace velorand::host
