// CWinApp: the one application object. It keeps the document templates (not owned: a
// template leaves the list when it is deleted), the main window, the list of recent
// files, the wait cursor and the help calls, and stands last in the command route, where
// it offers commands to its own table and then to each template.
#pragma once

#include <string>
#include <vector>

#include "platform/afx/cmd_target.h"
#include "platform/win/message_box.h"
#include "platform/win/types.h"

namespace afx {

class CDocTemplate;
class CDocument;
class CWnd;

inline constexpr UINT HELP_CONTEXT = 0x0001;
inline constexpr UINT HELP_QUIT = 0x0002;
inline constexpr UINT HELP_FINDER = 0x000B;

// Message box types and answers, as the platform's message box takes and gives them.
using win::IDCANCEL;
using win::IDNO;
using win::IDOK;
using win::IDYES;
using win::MB_ICONEXCLAMATION;
using win::MB_OK;
using win::MB_OKCANCEL;
using win::MB_YESNO;
using win::MB_YESNOCANCEL;

struct WinHelpCall {
    win::DWORD data;
    UINT command;
};

class CWinApp : public CCmdTarget {
    DECLARE_DYNAMIC(CWinApp)
  public:
    // Becomes the application that AfxGetApp gives, until it is destroyed.
    explicit CWinApp(win::LPCSTR appName = nullptr);
    ~CWinApp() override;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    std::string m_pszAppName;
    win::HINSTANCE m_hInstance = nullptr;
    CWnd* m_pMainWnd = nullptr;
    UINT m_nMaxMRU = 4;

    CWnd* GetMainWnd() const { return m_pMainWnd; }

    void AddDocTemplate(CDocTemplate* tmpl);
    const std::vector<CDocTemplate*>& GetDocTemplates() const { return m_templates; }
    // A document already open under the path comes back with its frame activated. Else
    // the template whose filter extension the path has (else the first) opens it.
    virtual CDocument* OpenDocumentFile(win::LPCSTR path);
    virtual void CloseAllDocuments(BOOL endSession);
    virtual BOOL SaveAllModified();

    // Most recent first, at most m_nMaxMRU paths, no path twice (case ignored).
    virtual void AddToRecentFileList(win::LPCSTR path);
    const std::vector<std::string>& GetRecentFileList() const { return m_recentFiles; }

    // The application's profile (win/app_profile.h).
    UINT GetProfileInt(win::LPCSTR section, win::LPCSTR entry, int defaultValue);
    BOOL WriteProfileInt(win::LPCSTR section, win::LPCSTR entry, int value);
    // The value whole, however long; the default when it is missing.
    std::string GetProfileString(win::LPCSTR section, win::LPCSTR entry,
                                 win::LPCSTR defaultValue = nullptr);
    BOOL WriteProfileString(win::LPCSTR section, win::LPCSTR entry, win::LPCSTR value);

    // Help is not shown; the calls are kept, in order.
    virtual void WinHelp(win::DWORD data, UINT command = HELP_CONTEXT);
    const std::vector<WinHelpCall>& GetWinHelpCalls() const { return m_winHelpCalls; }

    // The wait cursor: shown while the count is above 0, the cursor before comes back
    // when it falls to 0. DoWaitCursor(1) counts up, (-1) down, (0) shows it again.
    virtual void DoWaitCursor(int code);
    void BeginWaitCursor() { DoWaitCursor(1); }
    void EndWaitCursor() { DoWaitCursor(-1); }
    void RestoreWaitCursor() { DoWaitCursor(0); }
    int GetWaitCursorCount() const { return m_nWaitCursorCount; }

    // How the framework asks the user (a document's SaveModified). This application has
    // no seat, so it answers a question with its cautious button: Cancel where there is
    // one, else No, else OK. An application with a user's seat overrides it.
    virtual int DoMessageBox(win::LPCSTR prompt, UINT type, UINT helpId);

    // Dispatches messages until WM_QUIT (its exit code) or until nothing is queued (0).
    virtual int Run();

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

  private:
    friend class CDocTemplate;
    void RemoveDocTemplate(CDocTemplate* tmpl);

    std::vector<CDocTemplate*> m_templates;
    std::vector<std::string> m_recentFiles;
    std::vector<WinHelpCall> m_winHelpCalls;
    int m_nWaitCursorCount = 0;
    win::HCURSOR m_hcurWaitCursorRestore = nullptr;
};

CWinApp* AfxGetApp();
CWnd* AfxGetMainWnd();
win::HINSTANCE AfxGetInstanceHandle();
// The module whose resources templates and frames load; the application's by default.
win::HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(win::HINSTANCE instance);

// The wait cursor for the life of the object.
class CWaitCursor {
  public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    void Restore();
};

}  // namespace afx
