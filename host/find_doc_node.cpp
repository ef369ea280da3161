// From a host document to its schematic record: the record it is open in, else the record
// of its file, for a document that opened without the project's help.
#include "core/project_doc.h"

namespace velorand {

SchematicNode* CProjectDoc::FindDocNode(afx::CDocument* doc) {
    if (doc == nullptr)
        return nullptr;
    for (auto& [key, node] : schematics)
        if (node.openDoc == doc)
            return &node;
    return FindSchematicByPath(doc->GetPathName().c_str());
}

}  // namespace velorand
