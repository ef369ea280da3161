// The comment lines that open a project's new netlist file, before the translator fills it.
#pragma once

#include <string>

namespace velorand {

// The lines for the netlist file, its top level schematic and a date written out
// ("Friday, January 05, 2024"), each ending in a line end, with an empty line after the
// date and after the last line.
std::string NetlistHeaderText(const std::string& netlistFile, const std::string& schematic,
                              const std::string& date);

}  // namespace velorand
