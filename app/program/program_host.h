// The reference host as the velorand program runs it: the application with its main
// frame and the component loaded, and everything that reaches the host written to the
// transcript as it happens: the status line, the commands and messages to the main
// window, the commands to the application, and what the project asks of each view.
#pragma once

#include <string>

#include "app/host_app.h"

namespace afx {
class CDocTemplate;
class CDocument;
class CTreeView;
}  // namespace afx

namespace velorand::program {

class Transcript;

class ProgramHost : public host::CHostApp {
  public:
    explicit ProgramHost(Transcript& transcript);
    ~ProgramHost() override;

    // Makes the main frame with the host's templates and loads the component; false with
    // the reason in `error`.
    bool Start(std::string& error);
    // Closes the project, then unloads the component; what they say goes to the
    // transcript.
    void End();

    // Dispatches what is queued; false when an exception escaped the loop, so that the
    // host is dying.
    bool Pump();

    afx::CDocTemplate* ProjectTemplate() const;
    // The open project document, or null.
    afx::CDocument* Project() const;
    // The project's tree view, as the main window's property "Project" names it; null
    // without a project.
    afx::CTreeView* TreeView() const;
    // The host document open under the platform path (case ignored), or null.
    afx::CDocument* FindDocument(const std::string& platformPath) const;
    // Writes "tree:" and the tree's items, indented by depth; false without a tree.
    bool ShowTree();

    // The next WM_COMMAND with this id that reaches the main frame is the script's own,
    // and is not written as one of the component's.
    void MuteCommand(win::UINT id) { muted_ = id; }

    win::BOOL OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) override;

  private:
    void OnFrameMessage(const host::HostMessage& message);

    Transcript& transcript_;
    win::UINT muted_ = 0;
};

}  // namespace velorand::program
