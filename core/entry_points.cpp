#include "core/entry_points.h"

#include "core/component_module.h"
#include "core/project_doc.h"
#include "core/project_doc_template.h"
#include "core/tool_group_kit.h"
#include "host/part_shelf.h"
#include "views/project_view.h"

namespace {

velorand::CProjectDocTemplate* theTemplate = nullptr;

// Unloading the component unlinks it, in case the host didn't.
struct UnlinkAtUnload {
    ~UnlinkAtUnload() { UnlinkProjectDll(); }
} unlinkAtUnload;

}  // namespace

afx::CDocTemplate* LinkProjectDll() {
    using namespace velorand;
    if (theTemplate != nullptr) {
        return theTemplate;
    }
    RegisterComponentResources();
    AttachToolGroupKit();
    AttachPartShelf();
    {
        ComponentResourceScope resources;
        theTemplate =
            new CProjectDocTemplate(CProjectDocTemplate::kResourceId, RUNTIME_CLASS(CProjectDoc),
                                    nullptr, RUNTIME_CLASS(CProjectView));
    }
    theTemplate->InitToolGroup(ComponentInstance());
    return theTemplate;
}

afx::CDocTemplate* AttachDll() {
    return LinkProjectDll();
}

int UnlinkProjectDll() {
    if (theTemplate != nullptr) {
        theTemplate->CloseAllDocuments(win::FALSE);
        if (!theTemplate->groupName.empty()) {
            velorand::UnloadToolGroup(theTemplate->groupName.c_str(), 1);
        }
        delete theTemplate;
        theTemplate = nullptr;
    }
    velorand::DetachToolGroupKit();
    velorand::DetachPartShelf();
    return 0;
}
