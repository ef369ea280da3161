// The hierarchy of schematics below a top-level one, found through the search list: each
// "use" of a cell that has a .sch file is a child. Every tool of the suite starts here.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "suite/schematic_file.h"
#include "suite/search_list.h"
#include "suite/tool_log.h"

namespace suite {

// The deepest level a hierarchy may reach, and the most uses it may list.
inline constexpr int kMaxDepth = 64;
inline constexpr std::size_t kMaxTreeLines = 100000;

// A file that a schematic names through FILE= (data) or LIB= (models).
struct DataReference {
    std::string key;        // "FILE" or "LIB"
    std::string reference;  // as written
    std::string path;       // where it was found; empty when nowhere
};

// One schematic file; a schematic used in several places is one sheet.
struct Sheet {
    std::string name;  // its file's base name
    std::string path;  // platform path where it was found
    Schematic schematic;
    std::vector<std::optional<std::size_t>> placed;  // per use: the sheet it places
    std::vector<std::string> symbols;                // found .sym files, first met, once
    std::vector<DataReference> data;                 // first met, once per reference
};

// One use of a sheet, in depth-first order.
struct TreeLine {
    int level;  // 1 for the children of the top level
    std::size_t sheet;
    std::string tag;  // the instance name of the use
};

struct Hierarchy {
    std::vector<Sheet> sheets;  // the top level first, then in the order first met
    std::vector<TreeLine> tree;

    // Every file of the hierarchy once, in this order: each sheet as first met, followed by
    // its symbols and the data files found for it.
    std::vector<std::string> Files() const;
};

// Walks the hierarchy from the target. Nothing, after a failure in the log, when a
// schematic is missing, unreadable or malformed, or the hierarchy has a cycle or is too
// deep or too large. Symbols and data files that are nowhere to be found are noted only.
std::optional<Hierarchy> WalkHierarchy(const std::string& target, const SearchList& search,
                                       ToolLog& log);

}  // namespace suite
