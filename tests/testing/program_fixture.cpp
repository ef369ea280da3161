#include "tests/testing/program_fixture.h"

#include <sstream>

namespace velorand::testing {

namespace fs = std::filesystem;

ProgramTest::ProgramTest() {
    fs::copy(fs::path(VELORAND_EXAMPLES_DIR) / "amp2", sandbox.Posix("amp2"),
             fs::copy_options::recursive);
    std::string registry;
    for (const char* app : {"vel85", "velorand"}) {
        registry += std::string("[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\") + app +
                    "\\Template List]\nSimulator=Quintaris,Lumentra\n";
    }
    WriteFile(sandbox.Root() / "config" / "registry.ini", registry);
    WriteFile(sandbox.Root() / "config" / "velorand.ini", "[Project]\nSkipNetlist=0\n");
}

Finished ProgramTest::Run(const std::vector<std::string>& arguments,
                          const std::string& input) const {
    return RunVelorand(arguments, Folder(), input);
}

Finished ProgramTest::RunScript(const std::string& name, const std::string& script,
                                const std::vector<std::string>& options) const {
    sandbox.Write(name, script);
    std::vector<std::string> arguments = options;
    arguments.push_back("run");
    arguments.push_back(name);
    return Run(arguments);
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace velorand::testing
