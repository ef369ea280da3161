// The suite's template settings for a test, as an installation leaves them in the
// registry: section "Template List" under the suite's own key, which the simulator
// descriptions read, and under the running program's key, which the document reads.
#pragma once

#include <string>

namespace velorand::testing {

// Replaces the registry file with the lines ("Simulator=...\n...") under both keys.
void InstallTemplateList(const std::string& lines);

}  // namespace velorand::testing
