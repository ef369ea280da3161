// The host's main frame: an MDI frame with its MDI client and a status line. It keeps a
// record of every message and command that reaches it (and its MDI client) from the
// component, so that a test or a transcript can tell what the component asked of the
// host. Command 25612, the last step after a fatal error, ends the message loop with
// exit code 1.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/afx/mdi_frame_wnd.h"

namespace velorand::host {

// One message to the main frame or its MDI client, as it came.
struct HostMessage {
    win::UINT message = 0;
    win::WPARAM wParam = 0;
    win::LPARAM lParam = 0;
    std::string text;          // the text that lParam points to, for the messages that carry one
    bool toMdiClient = false;  // it went to the MDI client, not to the frame
};

class CMainFrame : public afx::CMDIFrameWnd {
  public:
    // Messages of the component to the main window, besides WM_COMMAND and the status
    // line's WM_SETMESSAGESTRING.
    static constexpr win::UINT kShowToolLog = 0x68A1;  // lParam a log file's path
    static constexpr win::UINT kProjectWithoutName = 0x68A3;
    static constexpr win::UINT kOpenImportedProject = 0x68C9;  // lParam a project file's path

    // Makes the frame window, its MDI client and its status line ("Ready"). False when
    // the window cannot be made; the object is gone then, as a frame owns itself.
    bool Create(const std::string& title);

    const std::string& StatusText() const { return status_; }
    const std::vector<HostMessage>& Messages() const { return messages_; }
    // The ids of the WM_COMMAND messages among them, in order.
    std::vector<win::UINT> Commands() const;
    void ClearMessages() { messages_.clear(); }
    // Called with each message as it is recorded, before the frame acts on it: a
    // transcript shows the status line as it changes.
    void SetMessageListener(std::function<void(const HostMessage&)> listener) {
        listener_ = std::move(listener);
    }

    // True while a command is on its way along the frame's command route.
    bool Routing() const { return routing_ > 0; }

    // Runs the action from the message loop, after the messages queued before it. An
    // exception that it raises leaves the loop (see CHostApp::Run).
    void PostAction(std::function<void()> action);

    win::BOOL OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) override;

  protected:
    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;

  private:
    static win::LRESULT MdiClientProc(win::HWND hwnd, win::UINT msg, win::WPARAM wParam,
                                      win::LPARAM lParam);
    void Record(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam, bool toMdiClient);

    std::string status_;
    std::vector<HostMessage> messages_;
    std::deque<std::function<void()>> actions_;
    std::function<void(const HostMessage&)> listener_;
    int routing_ = 0;
};

}  // namespace velorand::host
