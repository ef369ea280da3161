// The window messages between the component and the host's views and frames.
#pragma once

#include "platform/win/types.h"

namespace velorand {

// To a schematic view: wParam 0, lParam a line of the editor's command language (a text
// that begins with ':'), valid for the call.
inline constexpr win::UINT PM_RUN_SCRIPT = 0x6870;
// To a schematic view, posted: wParam 0, lParam a heap std::string* with the path of a
// documentation file to show; the receiver owns the string and deletes it.
inline constexpr win::UINT PM_SHOW_INFO_FILE = 0x151;

// From the host to the tree view, sent.
inline constexpr win::UINT PM_FIRST_QUERY = 0xFB;         // answers 1 once in a view's life
inline constexpr win::UINT PM_ENABLE_RULE_CHECK = 0x150;  // wParam 0 or 1

// Commands of the tree view.
inline constexpr win::UINT kCmdAddSymbolPath = 26459;   // lParam "<folder>+<symbol file>"
inline constexpr win::UINT kCmdToggleTreePane = 26463;  // the tree pane on or off

}  // namespace velorand
