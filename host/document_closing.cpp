// A host document closes (code 201): it leaves the project. A modified schematic of the
// project is stored on its way out, unless the whole project is being closed.
#include "core/project_doc.h"
#include "host/notify_codes.h"
#include "host/project_notify.h"

namespace velorand {

void CProjectDoc::OnDocumentClosing(ProjectNotify* record) {
    afx::CDocument* doc = record->document;
    if (doc == nullptr)
        return;
    const bool modified = doc->IsModified() != win::FALSE;
    if (record->idFrom == kFromTemplate)
        ForgetSimulatorTemplate();
    SetModifiedFlag(win::TRUE);
    SchematicNode* node = FindDocNode(doc);
    if (node != nullptr) {
        node->openDoc = nullptr;
        node->state |= SchematicNode::kClosed;
    }
    Detach(doc);
    if (modified && node != nullptr && !busy)
        UpdateProject(win::FALSE);
}

}  // namespace velorand
