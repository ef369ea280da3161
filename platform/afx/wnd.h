// CWnd: a C++ object tied to a window handle.
//
// How a class handles messages. Every message for the window reaches the virtual
// WindowProc of its object. CWnd::WindowProc hands the common messages to virtual
// handlers (WM_CREATE to OnCreate, WM_DESTROY to OnDestroy, WM_CLOSE to OnClose, WM_SIZE to
// OnSize, WM_COMMAND to OnCommand, WM_NOTIFY to OnNotify) and everything else to
// DefWindowProc. A derived class overrides a handler, or overrides WindowProc for its
// own messages and calls its base class's WindowProc for the rest:
//
//   LRESULT CMyView::WindowProc(UINT msg, WPARAM w, LPARAM l) {
//       if (msg == PM_FIRST_QUERY) return std::exchange(firstQuery, 0);
//       return CView::WindowProc(msg, w, l);
//   }
//
// WM_COMMAND goes to OnCmdMsg with the command id and the notification code, so commands
// and control notifications (BN_CLICKED is code 0) are taken by the command table
// (cmd_target.h). A WM_NOTIFY that the parent does not take is reflected: the object of
// the sending control gets it in OnChildNotify, so a control can handle its own
// notifications. Handlers may send messages to any window, their own included, and may
// destroy their own window.
//
// Life: Create makes the window and ties the object to it before its first message;
// WM_NCDESTROY unties it and calls PostNcDestroy, where classes that own themselves
// (frames, views) delete the object. Deleting an object whose window is alive destroys
// the window; only CWnd's handlers run then, as the derived parts are already gone, so
// a class whose own WM_DESTROY handling must run destroys its window in its destructor.
// FromHandle finds the object of a handle; windows made without an object have none.
#pragma once

#include <string>

#include "platform/afx/cmd_target.h"
#include "platform/win/geometry.h"
#include "platform/win/window.h"
#include "platform/win/window_placement.h"

namespace afx {

using win::DWORD;
using win::HWND;
using win::LPARAM;
using win::LPCSTR;
using win::LPSTR;
using win::LRESULT;
using win::WPARAM;

struct CCreateContext;
class CFrameWnd;
class CMenu;

class CWnd : public CCmdTarget {
    DECLARE_DYNCREATE(CWnd)
  public:
    CWnd() = default;
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;

    HWND GetSafeHwnd() const { return m_hWnd; }
    // The object tied to the handle, or null.
    static CWnd* FromHandle(HWND hwnd);
    static CWnd* FromHandlePermanent(HWND hwnd) { return FromHandle(hwnd); }
    // Ties the object to a window made elsewhere, without taking its messages; Detach
    // unties it again. Attach fails when either is tied already.
    BOOL Attach(HWND hwnd);
    HWND Detach();

    // Makes the window. A null class name takes the framework's own class; the context
    // goes to WM_CREATE as lpCreateParams. When the window is refused during creation,
    // PostNcDestroy has run: an object that deletes itself there is gone.
    virtual BOOL Create(LPCSTR className, LPCSTR windowName, DWORD style, const win::RECT& rect,
                        CWnd* parent, UINT id, CCreateContext* context = nullptr);
    // For a top-level window, parent is the owner and id a menu handle's number.
    BOOL CreateEx(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                  const win::RECT& rect, CWnd* parent, UINT id, win::LPVOID param = nullptr);
    virtual BOOL PreCreateWindow(win::CREATESTRUCT& cs);
    virtual BOOL DestroyWindow();

    // Messages.
    LRESULT SendMessage(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT msg, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // Sends to the children in creation order, and with deep to all descendants; with
    // onlyPerm only to windows that have an object.
    void SendMessageToDescendants(UINT msg, WPARAM wParam, LPARAM lParam, BOOL deep = TRUE,
                                  BOOL onlyPerm = FALSE) const;
    virtual LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT DefWindowProc(UINT msg, WPARAM wParam, LPARAM lParam);

    // Family.
    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* newParent);
    // The owner that SetOwner gave, else the parent.
    CWnd* GetOwner() const;
    void SetOwner(CWnd* owner);
    // The nearest frame window above this one.
    CFrameWnd* GetParentFrame() const;
    CWnd* GetDlgItem(int id) const;
    int GetDlgCtrlID() const;
    BOOL IsChild(const CWnd* wnd) const;

    // Text and state.
    void SetWindowText(LPCSTR text);
    int GetWindowText(LPSTR buffer, int size) const;
    void GetWindowText(std::string& text) const;
    int GetWindowTextLength() const;
    BOOL ShowWindow(int cmdShow);
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL IsZoomed() const;
    BOOL IsIconic() const;
    BOOL BringWindowToTop();
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add);

    // Geometry and painting.
    void GetWindowRect(win::RECT* rect) const;
    void GetClientRect(win::RECT* rect) const;
    void ClientToScreen(win::POINT* point) const;
    void ScreenToClient(win::POINT* point) const;
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const win::RECT& rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int cx, int cy, UINT flags);
    BOOL GetWindowPlacement(win::WINDOWPLACEMENT* placement) const;
    BOOL SetWindowPlacement(const win::WINDOWPLACEMENT* placement);
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(const win::RECT* rect, BOOL erase = TRUE);
    void UpdateWindow();

    // The keyboard focus (focus.h).
    CWnd* SetFocus();
    static CWnd* GetFocus();

    // Mouse capture.
    CWnd* SetCapture();
    static CWnd* GetCapture();

    // The window's menu bar.
    BOOL SetMenu(CMenu* menu);
    void DrawMenuBar();

    // Handlers with a result.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // A notification this window sent to its parent, reflected back: TRUE, with the
    // result set, when the window handled it itself.
    virtual BOOL OnChildNotify(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result);

  protected:
    // CreateEx under a window that has no object (the MDI client).
    BOOL CreateUnder(DWORD exStyle, LPCSTR className, LPCSTR windowName, DWORD style,
                     const win::RECT& rect, HWND parent, UINT id, win::LPVOID param);

    virtual int OnCreate(win::CREATESTRUCT* cs);
    virtual void OnDestroy();
    virtual void OnNcDestroy();
    virtual void OnClose();
    virtual void OnSize(UINT type, int cx, int cy);
    // After the window is gone and the object untied from it.
    virtual void PostNcDestroy();

    win::WNDPROC m_pfnSuper = nullptr;  // the class's own procedure, when not the framework's
    HWND m_hWndOwner = nullptr;

    friend void AttachCreatingWindow(HWND hwnd);
};

// A window class of the framework with the given class style and cursor; the same pair
// always gives the same name.
LPCSTR AfxRegisterWndClass(UINT classStyle, win::HCURSOR cursor = nullptr);

}  // namespace afx
