// CView: a window that shows a document. It joins its document's view list when it is
// created through a frame's creation context, leaves it when it goes, and routes commands
// to itself first and then to its document. A view owns itself like a frame.
#pragma once

#include "platform/afx/wnd.h"

namespace afx {

class CDocument;

class CView : public CWnd {
    DECLARE_DYNAMIC(CView)
  public:
    ~CView() override;

    CDocument* GetDocument() const { return m_pDocument; }

    // WM_INITIALUPDATE, once the frame is complete.
    virtual void OnInitialUpdate() {}
    virtual void OnActivateView(BOOL activate, CView* activateView, CView* deactiveView) {}

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
    LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override;

  protected:
    int OnCreate(win::CREATESTRUCT* cs) override;
    void OnDestroy() override;
    void PostNcDestroy() override;

  private:
    friend class CDocument;
    void LeaveFrames();
    CDocument* m_pDocument = nullptr;
};

}  // namespace afx
