// The suite's schematic text format (see README.md): "[schematic2]", "ver NN", then the
// sections [tools], [detail], [cell use] and [comments]. The tools read the lines that
// name other files; every other line is the editors' business and passes through.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace suite {

// The longest line of a schematic, without its line end.
inline constexpr std::size_t kMaxLineLength = 599;
// The version the tools write and SheetMend brings older files to.
inline constexpr int kCurrentVersion = 40;

// The sections of a schematic, in the order a new file has them.
inline constexpr std::string_view kSectionHeads[] = {"[tools]", "[detail]", "[cell use]",
                                                     "[comments]"};

// A "use" line: a placed cell. The cell is a sub-schematic when a file <cell>.sch is found,
// else an element with the symbol <cell>.sym, else one the simulator knows by itself.
struct CellUse {
    std::string cell;
    std::string instance;
    std::vector<std::string> nodes;
    std::vector<std::pair<std::string, std::string>> parameters;  // KEY=value, in order
    int line = 0;
};

struct Schematic {
    int version = 0;
    std::vector<CellUse> uses;          // in file order
    std::vector<std::string> graphics;  // symbols of "w" lines, in file order
    std::vector<std::string> sections;  // the section heads present, in file order
};

// Reads a schematic. Nothing, with "line N: ..." in `error`, when the text breaks the
// format: a wrong first or second line, a line longer than kMaxLineLength, an unknown
// section, text before the first section, or a "use", "w" or "l" line out of shape.
std::optional<Schematic> ParseSchematic(std::string_view text, std::string& error);

// A cell or symbol name: no blank, no path separator, none of the characters that no
// file name may hold, and not empty.
bool IsCellName(std::string_view name);

}  // namespace suite
