#include "platform/afx/doc_template.h"

#include <algorithm>
#include <vector>

#include "platform/afx/create_context.h"
#include "platform/afx/document.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/resources.h"

namespace afx {

IMPLEMENT_DYNAMIC(CDocTemplate, CCmdTarget)

CDocTemplate::CDocTemplate(UINT id, const CRuntimeClass* docClass, const CRuntimeClass* frameClass,
                           const CRuntimeClass* viewClass)
    : m_nIDResource(id),
      m_pDocClass(docClass),
      m_pFrameClass(frameClass),
      m_pViewClass(viewClass),
      m_hResources(AfxGetResourceHandle()) {
    char buffer[1024];
    win::LoadString(m_hResources, id, buffer, sizeof buffer);
    m_strDocStrings = buffer;
}

CDocTemplate::~CDocTemplate() {
    if (CWinApp* app = AfxGetApp()) {
        app->RemoveDocTemplate(this);
    }
}

BOOL CDocTemplate::GetDocString(std::string& out, DocStringIndex index) const {
    out.clear();
    std::size_t start = 0;
    for (int i = 0; i < index; ++i) {
        start = m_strDocStrings.find('\n', start);
        if (start == std::string::npos) {
            return FALSE;
        }
        ++start;
    }
    std::size_t end = m_strDocStrings.find('\n', start);
    out = m_strDocStrings.substr(start, end == std::string::npos ? std::string::npos : end - start);
    return out.empty() ? FALSE : TRUE;
}

void CDocTemplate::AddDocument(CDocument* doc) {
    doc->m_pDocTemplate = this;
}

void CDocTemplate::RemoveDocument(CDocument* doc) {
    if (doc->m_pDocTemplate == this) {
        doc->m_pDocTemplate = nullptr;
    }
}

CDocument* CDocTemplate::CreateNewDocument() {
    CObject* object = m_pDocClass ? m_pDocClass->CreateObject() : nullptr;
    if (object == nullptr) {
        return nullptr;
    }
    if (!object->IsKindOf(RUNTIME_CLASS(CDocument))) {
        delete object;
        return nullptr;
    }
    auto* doc = static_cast<CDocument*>(object);
    AddDocument(doc);
    return doc;
}

CFrameWnd* CDocTemplate::CreateNewFrame(CDocument* doc, CFrameWnd* other) {
    CObject* object = m_pFrameClass ? m_pFrameClass->CreateObject() : nullptr;
    if (object == nullptr) {
        return nullptr;
    }
    if (!object->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
        delete object;
        return nullptr;
    }
    auto* frame = static_cast<CFrameWnd*>(object);
    CCreateContext context;
    context.m_pCurrentFrame = other;
    context.m_pCurrentDoc = doc;
    context.m_pNewViewClass = m_pViewClass;
    context.m_pNewDocTemplate = this;
    // A frame that fails to load has deleted itself.
    if (!frame->LoadFrame(m_nIDResource, win::WS_OVERLAPPEDWINDOW, nullptr, &context)) {
        return nullptr;
    }
    return frame;
}

void CDocTemplate::InitialUpdateFrame(CFrameWnd* frame, CDocument* doc, BOOL makeVisible) {
    frame->InitialUpdateFrame(doc, makeVisible);
}

namespace {

std::vector<CDocument*> Documents(const CDocTemplate& tmpl) {
    std::vector<CDocument*> docs;
    for (POSITION pos = tmpl.GetFirstDocPosition(); pos != nullptr;) {
        docs.push_back(tmpl.GetNextDoc(pos));
    }
    return docs;
}

bool Holds(const CDocTemplate& tmpl, CDocument* doc) {
    std::vector<CDocument*> docs = Documents(tmpl);
    return std::find(docs.begin(), docs.end(), doc) != docs.end();
}

}  // namespace

BOOL CDocTemplate::SaveAllModified() {
    for (CDocument* doc : Documents(*this)) {
        if (Holds(*this, doc) && !doc->SaveModified()) {
            return FALSE;
        }
    }
    return TRUE;
}

void CDocTemplate::CloseAllDocuments(BOOL endSession) {
    // A close may take other documents along; each is closed only while it is still here.
    for (CDocument* doc : Documents(*this)) {
        if (Holds(*this, doc)) {
            doc->OnCloseDocument();
        }
    }
}

void ReportDocumentNotMade() {
    if (CWinApp* app = AfxGetApp()) {
        app->DoMessageBox("Failed to create the document.", MB_OK | MB_ICONEXCLAMATION, 0);
    }
}

}  // namespace afx
