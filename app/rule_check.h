// The schematic editor's electrical rule check, on a sheet's element lines. It finds
// elements without an instance name, instance names used twice, and nodes with a single
// connection (ground, "0", excepted). Its report, "<name>.erc", reads:
//
//   Electrical rule check of <path>
//   QC/ERC
//   <n> errors
//   <one line per error>
#pragma once

#include <string>
#include <vector>

namespace velorand::host {

// The errors found, in the order of the lines.
std::vector<std::string> CheckRules(const std::vector<std::string>& lines);

// The report's text for a schematic.
std::string RuleCheckReport(const std::string& schematicPath,
                            const std::vector<std::string>& errors);

// The report file of a schematic: the file name of its path up to its first dot, with
// ".erc", in the process's current folder.
std::string RuleCheckReportPath(const std::string& schematicPath);

}  // namespace velorand::host
