// The upgrade SheetMend makes: a schematic below the current version gets "ver 40" and the
// section heads that older versions could leave out; every other byte stays.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace suite {

// The text at the current version; the text itself when it is current already. Nothing,
// with the reason in `error`, when it is no schematic that ParseSchematic accepts.
std::optional<std::string> UpgradeSchematic(std::string_view text, std::string& error);

}  // namespace suite
