// SheetMend: brings one schematic file, named by -f, up to the current version.
#include "platform/win/paths.h"
#include "suite/schematic_file.h"
#include "suite/sheet_upgrade.h"
#include "suite/text_file.h"
#include "suite/tool_main.h"

namespace suite {

namespace {

void RunSheetMend(const ToolArguments& args, ToolLog& log) {
    if (args.mendFile.empty()) {
        log.Fail(kToolBadArguments, "no file to update given (-f)");
        return;
    }
    std::string file = win::FullPlatformPath(args.mendFile);
    std::string error;
    std::optional<std::string> text = ReadTextFile(file, error);
    if (!text) {
        log.Fail(kToolInputMissing, error);
        return;
    }
    std::optional<std::string> upgraded = UpgradeSchematic(*text, error);
    if (!upgraded) {
        log.Fail(kToolMalformed, file + " " + error);
        return;
    }
    if (*upgraded == *text) {
        log.Note(file + " is up to date");
        return;
    }
    if (!WriteTextFile(file, *upgraded, error)) {
        log.Fail(kToolWriteFailed, error);
        return;
    }
    log.Note("updated " + file + " to ver " + std::to_string(kCurrentVersion));
}

constexpr ToolSpec kSheetMend{"SheetMend", "debug h p o d f", ".log", RunSheetMend};

}  // namespace

}  // namespace suite

VELORAND_TOOL_ENTRY(suite::kSheetMend)
