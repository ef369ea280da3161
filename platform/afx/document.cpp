#include "platform/afx/document.h"

#include <algorithm>

#include "platform/afx/doc_template.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"

namespace afx {

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

CDocument::~CDocument() {
    for (CView* view : m_viewList) {
        view->m_pDocument = nullptr;
    }
    if (m_pDocTemplate != nullptr) {
        m_pDocTemplate->RemoveDocument(this);
    }
}

void CDocument::SetTitle(win::LPCSTR title) {
    m_strTitle = title ? title : "";
    UpdateFrameCounts();
}

void CDocument::SetPathName(win::LPCSTR path, BOOL addToMRU) {
    m_strPathName = path ? path : "";
    std::size_t cut = m_strPathName.find_last_of("\\/:");
    SetTitle(m_strPathName.substr(cut == std::string::npos ? 0 : cut + 1).c_str());
    if (addToMRU) {
        if (CWinApp* app = AfxGetApp()) {
            app->AddToRecentFileList(m_strPathName.c_str());
        }
    }
}

BOOL CDocument::IsModified() {
    return m_bModified;
}

void CDocument::SetModifiedFlag(BOOL modified) {
    m_bModified = modified ? TRUE : FALSE;
}

void CDocument::AddView(CView* view) {
    if (view == nullptr || view->m_pDocument == this) {
        return;
    }
    if (view->m_pDocument != nullptr) {
        view->m_pDocument->RemoveView(view);
    }
    m_viewList.push_back(view);
    view->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view) {
    auto it = std::find(m_viewList.begin(), m_viewList.end(), view);
    if (it == m_viewList.end()) {
        return;
    }
    m_viewList.erase(it);
    view->m_pDocument = nullptr;
    OnChangedViewList();  // may delete the document
}

POSITION CDocument::GetFirstViewPosition() const {
    return m_viewList.empty() ? nullptr : PositionAt(0);
}

CView* CDocument::GetNextView(POSITION& pos) const {
    std::size_t i = IndexOf(pos);
    if (pos == nullptr || i >= m_viewList.size()) {
        pos = nullptr;
        return nullptr;
    }
    pos = i + 1 < m_viewList.size() ? PositionAt(i + 1) : nullptr;
    return m_viewList[i];
}

void CDocument::UpdateFrameCounts() {
    std::vector<CFrameWnd*> frames;
    for (CView* view : m_viewList) {
        CFrameWnd* frame = view->GetParentFrame();
        if (frame != nullptr && std::find(frames.begin(), frames.end(), frame) == frames.end()) {
            frames.push_back(frame);
        }
    }
    int number = frames.size() > 1 ? 1 : 0;
    for (CFrameWnd* frame : frames) {
        frame->m_nWindow = number;
        number += frames.size() > 1 ? 1 : 0;
        frame->OnUpdateFrameTitle(TRUE);
    }
}

BOOL CDocument::OnNewDocument() {
    DeleteContents();
    m_strPathName.clear();
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnOpenDocument(win::LPCSTR path) {
    DeleteContents();
    SetModifiedFlag(FALSE);
    return TRUE;
}

BOOL CDocument::OnSaveDocument(win::LPCSTR path) {
    SetModifiedFlag(FALSE);
    return TRUE;
}

void CDocument::OnCloseDocument() {
    // The views go with their frames; the document must outlive them.
    BOOL autoDelete = m_bAutoDelete;
    m_bAutoDelete = FALSE;
    while (!m_viewList.empty()) {
        CView* view = m_viewList.front();
        CFrameWnd* frame = view->GetParentFrame();
        if (frame != nullptr) {
            PreCloseFrame(frame);
            frame->DestroyWindow();
        } else {
            view->DestroyWindow();
        }
        if (!m_viewList.empty() && m_viewList.front() == view) {
            RemoveView(view);  // a view that outlived its window
        }
    }
    m_bAutoDelete = autoDelete;
    DeleteContents();
    if (m_bAutoDelete) {
        delete this;
    }
}

BOOL CDocument::CanCloseFrame(CFrameWnd* frame) {
    for (CView* view : m_viewList) {
        if (view->GetParentFrame() != frame) {
            return TRUE;
        }
    }
    return SaveModified();
}

BOOL CDocument::SaveModified() {
    if (!IsModified()) {
        return TRUE;
    }
    std::string name = m_strTitle.empty() ? m_strPathName : m_strTitle;
    std::string prompt = "Save changes to " + name + "?";
    CWinApp* app = AfxGetApp();
    int answer =
        app ? app->DoMessageBox(prompt.c_str(), MB_YESNOCANCEL | MB_ICONEXCLAMATION, 0) : IDCANCEL;
    if (answer == IDCANCEL) {
        return FALSE;
    }
    return answer == IDYES ? DoFileSave() : TRUE;
}

BOOL CDocument::DoSave(win::LPCSTR path, BOOL replace) {
    std::string target = path && *path ? path : m_strPathName;
    if (target.empty() || !OnSaveDocument(target.c_str())) {
        return FALSE;
    }
    if (replace) {
        SetPathName(target.c_str());
    }
    return TRUE;
}

BOOL CDocument::DoFileSave() {
    return DoSave(m_strPathName.c_str());
}

void CDocument::OnChangedViewList() {
    if (m_viewList.empty() && m_bAutoDelete) {
        OnCloseDocument();
        return;
    }
    UpdateFrameCounts();
}

BOOL CDocument::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    if (CCmdTarget::OnCmdMsg(id, code, extra, info)) {
        return TRUE;
    }
    return m_pDocTemplate != nullptr && m_pDocTemplate->OnCmdMsg(id, code, extra, info);
}

}  // namespace afx
