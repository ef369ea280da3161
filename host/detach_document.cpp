// A host document leaves the project's list. The first other document ahead of it in the
// list becomes the active one when none is; the template never does.
#include <iterator>

#include "core/project_doc.h"

namespace velorand {

void CProjectDoc::Detach(afx::CDocument* doc) {
    if (doc == nullptr)
        return;
    if (activeDoc == doc)
        activeDoc = nullptr;
    RefreshWorkFile(doc);
    for (auto it = openDocs.begin(); it != openDocs.end(); ++it) {
        if (*it != doc) {
            if (activeDoc == nullptr && *it != templateDoc)
                activeDoc = *it;
            continue;
        }
        // A save-all walks the list while documents close under it.
        if (!savingAll) {
            openDocs.erase(it);
            if (openDocs.empty())
                StoreChildShowCmd();
        }
        break;
    }
    if (topDoc == doc)
        topDoc = nullptr;
}

}  // namespace velorand
