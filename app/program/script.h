// The script language of the velorand program: one host action a line (docs/script.md).
//
//   # a comment, to the end of the line
//   open-project amp2/amp2.vpj
//   edit amp2/amp2.sch ":findsymbol C1;:property T C=12pF"
//
// Words are separated by blanks. A word with blanks goes in double quotes, where "" stands
// for one quote. A '#' outside quotes begins a comment.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velorand::program {

struct Action {
    int line = 0;  // its line in the script, from 1
    std::string name;
    std::vector<std::string> arguments;
};

// One action of the language: its name, how many arguments it takes, and how they read.
struct ActionSyntax {
    const char* name;
    int minArguments;
    int maxArguments;
    const char* usage;    // the arguments as the help shows them
    const char* purpose;  // one line for the help
};

// Every action, in the order the help lists them.
const std::vector<ActionSyntax>& Actions();

// The action of a line, or nothing for a line without one (blank or a comment). A line
// that is no action gives nothing as well, with the reason in `error`, which is empty
// otherwise.
std::optional<Action> ParseAction(const std::string& text, int line, std::string& error);

// Reads a whole script; false, with the reason in `error` (its line number in front), when
// the file can't be read or a line is no action.
bool ReadScript(const std::string& path, std::vector<Action>& actions, std::string& error);

// An action written back as a line, quoting the words that need it.
std::string FormatAction(const Action& action);

}  // namespace velorand::program
