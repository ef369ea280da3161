#include "suite/sheet_upgrade.h"

#include <algorithm>

#include "suite/schematic_file.h"

namespace suite {

std::optional<std::string> UpgradeSchematic(std::string_view text, std::string& error) {
    std::optional<Schematic> schematic = ParseSchematic(text, error);
    if (!schematic)
        return std::nullopt;
    if (schematic->version >= kCurrentVersion)
        return std::string(text);

    // The first line is "[schematic2]" and the second "ver NN", each with its line end.
    std::size_t second = text.find('\n') + 1;
    std::size_t third = text.find('\n', second);
    std::string_view lineEnd = "\n";
    if (third != std::string_view::npos && third > second && text[third - 1] == '\r')
        lineEnd = "\r\n";
    std::string upgraded(text.substr(0, second));
    upgraded += "ver " + std::to_string(kCurrentVersion);
    if (third == std::string_view::npos) {
        upgraded += lineEnd;
    } else {
        std::size_t versionEnd = text[third - 1] == '\r' ? third - 1 : third;
        upgraded += text.substr(versionEnd);
    }
    for (std::string_view head : kSectionHeads) {
        if (std::find(schematic->sections.begin(), schematic->sections.end(), head) !=
            schematic->sections.end())
            continue;
        if (upgraded.back() != '\n')
            upgraded += lineEnd;
        upgraded += head;
        upgraded += lineEnd;
    }
    return upgraded;
}

}  // namespace suite
