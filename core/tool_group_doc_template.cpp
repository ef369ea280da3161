#include "core/tool_group_doc_template.h"

#include "core/tool_group_kit.h"

namespace velorand {

IMPLEMENT_DYNAMIC(CToolGroupDocTemplate, CMultiDocTemplate)

CToolGroupDocTemplate::CToolGroupDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                                             const afx::CRuntimeClass* frameClass,
                                             const afx::CRuntimeClass* viewClass)
    : CMultiDocTemplate(id, docClass, frameClass, viewClass) {}

void CToolGroupDocTemplate::SetStatusText(int index, int arg, const char* text) {
    if (index >= 0 && index < static_cast<int>(statusTexts.size())) {
        statusTexts[index] = text != nullptr ? text : "";
    }
}

void CToolGroupDocTemplate::InitToolGroup(win::HINSTANCE instance) {
    groupInstance_ = instance;
    GetDocString(groupName, windowTitle);
    if (!groupName.empty()) {
        RegisterGroup();
        PrepareGroup();
        SetupStatusPanes();
    }
}

void CToolGroupDocTemplate::RemoveDocument(afx::CDocument* doc) {
    CMultiDocTemplate::RemoveDocument(doc);
    if (GetFirstDocPosition() == nullptr) {
        UnloadToolGroup(groupName.c_str(), 0);
        SetStatusText(0, 0, "Ready");
        toolGroupEnabled = 0;
    }
}

}  // namespace velorand
