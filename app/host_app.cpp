#include "app/host_app.h"

#include "platform/afx/doc_template.h"
#include "platform/win/message_box.h"

namespace velorand::host {

CHostApp::CHostApp() : CWinApp("Velorand") {}

CHostApp::~CHostApp() {
    UnloadComponent();
    if (CMainFrame* frame = MainFrame()) {
        frame->DestroyWindow();  // the frame deletes itself
    }
}

bool CHostApp::CreateMainFrame() {
    auto* frame = new CMainFrame;
    if (!frame->Create("Velorand")) {
        return false;  // the frame is gone already
    }
    m_pMainWnd = frame;
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

win::BOOL CHostApp::OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) {
    CMainFrame* frame = MainFrame();
    if (code == afx::CN_COMMAND && extra == nullptr && info == nullptr &&
        !(frame && frame->Routing())) {
        appCommands_.push_back(id);
    }
    return CWinApp::OnCmdMsg(id, code, extra, info);
}

}  // namespace velorand::host
