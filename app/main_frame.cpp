#include "app/main_frame.h"

#include "app/host_messages.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window_props.h"

namespace velorand::host {

namespace {

// The property on the MDI client that leads back to its frame.
constexpr const char* kFrameProperty = "VelorandHostFrame";

// The frame's own message: the next posted action is due.
constexpr win::UINT kRunAction = 0x8000;

// The MDI client class's own procedure, the same for every frame.
win::WNDPROC mdiClientClassProc = nullptr;

bool CarriesText(win::UINT msg) {
    return msg == afx::WM_SETMESSAGESTRING || msg == CMainFrame::kShowToolLog ||
           msg == CMainFrame::kOpenImportedProject;
}

}  // namespace

bool CMainFrame::Create(const std::string& title) {
    if (!CMDIFrameWnd::Create(nullptr, title.c_str())) {
        return false;
    }
    status_ = "Ready";
    win::SetProp(m_hWndMDIClient, kFrameProperty, reinterpret_cast<win::HANDLE>(this));
    auto before = reinterpret_cast<win::WNDPROC>(win::SetWindowLongPtr(
        m_hWndMDIClient, win::GWLP_WNDPROC, reinterpret_cast<win::LONG_PTR>(&MdiClientProc)));
    if (before != &MdiClientProc) {
        mdiClientClassProc = before;
    }
    return true;
}

std::vector<win::UINT> CMainFrame::Commands() const {
    std::vector<win::UINT> commands;
    for (const HostMessage& m : messages_) {
        if (m.message == win::WM_COMMAND) {
            commands.push_back(win::LOWORD(m.wParam));
        }
    }
    return commands;
}

void CMainFrame::Record(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam, bool toMdiClient) {
    HostMessage m{msg, wParam, lParam, {}, toMdiClient};
    // The text is the sender's, valid for the call only: it is copied.
    if (CarriesText(msg) && lParam != 0) {
        m.text = reinterpret_cast<const char*>(lParam);
    }
    messages_.push_back(std::move(m));
    if (listener_) {
        listener_(messages_.back());
    }
}

win::LRESULT CMainFrame::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    if (msg == win::WM_COMMAND || msg == kProjectWithoutName || CarriesText(msg)) {
        Record(msg, wParam, lParam, false);
    }
    if (msg == afx::WM_SETMESSAGESTRING) {
        status_ = messages_.back().text;
        return 0;
    }
    if (msg == win::WM_COMMAND && win::LOWORD(wParam) == ID_FATAL_END) {
        win::PostQuitMessage(1);
        return 0;
    }
    if (msg == kRunAction && !actions_.empty()) {
        std::function<void()> action = std::move(actions_.front());
        actions_.pop_front();
        action();
        return 0;
    }
    return CMDIFrameWnd::WindowProc(msg, wParam, lParam);
}

void CMainFrame::PostAction(std::function<void()> action) {
    actions_.push_back(std::move(action));
    PostMessage(kRunAction, 0, 0);
}

win::BOOL CMainFrame::OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) {
    ++routing_;
    const win::BOOL handled = CMDIFrameWnd::OnCmdMsg(id, code, extra, info);
    --routing_;
    return handled;
}

win::LRESULT CMainFrame::MdiClientProc(win::HWND hwnd, win::UINT msg, win::WPARAM wParam,
                                       win::LPARAM lParam) {
    auto* frame = reinterpret_cast<CMainFrame*>(win::GetProp(hwnd, kFrameProperty));
    if (frame != nullptr && (msg == win::WM_MDINEXT || msg == win::WM_MDIICONARRANGE)) {
        frame->Record(msg, wParam, lParam, true);
    }
    return win::CallWindowProc(mdiClientClassProc, hwnd, msg, wParam, lParam);
}

}  // namespace velorand::host
