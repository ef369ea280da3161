// sch2lm: the netlist translator of the Lumentra simulator (.lmt).
#include "suite/tool_main.h"
#include "suite/translator.h"

namespace suite {

namespace {

void RunSch2lm(const ToolArguments& args, ToolLog& log) {
    RunTranslator(args, log, NetlistDialect::kLumentra);
}

constexpr ToolSpec kSch2lm{"sch2lm", "debug h p o d", ".log", RunSch2lm};

}  // namespace

}  // namespace suite

VELORAND_TOOL_ENTRY(suite::kSch2lm)
