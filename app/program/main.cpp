// The velorand program: the Project Manager in its reference host, driven from the
// command line (velorand --help; docs/script.md).
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "app/program/command_line.h"
#include "app/program/demo.h"
#include "app/program/program_folders.h"
#include "app/program/script.h"
#include "app/program/session.h"

namespace {

using namespace velorand::program;

int Usage(const std::string& error) {
    std::fprintf(stderr, "velorand: %s\n%s", error.c_str(), UsageText().c_str());
    return kExitUsage;
}

// Plays the actions in a new session and ends it; the exit code.
int Play(const std::string& baseFolder, const CommandLine& line, const std::vector<Action>& actions,
         bool echo) {
    const bool console = isatty(STDIN_FILENO) && line.rules.empty();
    Session session(baseFolder, line.rules, console, echo);
    if (!session.Start()) {
        return kExitFailure;
    }
    bool done = session.PlayAll(actions);
    if (done && line.command == "shell") {
        const bool terminal = isatty(STDIN_FILENO);
        done = session.PlayLines(stdin, terminal);
    }
    const bool ended = session.End();
    return done && ended ? kExitSuccess : kExitFailure;
}

}  // namespace

int main(int argc, char** argv) {
    std::string error;
    std::optional<CommandLine> line =
        ParseCommandLine(std::vector<std::string>(argv + 1, argv + argc), error);
    if (!line) {
        return Usage(error);
    }
    if (line->command == "help") {
        std::fputs(HelpText().c_str(), stdout);
        return kExitSuccess;
    }
    if (line->command == "version") {
        std::printf("velorand %s\n", VELORAND_VERSION);
        return kExitSuccess;
    }
    AddLibraryFolders();
    const std::string current = std::filesystem::current_path().string();

    if (line->command == "open" || line->command == "shell") {
        std::vector<Action> actions{{0, "open-project", {line->target}}};
        if (line->command == "open") {
            actions.push_back({0, "tree", {}});
        }
        return Play(current, *line, actions, false);
    }

    DemoWorld demo;
    std::string script = line->target;
    std::string base;
    if (line->command == "demo") {
        if (!demo.Prepare(error)) {
            std::fprintf(stderr, "velorand: %s\n", error.c_str());
            return kExitFailure;
        }
        if (line->keep) {
            demo.Keep();
            std::fprintf(stderr, "velorand: the demo's files stay in %s\n", demo.Folder().c_str());
        }
        script = demo.Script();
        base = demo.Folder();
    } else {
        base = std::filesystem::absolute(script).parent_path().string();
    }
    std::vector<Action> actions;
    if (!ReadScript(script, actions, error)) {
        std::fprintf(stderr, "velorand: %s\n", error.c_str());
        return kExitUsage;
    }
    return Play(base, *line, actions, true);
}
