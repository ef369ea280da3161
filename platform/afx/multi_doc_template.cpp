#include "platform/afx/multi_doc_template.h"

#include <algorithm>

#include "platform/afx/document.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/menu.h"
#include "platform/win/resources.h"

namespace afx {

IMPLEMENT_DYNAMIC(CMultiDocTemplate, CDocTemplate)

CMultiDocTemplate::CMultiDocTemplate(UINT id, const CRuntimeClass* docClass,
                                     const CRuntimeClass* frameClass,
                                     const CRuntimeClass* viewClass)
    : CDocTemplate(id, docClass, frameClass, viewClass),
      m_hMenuShared(win::LoadMenu(m_hResources, id)) {}

CMultiDocTemplate::~CMultiDocTemplate() {
    // Documents still open stay with their frames, no longer tied to a template.
    for (CDocument* doc : std::vector<CDocument*>(m_docList)) {
        CDocTemplate::RemoveDocument(doc);
    }
    if (m_hMenuShared != nullptr) {
        win::DestroyMenu(m_hMenuShared);
    }
}

void CMultiDocTemplate::AddDocument(CDocument* doc) {
    CDocTemplate::AddDocument(doc);
    m_docList.push_back(doc);
}

void CMultiDocTemplate::RemoveDocument(CDocument* doc) {
    CDocTemplate::RemoveDocument(doc);
    m_docList.erase(std::remove(m_docList.begin(), m_docList.end(), doc), m_docList.end());
}

POSITION CMultiDocTemplate::GetFirstDocPosition() const {
    return m_docList.empty() ? nullptr : PositionAt(0);
}

CDocument* CMultiDocTemplate::GetNextDoc(POSITION& pos) const {
    std::size_t i = IndexOf(pos);
    if (pos == nullptr || i >= m_docList.size()) {
        pos = nullptr;
        return nullptr;
    }
    pos = i + 1 < m_docList.size() ? PositionAt(i + 1) : nullptr;
    return m_docList[i];
}

// The frame goes, and the document with its last view; a document without views is
// deleted here.
void CMultiDocTemplate::Discard(CFrameWnd* frame, CDocument* doc) {
    frame->DestroyWindow();
    if (std::find(m_docList.begin(), m_docList.end(), doc) != m_docList.end()) {
        doc->OnCloseDocument();
    }
}

CDocument* CMultiDocTemplate::OpenDocumentFile(win::LPCSTR path, BOOL makeVisible) {
    CDocument* doc = CreateNewDocument();
    if (doc == nullptr) {
        ReportDocumentNotMade();
        return nullptr;
    }
    BOOL autoDelete = doc->m_bAutoDelete;
    doc->m_bAutoDelete = FALSE;  // the frame's failure must not take the document along
    CFrameWnd* frame = CreateNewFrame(doc, nullptr);
    doc->m_bAutoDelete = autoDelete;
    if (frame == nullptr) {
        ReportDocumentNotMade();
        delete doc;
        return nullptr;
    }
    if (path == nullptr) {
        SetDefaultTitle(doc);
        if (!makeVisible) {
            doc->m_bEmbedded = TRUE;
        }
        if (!doc->OnNewDocument()) {
            Discard(frame, doc);
            return nullptr;
        }
        ++m_nUntitledCount;
    } else {
        CWaitCursor wait;
        if (!doc->OnOpenDocument(path)) {
            Discard(frame, doc);
            return nullptr;
        }
        doc->SetPathName(path);
    }
    InitialUpdateFrame(frame, doc, makeVisible);
    return doc;
}

void CMultiDocTemplate::SetDefaultTitle(CDocument* doc) {
    std::string name;
    if (!GetDocString(name, docName)) {
        name = "Untitled";
    }
    doc->SetTitle((name + std::to_string(m_nUntitledCount + 1)).c_str());
}

}  // namespace afx
