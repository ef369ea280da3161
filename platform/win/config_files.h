// Where the application's profile and the suite's registry are kept. Each is looked up
// anew at every call, so that a change of the environment takes effect at once.
#pragma once

#include <string>

namespace win {

// $VELORAND_PROFILE, else $XDG_CONFIG_HOME/velorand/velorand.ini, else
// ~/.config/velorand/velorand.ini.
std::string AppProfilePath();

// $VELORAND_REGISTRY, else $XDG_CONFIG_HOME/velorand/registry.ini, else
// ~/.config/velorand/registry.ini.
std::string RegistryPath();

}  // namespace win
