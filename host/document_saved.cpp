// A host document was saved (code 202). Saved under its own name, it brings the project
// up to date; saved under another, it is no longer the file that its record stands for.
#include "core/project_doc.h"
#include "host/project_notify.h"
#include "platform/win/strings.h"

namespace velorand {

void CProjectDoc::OnDocumentSaved(ProjectNotify* record) {
    afx::CDocument* doc = record->document;
    if (SchematicNode* node = FindDocNode(doc)) {
        if (!win::EqualNoCase(node->path, doc->GetPathName())) {
            node->openDoc = nullptr;
            WarnSaveAsNewName();
        } else {
            node->openDoc = doc;
            UpdateProject(win::FALSE);
        }
        node->state |= SchematicNode::kSaved;
        RefreshWorkFile(doc);
    }
    SetModifiedFlag(win::TRUE);
}

}  // namespace velorand
