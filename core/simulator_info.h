// The project's simulator: which translator makes its netlist, the netlist's extension,
// its short tag and the name shown to the user. Made from the simulator's index, then
// only read. With it, the read-only lookup of the suite's template settings.
#pragma once

#include <cstdint>
#include <string>

namespace velorand {

// Where the suite keeps its template settings (section "Template List" and the like).
inline constexpr const char* kTemplateSettingsKey = "Dravik\\Velorand VX\\8.5\\vel85\\";

// A value of the suite's template settings, looked up under a fixed registry path and
// opened for reading only; the default when the key or the value isn't there.
std::string ReadTemplateSetting(const char* section, const char* entry, const char* defaultValue);

// Entry `index` of a list with `separator` between its entries. False, with `out`
// empty, when the list has fewer entries; an entry between two separators is empty.
bool ExtractListEntry(const std::string& list, int index, char separator, std::string& out);

class SimulatorInfo {
  public:
    // Index 0 is named by the first installed simulator when that is one of the two that
    // share its translator, else "Not Installed"; unknown indexes leave every field empty.
    explicit SimulatorInfo(std::int32_t index);
    virtual ~SimulatorInfo() = default;
    SimulatorInfo(const SimulatorInfo&) = delete;
    SimulatorInfo& operator=(const SimulatorInfo&) = delete;

    const std::string& GetTranslator() const { return translator; }
    const std::string& GetNetlistExtension() const { return netlistExtension; }
    const std::string& GetDisplayName() const { return displayName; }

    std::string translator;
    std::string netlistExtension;
    std::string shortTag;
    std::string displayName;
};

}  // namespace velorand
