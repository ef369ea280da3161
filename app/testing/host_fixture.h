// What the host's tests share: a sandbox with the reference host's application and main
// frame, and a stand-in for the project's tree view, named by the main window's property
// "Project", that keeps every record the host's windows send it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/host_app.h"
#include "app/host_view.h"
#include "host/project_notify.h"
#include "platform/afx/document.h"
#include "platform/afx/wnd.h"
#include "platform/testing/sandbox.h"
#include "platform/win/messages.h"
#include "platform/win/window_props.h"

namespace velorand::host::testing {

// One record as the owner got it; `text` is the argument's text for the codes that carry
// one (234, 329).
struct Received {
    win::HWND hwndFrom = nullptr;
    win::UINT_PTR idFrom = 0;
    win::UINT code = 0;
    afx::CDocument* document = nullptr;
    int option = 0;
    std::string text;
    bool operator==(const Received&) const = default;
};

class RecordingOwner : public afx::CWnd {
  public:
    std::vector<Received> received;
    // Answers a record as the project would; called after it is kept.
    std::function<void(ProjectNotify&)> answer;

    std::vector<win::UINT> Codes() const {
        std::vector<win::UINT> codes;
        for (const Received& r : received) {
            codes.push_back(r.code);
        }
        return codes;
    }

    win::BOOL OnNotify(win::WPARAM, win::LPARAM lParam, win::LRESULT* result) override {
        auto& record = *reinterpret_cast<ProjectNotify*>(lParam);
        Received r{record.hwndFrom, record.idFrom, record.code, record.document, record.option, {}};
        if ((record.code == 234 || record.code == 329) && record.argument != 0) {
            r.text = reinterpret_cast<const char*>(record.argument);
        }
        received.push_back(r);
        if (answer) {
            answer(record);
        }
        *result = 0;
        return win::TRUE;
    }
};

class HostTest : public velorand::testing::SandboxTest {
  protected:
    HostTest() {
        EXPECT_TRUE(app.CreateMainFrame());
        frame = app.MainFrame();
        owner = new RecordingOwner;
        owner->Create(nullptr, "Project", win::WS_CHILD, win::RECT{}, frame, 1);
        win::SetProp(frame->m_hWnd, "Project", reinterpret_cast<win::HANDLE>(owner->m_hWnd));
    }
    ~HostTest() override {
        app.CloseAllDocuments(win::TRUE);
        delete owner;
    }

    // Opens a file of the sandbox through the application, as the project does.
    afx::CDocument* Open(const std::string& relative) {
        return app.OpenDocumentFile(sandbox.Platform(relative).c_str());
    }
    static CHostView* ViewOf(afx::CDocument* doc) {
        afx::POSITION pos = doc->GetFirstViewPosition();
        return static_cast<CHostView*>(doc->GetNextView(pos));
    }
    static win::LRESULT Script(afx::CDocument* doc, const std::string& line) {
        return ViewOf(doc)->SendMessage(0x6870, 0, reinterpret_cast<win::LPARAM>(line.c_str()));
    }

    CHostApp app;
    CMainFrame* frame = nullptr;
    RecordingOwner* owner = nullptr;
};

}  // namespace velorand::host::testing
