// The velorand program's command line:
//
//   velorand [OPTION]... open PROJECT.vpj | shell PROJECT.vpj | run SCRIPT | demo
//   velorand --help | --version
//
// Options may stand anywhere among the words.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win/batch_agent.h"

namespace velorand::program {

// The exit codes of the program.
inline constexpr int kExitSuccess = 0;
inline constexpr int kExitFailure = 1;  // an action was refused or failed
inline constexpr int kExitUsage = 2;    // the command line or the script is malformed

struct CommandLine {
    std::string command;  // "open", "shell", "run", "demo", "help" or "version"
    std::string target;   // the project or the script
    // The answers that the options give, in order ("--answer PATTERN=ANSWER", then the
    // catch-all of "--yes" or "--no").
    std::vector<win::BatchAgent::Rule> rules;
    bool keep = false;  // the demo keeps its folder
};

// The command line of the words after the program's name; nothing, with the reason in
// `error`, when it is malformed.
std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& words,
                                            std::string& error);

// The short usage, for a malformed command line.
std::string UsageText();
// The whole help: usage, commands, options, the script's actions, exit codes.
std::string HelpText();

}  // namespace velorand::program
