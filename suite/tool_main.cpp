#include "suite/tool_main.h"

#include <exception>
#include <new>
#include <string>

#include "platform/win/paths.h"

namespace suite {

namespace {

std::string LogPath(const std::string& target, const char* ending) {
    if (target.size() < 4)
        return {};
    return win::FullPlatformPath(target.substr(0, target.size() - 4) + ending);
}

std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 0; i < argc && argv != nullptr; ++i) {
        if (i > 0)
            line += ' ';
        line += argv[i] ? argv[i] : "(null)";
    }
    return line;
}

}  // namespace

int ToolMain(int argc, char** argv, const ToolSpec& tool) noexcept {
    try {
        ToolLog log(tool.name, false);
        log.Note(CommandLine(argc, argv));
        std::string error;
        std::optional<ToolArguments> args = ParseToolArguments(argc, argv, tool.options, error);
        if (!args) {
            log.Fail(kToolBadArguments, error);
        } else {
            log.SetDebug(args->debug);
            try {
                tool.run(*args, log);
            } catch (const std::bad_alloc&) {
                log.Fail(kToolInternal, "out of memory");
            } catch (const std::exception& fault) {
                log.Fail(kToolInternal, fault.what());
            }
        }
        if (!log.Failed())
            log.Note("done");
        std::string logPath =
            LogPath(args ? args->target : TargetArgument(argc, argv), tool.logEnding);
        if (!logPath.empty())
            log.Save(logPath);
        return log.Result();
    } catch (...) {
        return kToolInternal;
    }
}

}  // namespace suite
