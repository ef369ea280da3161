// The netlist translators: sch2qt for the Quintaris simulator (.ckt) and sch2lm for the
// Lumentra simulator (.lmt). One entry, built once per translator with its name and dialect.
#include "suite/tool_main.h"
#include "suite/translator.h"

namespace suite {

namespace {

void RunTranslatorTool(const ToolArguments& args, ToolLog& log) {
    RunTranslator(args, log, NetlistDialect::VELORAND_TRANSLATOR_DIALECT);
}

constexpr ToolSpec kTranslator{VELORAND_TRANSLATOR_NAME, "debug h p o d", ".log",
                               RunTranslatorTool};

}  // namespace

}  // namespace suite

VELORAND_TOOL_ENTRY(suite::kTranslator)
