// The netlists that the translators write: a header of comment lines, then the body with
// one subcircuit per sheet below the top level, the top level's elements, and the model
// libraries (.LIB) and data files (FILE=) that the schematics name.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "suite/hierarchy.h"
#include "suite/tool_log.h"

namespace suite {

// The two simulators' netlist languages.
enum class NetlistDialect {
    kQuintaris,  // sch2qt, .ckt: "cell:instance nodes params", .SUBCKT/.ENDS
    kLumentra,   // sch2lm, .lmt: "instance (nodes) cell params", subckt/ends
};

// The header of a new netlist file, as the project manager writes one.
std::string NetlistHeader(std::string_view netlistPath, std::string_view schematicPath,
                          const std::tm& date);

// The header an existing netlist begins with: its leading comment and empty lines, which
// a new run keeps so that an unchanged circuit gives an unchanged file.
std::string_view ExistingHeader(std::string_view netlist);

// The body. Files lying in `netlistFolder` (no final backslash) or below are named relative
// to it, others by their full path. Nothing, after a failure in the log, when a data file
// is missing, a use doesn't match the ports of its subcircuit, or a line would pass
// kMaxLineLength.
std::optional<std::string> NetlistBody(const Hierarchy& hierarchy, NetlistDialect dialect,
                                       std::string_view netlistFolder, ToolLog& log);

}  // namespace suite
