// CMDIChildWnd: a document's frame inside the MDI client of the main frame. When it becomes
// the active child it puts up its shared menu (the template's) and its active view becomes
// the main frame's active view.
#pragma once

#include "platform/afx/frame_wnd.h"

namespace afx {

class CMDIFrameWnd;

class CMDIChildWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIChildWnd)
  public:
    win::HMENU m_hMenuShared = nullptr;  // not owned: the template's menu

    // Makes the frame in parent's MDI client (the application's main window when null).
    BOOL Create(LPCSTR className, LPCSTR title,
                DWORD style = win::WS_CHILD | win::WS_OVERLAPPEDWINDOW,
                const win::RECT& rect = rectDefault, CMDIFrameWnd* parent = nullptr,
                CCreateContext* context = nullptr);
    // Takes the shared menu of the context's template.
    BOOL LoadFrame(UINT id, DWORD style = win::WS_CHILD | win::WS_OVERLAPPEDWINDOW,
                   CWnd* parent = nullptr, CCreateContext* context = nullptr) override;

    CMDIFrameWnd* GetMDIFrame() const;
    void MDIActivate();
    void MDIDestroy();
    void MDIMaximize();
    void MDIRestore();

    // Shows the frame (maximised when the active child is) and makes it the active child;
    // SW_HIDE only hides it.
    void ActivateFrame(int cmdShow = -1) override;
    void SetActiveView(CView* view, BOOL notify = TRUE) override;
    // activate: puts up menuAlt, else the shared menu, else the main frame's default menu.
    // Otherwise the main frame's default menu comes back.
    virtual void OnUpdateFrameMenu(BOOL activate, CWnd* activateWnd, win::HMENU menuAlt);
    using CFrameWnd::OnUpdateFrameMenu;

    LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

  protected:
    BOOL PreCreateWindow(win::CREATESTRUCT& cs) override;
    virtual void OnMDIActivate(BOOL activate, CWnd* activateWnd, CWnd* deactivateWnd);
};

}  // namespace afx
