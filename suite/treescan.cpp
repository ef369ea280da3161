// treescan: lists the hierarchy below a top-level schematic for the component, copies a
// project's schematics for Copy and Archive (-a, -c), and lists a project's files one
// path a line for Delete (-r).
#include "platform/win/paths.h"
#include "suite/flat_copy.h"
#include "suite/hierarchy.h"
#include "suite/text_file.h"
#include "suite/tool_main.h"
#include "suite/tree_listing.h"

namespace suite {

namespace {

void RunTreescan(const ToolArguments& args, ToolLog& log) {
    if (args.output.empty()) {
        log.Fail(kToolBadArguments, "no listing file given (-o)");
        return;
    }
    SearchList search(args.searchFolders);
    for (const std::string& folder : search.Folders())
        log.Detail("searching " + folder);
    std::optional<Hierarchy> hierarchy = WalkHierarchy(args.target, search, log);
    if (!hierarchy)
        return;

    std::vector<std::string> files = hierarchy->Files();
    if (!args.confineFolder.empty()) {
        std::string folder = win::FullPlatformPath(args.confineFolder);
        std::erase_if(files, [&](const std::string& file) { return !IsInside(file, folder); });
    }
    if (!args.copyTarget.empty())
        CopyFilesFlat(files, args.copyTarget, log);

    std::string text;
    if (args.pathList) {
        text = PathListing(files);
    } else {
        std::string error;
        std::optional<std::string> listing =
            TreeListing(*hierarchy, args.listHierarchy, args.listFiles, error);
        if (!listing) {
            log.Fail(kToolMalformed, error);
            return;
        }
        text = std::move(*listing);
    }
    std::string output = win::FullPlatformPath(args.output);
    std::string error;
    if (!WriteTextFile(output, text, error)) {
        log.Fail(kToolWriteFailed, error);
        return;
    }
    log.Note("listed " + std::to_string(hierarchy->sheets.size()) + " schematics, " +
             std::to_string(hierarchy->tree.size()) + " uses, " + std::to_string(files.size()) +
             " files in " + output);
}

constexpr ToolSpec kTreescan{"treescan", "debug h p o d l sh r a c", ".dbg", RunTreescan};

}  // namespace

}  // namespace suite

VELORAND_TOOL_ENTRY(suite::kTreescan)
