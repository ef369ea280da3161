// The command line of a suite tool, as the component's launcher builds it: options that
// begin with "-" and carry their value in the same string ("-pC:\a+C:\b+"), then the target
// schematic as the last argument.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

struct ToolArguments {
    bool debug = false;                      // -debug: a detailed log
    std::string hostWindow;                  // -h<handle>: the host's window, never used
    std::vector<std::string> searchFolders;  // -p<folder>+<folder>+...: in search order
    std::string output;                      // -o<file>: listing or netlist
    bool noLogNotice = false;                // -d
    bool listHierarchy = false;              // -l: the hierarchy lines of the listing
    bool listFiles = false;                  // -sh: the schematics with their symbols
    bool pathList = false;                   // -r: one full path per line instead
    std::string copyTarget;                  // -a<folder>: copy the project's files there
    std::string confineFolder;               // -c<folder>: only files inside this folder
    std::string mendFile;                    // -f<file>: the file to bring up to date
    std::string target;                      // the top-level schematic
};

// Parses argv[1..argc-1]. `accepted` names the options the tool takes, blank-separated and
// without their dash ("debug h p o"). Nothing, with a message in `error`, for an option the
// tool doesn't take, an option without its value, or anything but exactly one target at
// the end.
std::optional<ToolArguments> ParseToolArguments(int argc, const char* const* argv,
                                                std::string_view accepted, std::string& error);

// The target as the command line gives it, when its last argument is one; used to place
// the log even when the rest of the line is wrong.
std::string TargetArgument(int argc, const char* const* argv);

}  // namespace suite
