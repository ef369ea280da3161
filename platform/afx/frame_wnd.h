// CFrameWnd: a window that holds a view (its pane, id AFX_IDW_PANE_FIRST) and control
// bars around it, knows its active view, and routes commands: active view (and through it
// the view's document and its template), then the frame itself, then the application.
// A frame owns itself: it deletes its object when its window is gone, and deleting the
// object destroys the window.
#pragma once

#include "platform/afx/afx_messages.h"
#include "platform/afx/wnd.h"

namespace afx {

class CDocument;
class CView;

class CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)
  public:
    CFrameWnd() = default;
    ~CFrameWnd() override;

    static const win::RECT rectDefault;  // lets the system choose

    win::HMENU m_hMenuDefault = nullptr;  // the menu shown while no document asks for another
    int m_nWindow = -1;  // the frame's number among the frames of its document, 0 when alone

    // Makes the window. A FALSE answer means the object is gone (see CWnd::Create).
    virtual BOOL Create(LPCSTR className, LPCSTR title, DWORD style = win::WS_OVERLAPPEDWINDOW,
                        const win::RECT& rect = rectDefault, CWnd* parent = nullptr,
                        win::HMENU menu = nullptr, DWORD exStyle = 0,
                        CCreateContext* context = nullptr);
    // Create with the title from string resource id (its part before the first '\n') and
    // the menu resource id of the resource module (AfxGetResourceHandle). FALSE: gone.
    virtual BOOL LoadFrame(UINT id, DWORD style = win::WS_OVERLAPPEDWINDOW, CWnd* parent = nullptr,
                           CCreateContext* context = nullptr);

    CView* GetActiveView() const { return m_pViewActive; }
    virtual void SetActiveView(CView* view, BOOL notify = TRUE);
    virtual CDocument* GetActiveDocument();
    virtual CFrameWnd* GetActiveFrame() { return this; }

    // Shows the frame with the show state (-1: as it should come up) and brings it up.
    virtual void ActivateFrame(int cmdShow = -1);
    // Lets the control bars take their room (WM_SIZEPARENT) and gives the pane the rest.
    virtual void RecalcLayout(BOOL notify = TRUE);
    // Shows menuAlt, or the default menu when it is null, as the frame's menu.
    virtual void OnUpdateFrameMenu(win::HMENU menuAlt);
    // Sets the title from the active document: its title, with ":n" for one of several.
    virtual void OnUpdateFrameTitle(BOOL addToTitle);
    // Makes the first pane the active view; when makeVisible, sends WM_INITIALUPDATE to
    // the views and activates the frame. Then the document's frame counts and titles.
    void InitialUpdateFrame(CDocument* doc, BOOL makeVisible);

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

  protected:
    int OnCreate(win::CREATESTRUCT* cs) override;
    // Makes the view of the context as the pane.
    virtual BOOL OnCreateClient(win::CREATESTRUCT* cs, CCreateContext* context);
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);
    void OnClose() override;
    void OnDestroy() override;
    void OnSize(UINT type, int cx, int cy) override;
    void PostNcDestroy() override;

    CView* m_pViewActive = nullptr;
    UINT m_nIDHelp = 0;

  private:
    friend class CView;
    friend class CMDIChildWnd;
    BOOL m_bAutoDelete = TRUE;
    BOOL m_bInRecalcLayout = FALSE;
    win::HMENU m_hMenuLoaded = nullptr;  // the menu LoadFrame loaded, destroyed with the frame
};

}  // namespace afx
