// The reference host as an application: its main frame, the component it has loaded,
// and the record of the commands that the component gives the application itself
// through the command route (OnCmdMsg(id, 0, null, null)). Questions of the framework go
// to the user's seat (platform/win/user_agent.h).
#pragma once

#include <string>
#include <vector>

#include "app/component.h"
#include "app/main_frame.h"
#include "platform/afx/win_app.h"

namespace velorand::host {

class CHostApp : public afx::CWinApp {
  public:
    CHostApp();
    // Unloads the component, then destroys the main frame.
    ~CHostApp() override;

    // Makes the main frame, titled "Velorand"; false when it cannot be made.
    bool CreateMainFrame();
    CMainFrame* MainFrame() const;

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
    Component component_;
    std::vector<win::UINT> appCommands_;
};

}  // namespace velorand::host
