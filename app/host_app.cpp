#include "app/host_app.h"

#include <exception>

#include "app/project_owner.h"
#include "platform/afx/doc_template.h"
#include "platform/win/message_box.h"
#include "platform/win/message_queue.h"

namespace velorand::host {

CHostApp::CHostApp() : CWinApp("Velorand") {}

CHostApp::~CHostApp() {
    UnloadComponent();
    CloseAllDocuments(win::TRUE);
    if (CMainFrame* frame = MainFrame()) {
        frame->DestroyWindow();  // the frame deletes itself
    }
    // What is still queued, the frame's own WM_QUIT among it, ends with the application.
    win::MSG msg;
    while (win::PeekMessage(&msg, nullptr, 0, 0, win::PM_REMOVE)) {
    }
}

bool CHostApp::CreateMainFrame() {
    auto* frame = new CMainFrame;
    if (!frame->Create("Velorand")) {
        return false;  // the frame is gone already
    }
    m_pMainWnd = frame;
    templates_.Register(*this, *frame);
    return true;
}

CMainFrame* CHostApp::MainFrame() const {
    // The frame takes itself out of m_pMainWnd when its window goes.
    return static_cast<CMainFrame*>(m_pMainWnd);
}

bool CHostApp::LoadComponent(const std::string& name, std::string& error) {
    if (!component_.Load(name, error)) {
        return false;
    }
    if (afx::CDocTemplate* tmpl = component_.Template()) {
        AddDocTemplate(tmpl);
    }
    return true;
}

void CHostApp::UnloadComponent() {
    component_.Unload();
}

int CHostApp::Run() {
    int exitCode = 0;
    for (bool running = true; running;) {
        try {
            exitCode = CWinApp::Run();
            running = false;
        } catch (const std::exception& e) {
            ReportFatalError(e.what());
        } catch (...) {
            ReportFatalError(nullptr);
        }
    }
    return crashed_ ? 1 : exitCode;
}

void CHostApp::ReportFatalError(const char* what) {
    if (crashed_) {
        return;  // the project has been told once; the loop is ending
    }
    crashed_ = true;
    std::string text;
    if (what != nullptr) {
        text = std::string("Program will terminate due to an exception:\n") + what + "\n";
    }
    CMainFrame* frame = MainFrame();
    NotifyProject(nullptr, frame ? frame->m_hWnd : nullptr, kHostSender, kFatalError, nullptr, 0,
                  what != nullptr ? reinterpret_cast<win::LPARAM>(text.c_str()) : 0);
}

win::BOOL CHostApp::OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) {
    CMainFrame* frame = MainFrame();
    if (code == afx::CN_COMMAND && extra == nullptr && info == nullptr &&
        !(frame && frame->Routing())) {
        appCommands_.push_back(id);
    }
    return CWinApp::OnCmdMsg(id, code, extra, info);
}

}  // namespace velorand::host
