// The listing that treescan leaves for the component: a root line, one line per use of a
// schematic in depth-first order, and the file list of schematics with their symbols.
//
//   ~ amp2 (C:\p\amp2.sch)
//   1  stage (X1 <-> C:\p\stage.sch)
//   2  .  bias (B1 <-> C:\p\bias.sch)
//   <empty line>
//   Schematic: C:\p\amp2.sch (0)
//   Symbol: C:\p\stage.sym
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/hierarchy.h"

namespace suite {

// The listing text, LF line ends. `withTree` adds the hierarchy lines (-l), `withFiles`
// the file list (-sh). Nothing, with the reason in `error`, when a name holds a blank, a
// path a ")", or a line would pass kMaxLineLength: the component could not read it back.
std::optional<std::string> TreeListing(const Hierarchy& hierarchy, bool withTree, bool withFiles,
                                       std::string& error);

// The -r listing: one full path per line.
std::string PathListing(const std::vector<std::string>& files);

}  // namespace suite
