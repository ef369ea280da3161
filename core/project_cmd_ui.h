// The main window's property "ProjectCmdUI": it holds the tree view's window while a
// project with schematics is open, and that is what the host's commands and the project's
// own operations ask of it.
#pragma once

namespace afx {
class CWnd;
}

namespace velorand {

// True when the property is set on the main window and holds a live window.
bool ProjectCmdUIHolds(const afx::CWnd* mainWnd);

}  // namespace velorand
