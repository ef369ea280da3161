#include "core/project_doc_template.h"

#include "core/component_module.h"
#include "core/project_doc.h"
#include "core/tool_group_kit.h"
#include "platform/afx/create_context.h"
#include "platform/afx/frame_wnd.h"
#include "platform/win/menu.h"
#include "platform/win/resources.h"

namespace velorand {

IMPLEMENT_DYNAMIC(CProjectDocTemplate, CToolGroupDocTemplate)

CProjectDocTemplate::CProjectDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                                         const afx::CRuntimeClass* frameClass,
                                         const afx::CRuntimeClass* viewClass)
    : CToolGroupDocTemplate(id, docClass, frameClass, viewClass) {
    // The shared menu has its own resource, not the document string's id.
    if (m_hMenuShared != nullptr) {
        win::DestroyMenu(m_hMenuShared);
    }
    m_hMenuShared = win::LoadMenu(m_hResources, kSharedMenu);
}

int CProjectDocTemplate::RegisterGroup() {
    return RegisterToolGroup("Project", "Standard", GroupInstance(), kGroupButtons,
                             static_cast<win::UINT>(std::size(kGroupButtons)), nullptr);
}

afx::CFrameWnd* CProjectDocTemplate::CreateNewFrame(afx::CDocument* doc, afx::CFrameWnd* other) {
    auto* frame = new afx::CFrameWnd;
    afx::CCreateContext context;
    context.m_pCurrentFrame = other;
    context.m_pCurrentDoc = doc;
    context.m_pNewViewClass = m_pViewClass;
    context.m_pNewDocTemplate = this;
    ComponentResourceScope resources;
    // A frame that fails to load has deleted itself.
    if (!frame->LoadFrame(m_nIDResource, win::WS_OVERLAPPEDWINDOW, nullptr, &context)) {
        return nullptr;
    }
    return frame;
}

void CProjectDocTemplate::InitialUpdateFrame(afx::CFrameWnd* frame, afx::CDocument* doc,
                                             win::BOOL makeVisible) {
    if (doc != nullptr) {
        doc->UpdateFrameCounts();
    }
}

void CProjectDocTemplate::ForgetDocument(afx::CDocument* doc) {
    if (currentDoc == doc) {
        currentDoc = nullptr;
    }
}

}  // namespace velorand
