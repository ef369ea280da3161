// Closing the open document of a schematic by its file, for the operations that must have
// a file closed before they touch it.
#include <string>

#include "core/file_kinds.h"
#include "core/project_doc.h"

namespace velorand {

int CProjectDoc::CloseDocumentByPath(const char* path) {
    for (auto& [key, node] : schematics) {
        afx::CDocument* doc = node.openDoc;
        if (doc == nullptr || CompareFileNames(doc->GetPathName().c_str(), path) != 0)
            continue;
        // The close tells the project of itself, and what that does may change the map.
        const std::string closedKey = key;
        Detach(doc);
        doc->OnCloseDocument();
        if (auto it = schematics.find(closedKey); it != schematics.end()) {
            it->second.openDoc = nullptr;
            it->second.state = SchematicNode::kClosed;
        }
        return 1;
    }
    return 0;
}

}  // namespace velorand
