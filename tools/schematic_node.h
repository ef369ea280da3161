// The record of one schematic of the project's tree, kept in the document's map
// `schematics` under the schematic's lower-cased name. The document owns the records.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/win/types.h"

namespace afx {
class CDocument;
}

namespace velorand {

struct SchematicNode {
    // Bits of `state`, set as the schematic's document opens, closes and is saved.
    static constexpr std::uint32_t kOpened = 1;
    static constexpr std::uint32_t kClosed = 2;
    static constexpr std::uint32_t kSaved = 4;
    // The sender number of the schematic editor, the one kind a record has.
    static constexpr std::int32_t kSchematicEditor = 105;

    std::uint32_t state = 0;
    std::int32_t kind = kSchematicEditor;
    std::string path;                   // real path of the file
    afx::CDocument* openDoc = nullptr;  // its open document in the host, not owned
    std::vector<std::string> symbols;   // paths of the symbols it uses, in file order
    win::HTREEITEM treeItem = nullptr;  // its item in the tree view
};

}  // namespace velorand
