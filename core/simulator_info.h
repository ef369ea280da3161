// What the project needs to know of its simulator: the translator that writes its netlist,
// the netlist's extension, a short tag and the name shown to the user. Made from the
// simulator's index and only read after that; the document owns it.
#pragma once

#include <string>

namespace velorand {

class SimulatorInfo {
  public:
    // Index 0 and 1 are the two simulators of the suite; any other index gives empty values.
    explicit SimulatorInfo(int index);
    virtual ~SimulatorInfo() = default;

    const std::string& GetTranslator() const { return translator; }
    const std::string& GetNetlistExtension() const { return netlistExtension; }
    const std::string& GetDisplayName() const { return displayName; }

    std::string translator;
    std::string netlistExtension;
    std::string shortTag;
    std::string displayName;
};

// A value of the suite's settings under the fixed path of its templates, read only; the
// default when anything fails. Never looks at a settings file.
std::string ReadTemplateSetting(const char* section, const char* entry, const char* defaultValue);

}  // namespace velorand
