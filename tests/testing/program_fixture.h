// The fixture of the end-to-end tests: a sandbox with the example project amp2 copied to
// its drive C:, and the settings an installation of the suite leaves (the simulators'
// template list, the netlist kept up to date), as the person's own profile and registry.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "tests/testing/velorand_process.h"

namespace velorand::testing {

class ProgramTest : public SandboxTest {
  protected:
    ProgramTest();

    // The sandbox's drive C:, where amp2/ lies; the programs run in it.
    std::filesystem::path Folder() const { return sandbox.Posix(""); }
    // Runs velorand in Folder() to its end.
    Finished Run(const std::vector<std::string>& arguments, const std::string& input = "") const;
    // Writes a script into Folder() and runs it.
    Finished RunScript(const std::string& name, const std::string& script,
                       const std::vector<std::string>& options = {}) const;
};

// The lines of a text.
std::vector<std::string> Lines(const std::string& text);

}  // namespace velorand::testing
