// CMDIFrameWnd: the main frame of a multiple-document application. Its pane is the MDI
// client (win/mdi_client.h), which holds the child frames. Commands go to the active child
// frame first (and so to its view, document and template), then to this frame and the
// application.
#pragma once

#include "platform/afx/frame_wnd.h"

namespace afx {

class CMDIChildWnd;

class CMDIFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIFrameWnd)
  public:
    HWND m_hWndMDIClient = nullptr;

    // The active child frame, or null; *maximized tells whether it is maximised.
    CMDIChildWnd* MDIGetActive(BOOL* maximized = nullptr) const;
    void MDIActivate(CWnd* child);
    void MDINext();
    void MDIMaximize(CWnd* child);
    void MDIRestore(CWnd* child);
    void MDIIconArrange();

    CFrameWnd* GetActiveFrame() override;
    // With an active child, that child chooses the menu; else menuAlt or the default.
    void OnUpdateFrameMenu(win::HMENU menuAlt) override;
    // The main frame keeps the title it was made with.
    void OnUpdateFrameTitle(BOOL addToTitle) override;
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

  protected:
    BOOL OnCreateClient(win::CREATESTRUCT* cs, CCreateContext* context) override;
    void OnDestroy() override;
};

}  // namespace afx
