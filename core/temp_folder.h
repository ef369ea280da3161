// The system's temporary folder, where a project without a folder of its own lives and
// where work files go when nothing else can be written.
#pragma once

#include <string>

namespace velorand {

// The folder with its trailing backslash; empty when it can't be had.
std::string TempFolder();

}  // namespace velorand
