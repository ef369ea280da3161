// The reference host as an application: its main frame with the host's document
// templates, the component it has loaded, the editor's search folders, and the record of
// the commands that the component gives the application itself through the command route
// (OnCmdMsg(id, 0, null, null)). Questions of the framework go to the user's seat
// (platform/win/user_agent.h).
//
// The message loop (Run) is where the host meets its own faults: an exception that
// escapes a handler tells the project (code 329, from sender 115, with a text to show),
// and the loop goes on only until the project's command 25612 or the end of the queue;
// Run then answers 1.
#pragma once

#include <string>
#include <vector>

#include "app/component.h"
#include "app/host_templates.h"
#include "app/main_frame.h"
#include "platform/afx/win_app.h"

namespace velorand::host {

class CHostApp : public afx::CWinApp {
  public:
    CHostApp();
    // Unloads the component, closes the host's documents, destroys the main frame, and
    // drops the messages still queued.
    ~CHostApp() override;

    // Makes the main frame, titled "Velorand", and the host's document templates; false
    // when the frame cannot be made.
    bool CreateMainFrame();
    CMainFrame* MainFrame() const;
    const HostTemplates& Templates() const { return templates_; }

    // The folders where the schematic editor looks for sheets and symbols, in order; the
    // editor's commands ":path" and ":delpathdir" change them.
    std::vector<std::string>& EditorSearchFolders() { return editorSearchFolders_; }

    int Run() override;
    // Whether an exception has escaped the message loop.
    bool Crashed() const { return crashed_; }

    // Loads the component by library name and links it; its document template, when it
    // makes one, joins the application's templates. False with the reason in `error`.
    bool LoadComponent(const std::string& name, std::string& error);
    // Unlinks and frees the component.
    void UnloadComponent();
    const Component& GetComponent() const { return component_; }

    // Commands given to the application directly, not along the frame's route.
    const std::vector<win::UINT>& AppCommands() const { return appCommands_; }

    win::BOOL OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) override;

  private:
    // Tells the project of the fault; `what` is the exception's text, or null.
    void ReportFatalError(const char* what);

    HostTemplates templates_;
    Component component_;
    std::vector<win::UINT> appCommands_;
    std::vector<std::string> editorSearchFolders_;
    bool crashed_ = false;
};

}  // namespace velorand::host
