// sch2qt: the netlist translator of the Quintaris simulator (.ckt).
#include "suite/tool_main.h"
#include "suite/translator.h"

namespace suite {

namespace {

void RunSch2qt(const ToolArguments& args, ToolLog& log) {
    RunTranslator(args, log, NetlistDialect::kQuintaris);
}

constexpr ToolSpec kSch2qt{"sch2qt", "debug h p o d", ".log", RunSch2qt};

}  // namespace

}  // namespace suite

VELORAND_TOOL_ENTRY(suite::kSch2qt)
