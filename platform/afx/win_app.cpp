#include "platform/afx/win_app.h"

#include <algorithm>
#include <cctype>

#include "platform/afx/doc_template.h"
#include "platform/afx/document.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/win/app_profile.h"
#include "platform/win/cursor.h"
#include "platform/win/message_queue.h"
#include "platform/win/strings.h"

namespace afx {

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace {

CWinApp* theApp = nullptr;
win::HINSTANCE resourceHandle = nullptr;

std::vector<CDocument*> DocumentsOf(const CDocTemplate* tmpl) {
    std::vector<CDocument*> docs;
    for (POSITION pos = tmpl->GetFirstDocPosition(); pos != nullptr;) {
        docs.push_back(tmpl->GetNextDoc(pos));
    }
    return docs;
}

}  // namespace

CWinApp::CWinApp(win::LPCSTR appName) : m_pszAppName(appName ? appName : "") {
    theApp = this;
}

CWinApp::~CWinApp() {
    if (theApp == this) {
        theApp = nullptr;
    }
}

void CWinApp::AddDocTemplate(CDocTemplate* tmpl) {
    if (tmpl != nullptr &&
        std::find(m_templates.begin(), m_templates.end(), tmpl) == m_templates.end()) {
        m_templates.push_back(tmpl);
    }
}

void CWinApp::RemoveDocTemplate(CDocTemplate* tmpl) {
    m_templates.erase(std::remove(m_templates.begin(), m_templates.end(), tmpl), m_templates.end());
}

CDocument* CWinApp::OpenDocumentFile(win::LPCSTR path) {
    if (path == nullptr) {
        return nullptr;
    }
    for (CDocTemplate* tmpl : m_templates) {
        for (CDocument* doc : DocumentsOf(tmpl)) {
            if (win::EqualNoCase(doc->GetPathName(), path)) {
                POSITION pos = doc->GetFirstViewPosition();
                CView* view = doc->GetNextView(pos);
                if (CFrameWnd* frame = view ? view->GetParentFrame() : nullptr) {
                    frame->ActivateFrame();
                }
                return doc;
            }
        }
    }
    std::string name = path;
    std::size_t dot = name.find_last_of('.');
    std::string extension = dot == std::string::npos ? "" : name.substr(dot);
    CDocTemplate* chosen = m_templates.empty() ? nullptr : m_templates.front();
    for (CDocTemplate* tmpl : m_templates) {
        std::string filter;
        if (!extension.empty() && tmpl->GetDocString(filter, CDocTemplate::filterExt) &&
            win::EqualNoCase(filter, extension)) {
            chosen = tmpl;
            break;
        }
    }
    return chosen ? chosen->OpenDocumentFile(path) : nullptr;
}

void CWinApp::CloseAllDocuments(BOOL endSession) {
    for (CDocTemplate* tmpl : std::vector<CDocTemplate*>(m_templates)) {
        if (std::find(m_templates.begin(), m_templates.end(), tmpl) != m_templates.end()) {
            tmpl->CloseAllDocuments(endSession);
        }
    }
}

BOOL CWinApp::SaveAllModified() {
    for (CDocTemplate* tmpl : std::vector<CDocTemplate*>(m_templates)) {
        if (!tmpl->SaveAllModified()) {
            return FALSE;
        }
    }
    return TRUE;
}

void CWinApp::AddToRecentFileList(win::LPCSTR path) {
    if (path == nullptr || *path == '\0' || m_nMaxMRU == 0) {
        return;
    }
    std::string entry = path;
    m_recentFiles.erase(
        std::remove_if(m_recentFiles.begin(), m_recentFiles.end(),
                       [&](const std::string& p) { return win::EqualNoCase(p, entry); }),
        m_recentFiles.end());
    m_recentFiles.insert(m_recentFiles.begin(), entry);
    if (m_recentFiles.size() > m_nMaxMRU) {
        m_recentFiles.resize(m_nMaxMRU);
    }
}

UINT CWinApp::GetProfileInt(win::LPCSTR section, win::LPCSTR entry, int defaultValue) {
    return win::GetProfileInt(section, entry, defaultValue);
}

BOOL CWinApp::WriteProfileInt(win::LPCSTR section, win::LPCSTR entry, int value) {
    return win::WriteProfileInt(section, entry, value);
}

std::string CWinApp::GetProfileString(win::LPCSTR section, win::LPCSTR entry,
                                      win::LPCSTR defaultValue) {
    // A value that fills the buffer may have been cut: ask again with more room.
    for (win::DWORD size = 256;; size *= 2) {
        std::string buffer(size, '\0');
        win::DWORD n = win::GetProfileString(section, entry, defaultValue ? defaultValue : "",
                                             buffer.data(), size);
        if (n + 1 < size || size >= (1u << 24)) {
            buffer.resize(n);
            return buffer;
        }
    }
}

BOOL CWinApp::WriteProfileString(win::LPCSTR section, win::LPCSTR entry, win::LPCSTR value) {
    return win::WriteProfileString(section, entry, value);
}

void CWinApp::WinHelp(win::DWORD data, UINT command) {
    m_winHelpCalls.push_back(WinHelpCall{data, command});
}

void CWinApp::DoWaitCursor(int code) {
    if (code > 0) {
        if (m_nWaitCursorCount++ == 0) {
            m_hcurWaitCursorRestore = win::SetCursor(win::LoadCursor(nullptr, win::IDC_WAIT));
        }
    } else if (code < 0) {
        if (m_nWaitCursorCount > 0 && --m_nWaitCursorCount == 0) {
            win::SetCursor(m_hcurWaitCursorRestore);
        }
    } else if (m_nWaitCursorCount > 0) {
        win::SetCursor(win::LoadCursor(nullptr, win::IDC_WAIT));
    }
}

int CWinApp::DoMessageBox(win::LPCSTR prompt, UINT type, UINT helpId) {
    win::HWND owner = m_pMainWnd ? m_pMainWnd->m_hWnd : nullptr;
    return win::MessageBox(owner, prompt, m_pszAppName.c_str(), type);
}

int CWinApp::Run() {
    win::MSG msg;
    for (;;) {
        win::BOOL got = win::GetMessage(&msg, nullptr, 0, 0);
        if (got == 0) {
            return static_cast<int>(msg.wParam);
        }
        if (got < 0) {
            return 0;
        }
        win::DispatchMessage(&msg);
    }
}

BOOL CWinApp::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (CCmdTarget::OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    for (CDocTemplate* tmpl : std::vector<CDocTemplate*>(m_templates)) {
        if (tmpl->OnCmdMsg(id, code, extra, info)) {
            return TRUE;
        }
    }
    return FALSE;
}

CWinApp* AfxGetApp() {
    return theApp;
}

CWnd* AfxGetMainWnd() {
    return theApp ? theApp->m_pMainWnd : nullptr;
}

win::HINSTANCE AfxGetInstanceHandle() {
    return theApp ? theApp->m_hInstance : nullptr;
}

win::HINSTANCE AfxGetResourceHandle() {
    return resourceHandle ? resourceHandle : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(win::HINSTANCE instance) {
    resourceHandle = instance;
}

CWaitCursor::CWaitCursor() {
    if (CWinApp* app = AfxGetApp()) {
        app->BeginWaitCursor();
    }
}

CWaitCursor::~CWaitCursor() {
    if (CWinApp* app = AfxGetApp()) {
        app->EndWaitCursor();
    }
}

void CWaitCursor::Restore() {
    if (CWinApp* app = AfxGetApp()) {
        app->RestoreWaitCursor();
    }
}

}  // namespace afx
