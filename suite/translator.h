// The work of both netlist translators, sch2qt and sch2lm: walk the hierarchy, write the
// netlist at -o, keeping the header of an existing file and giving a new one the header.
#pragma once

#include "suite/netlist_writer.h"
#include "suite/tool_arguments.h"
#include "suite/tool_log.h"

namespace suite {

void RunTranslator(const ToolArguments& args, ToolLog& log, NetlistDialect dialect);

}  // namespace suite
