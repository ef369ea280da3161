#include "platform/afx/frame_wnd.h"

#include <utility>
#include <vector>

#include "platform/afx/create_context.h"
#include "platform/afx/document.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/menu.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/resources.h"

namespace afx {

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const win::RECT CFrameWnd::rectDefault = {win::CW_USEDEFAULT, win::CW_USEDEFAULT,
                                          win::CW_USEDEFAULT, win::CW_USEDEFAULT};

CFrameWnd* CWnd::GetParentFrame() const {
    // Windows without an object (the MDI client) are passed through.
    for (HWND h = win::GetParent(m_hWnd); h != nullptr; h = win::GetParent(h)) {
        CWnd* w = FromHandle(h);
        if (w != nullptr && w->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
            return static_cast<CFrameWnd*>(w);
        }
    }
    return nullptr;
}

CFrameWnd::~CFrameWnd() {
    if (m_hWnd != nullptr) {
        m_bAutoDelete = FALSE;  // the object is going already
        DestroyWindow();
    }
}

BOOL CFrameWnd::Create(LPCSTR className, LPCSTR title, DWORD style, const win::RECT& rect,
                       CWnd* parent, win::HMENU menu, DWORD exStyle, CCreateContext* context) {
    win::RECT r = rect;
    if (r.left == win::CW_USEDEFAULT) {
        r = win::RECT{win::CW_USEDEFAULT, 0, win::CW_USEDEFAULT, 0};
    }
    if (menu != nullptr) {
        m_hMenuDefault = menu;
    }
    return CreateEx(exStyle, className, title, style, r, parent,
                    static_cast<UINT>(win::NumberFromHandle(menu)), context);
}

namespace {

std::string TitleOf(UINT id) {
    char buffer[512];
    win::LoadString(AfxGetResourceHandle(), id, buffer, sizeof buffer);
    std::string text = buffer;
    return text.substr(0, text.find('\n'));
}

}  // namespace

BOOL CFrameWnd::LoadFrame(UINT id, DWORD style, CWnd* parent, CCreateContext* context) {
    m_nIDHelp = id;
    std::string title = TitleOf(id);
    win::HMENU menu = win::LoadMenu(AfxGetResourceHandle(), id);
    m_hMenuLoaded = menu;
    if (!Create(nullptr, title.c_str(), style, rectDefault, parent, menu, 0, context)) {
        win::DestroyMenu(menu);  // the frame is gone; its menu goes too
        return FALSE;
    }
    return TRUE;
}

void CFrameWnd::SetActiveView(CView* view, BOOL notify) {
    CView* old = m_pViewActive;
    if (view == old) {
        return;
    }
    m_pViewActive = view;
    if (notify) {
        if (old != nullptr) {
            old->OnActivateView(FALSE, view, old);
        }
        if (view != nullptr) {
            view->OnActivateView(TRUE, view, old);
        }
    }
}

CDocument* CFrameWnd::GetActiveDocument() {
    CView* view = GetActiveView();
    return view ? view->GetDocument() : nullptr;
}

void CFrameWnd::ActivateFrame(int cmdShow) {
    if (cmdShow == -1) {
        if (!IsWindowVisible()) {
            cmdShow = win::SW_SHOWNORMAL;
        } else if (IsIconic()) {
            cmdShow = win::SW_RESTORE;
        }
    }
    if (cmdShow != -1) {
        ShowWindow(cmdShow);
    }
    if (m_hWnd != nullptr && cmdShow != win::SW_HIDE) {
        BringWindowToTop();
    }
}

void CFrameWnd::RecalcLayout(BOOL notify) {
    if (m_bInRecalcLayout || m_hWnd == nullptr) {
        return;
    }
    m_bInRecalcLayout = TRUE;
    AFX_SIZEPARENTPARAMS layout;
    GetClientRect(&layout.rect);
    HWND pane = win::GetDlgItem(m_hWnd, AFX_IDW_PANE_FIRST);
    std::vector<HWND> children;
    for (HWND c = win::GetWindow(m_hWnd, win::GW_CHILD); c;
         c = win::GetWindow(c, win::GW_HWNDNEXT)) {
        children.push_back(c);
    }
    for (HWND c : children) {
        if (c != pane && win::IsWindowVisible(c)) {
            win::SendMessage(c, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
        }
    }
    if (win::IsWindow(pane)) {
        const win::RECT& r = layout.rect;
        win::MoveWindow(pane, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
    }
    m_bInRecalcLayout = FALSE;
}

void CFrameWnd::OnUpdateFrameMenu(win::HMENU menuAlt) {
    win::SetMenu(m_hWnd, menuAlt ? menuAlt : m_hMenuDefault);
}

void CFrameWnd::OnUpdateFrameTitle(BOOL addToTitle) {
    CDocument* doc = GetActiveDocument();
    if (!addToTitle || doc == nullptr) {
        return;
    }
    std::string title = doc->GetTitle();
    if (m_nWindow > 0) {
        title += ":" + std::to_string(m_nWindow);
    }
    SetWindowText(title.c_str());
}

void CFrameWnd::InitialUpdateFrame(CDocument* doc, BOOL makeVisible) {
    CView* view = GetActiveView();
    if (view == nullptr) {
        CWnd* pane = GetDlgItem(AFX_IDW_PANE_FIRST);
        if (pane != nullptr && pane->IsKindOf(RUNTIME_CLASS(CView))) {
            view = static_cast<CView*>(pane);
            SetActiveView(view, FALSE);
        }
    }
    HWND self = m_hWnd;
    if (makeVisible) {
        SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
        if (!win::IsWindow(self)) {
            return;
        }
        ActivateFrame(-1);
        if (view != nullptr && GetActiveView() == view) {
            view->OnActivateView(TRUE, view, view);
        }
    }
    if (doc != nullptr) {
        doc->UpdateFrameCounts();
    }
    if (win::IsWindow(self)) {
        OnUpdateFrameTitle(TRUE);
    }
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (CView* view = GetActiveView(); view && view->OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    if (CWnd::OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    CWinApp* app = AfxGetApp();
    return app != nullptr && app->OnCmdMsg(id, code, extra, info);
}

int CFrameWnd::OnCreate(win::CREATESTRUCT* cs) {
    auto* context = static_cast<CCreateContext*>(cs->lpCreateParams);
    if (!OnCreateClient(cs, context)) {
        return -1;
    }
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(win::CREATESTRUCT* cs, CCreateContext* context) {
    if (context != nullptr && context->m_pNewViewClass != nullptr) {
        return CreateView(context) != nullptr;
    }
    return TRUE;
}

CWnd* CFrameWnd::CreateView(CCreateContext* context, UINT id) {
    CObject* object = context->m_pNewViewClass->CreateObject();
    if (object == nullptr || !object->IsKindOf(RUNTIME_CLASS(CWnd))) {
        delete object;
        return nullptr;
    }
    auto* view = static_cast<CWnd*>(object);
    // A view that fails to come up has deleted itself.
    if (!view->Create(nullptr, nullptr, win::WS_CHILD | win::WS_VISIBLE, win::RECT{}, this, id,
                      context)) {
        return nullptr;
    }
    return view;
}

void CFrameWnd::OnClose() {
    CDocument* doc = GetActiveDocument();
    if (doc != nullptr && !doc->CanCloseFrame(this)) {
        return;
    }
    CWinApp* app = AfxGetApp();
    if (app != nullptr && app->m_pMainWnd == this) {
        if (doc == nullptr && !app->SaveAllModified()) {
            return;
        }
        app->CloseAllDocuments(FALSE);
        DestroyWindow();
        return;
    }
    if (doc != nullptr && doc->m_bAutoDelete) {
        // The last frame of the document closes the document, which takes the frame along.
        BOOL otherFrame = FALSE;
        POSITION pos = doc->GetFirstViewPosition();
        while (pos != nullptr) {
            CView* view = doc->GetNextView(pos);
            if (view->GetParentFrame() != this) {
                otherFrame = TRUE;
            }
        }
        if (!otherFrame) {
            doc->OnCloseDocument();
            return;
        }
        doc->PreCloseFrame(this);
    }
    DestroyWindow();
}

void CFrameWnd::OnDestroy() {
    m_pViewActive = nullptr;
    if (m_hMenuLoaded != nullptr) {
        if (win::GetMenu(m_hWnd) == m_hMenuLoaded) {
            win::SetMenu(m_hWnd, nullptr);
        }
        win::DestroyMenu(std::exchange(m_hMenuLoaded, nullptr));
    }
    CWinApp* app = AfxGetApp();
    if (app != nullptr && app->m_pMainWnd == this) {
        app->m_pMainWnd = nullptr;
        win::PostQuitMessage(0);
    }
    CWnd::OnDestroy();
}

void CFrameWnd::OnSize(UINT type, int cx, int cy) {
    if (type != win::SIZE_MINIMIZED) {
        RecalcLayout();
    }
}

void CFrameWnd::PostNcDestroy() {
    if (m_bAutoDelete) {
        delete this;
    }
}

}  // namespace afx
