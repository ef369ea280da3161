// What every tool of the suite does around its own work: read the command line, run,
// leave the log beside the target, and never let a fault escape into the caller, which
// runs the tool in its own process and thread.
#pragma once

#include <string_view>

#include "suite/tool_arguments.h"
#include "suite/tool_log.h"

namespace suite {

struct ToolSpec {
    const char* name;
    // The options the tool takes, as for ParseToolArguments.
    std::string_view options;
    // The log file is the target without its last four characters plus this ending.
    const char* logEnding;
    // The tool's work. It reports failures through the log; its result is the log's.
    void (*run)(const ToolArguments& args, ToolLog& log);
};

// The body of a tool's exported `main`: 0 on success, else a ToolResult.
int ToolMain(int argc, char** argv, const ToolSpec& tool) noexcept;

}  // namespace suite

// Defines the tool's entry point: a C++ function that the library exports under the
// symbol "main", the one name the component's launcher looks up. A C++ program may not
// declare `main` itself with C linkage, so the symbol name is given to the assembler.
#define VELORAND_TOOL_ENTRY(tool)                                                              \
    __attribute__((visibility("default"))) int VelorandToolEntry(int, char**) __asm__("main"); \
    int VelorandToolEntry(int argc, char** argv) {                                             \
        return ::suite::ToolMain(argc, argv, tool);                                            \
    }
