#include "suite/translator.h"

#include <ctime>

#include "platform/win/paths.h"
#include "suite/text_file.h"

namespace suite {

void RunTranslator(const ToolArguments& args, ToolLog& log, NetlistDialect dialect) {
    if (args.output.empty()) {
        log.Fail(kToolBadArguments, "no netlist file given (-o)");
        return;
    }
    SearchList search(args.searchFolders);
    std::optional<Hierarchy> hierarchy = WalkHierarchy(args.target, search, log);
    if (!hierarchy)
        return;
    std::string output = win::FullPlatformPath(args.output);
    std::optional<std::string> body = NetlistBody(*hierarchy, dialect, FolderOf(output), log);
    if (!body)
        return;

    std::string header;
    std::string error;
    if (ExistingFile(output)) {
        std::optional<std::string> old = ReadTextFile(output, error);
        if (!old) {
            log.Fail(kToolInputMissing, error);
            return;
        }
        header = ExistingHeader(*old);
        if (!header.empty() && header.back() != '\n')
            header += '\n';
    } else {
        std::time_t now = std::time(nullptr);
        std::tm today{};
        localtime_r(&now, &today);
        header = NetlistHeader(output, win::FullPlatformPath(args.target), today);
    }
    if (!WriteTextFile(output, header + *body, error)) {
        log.Fail(kToolWriteFailed, error);
        return;
    }
    log.Note("wrote " + output + " from " + std::to_string(hierarchy->sheets.size()) +
             " schematics");
}

}  // namespace suite
