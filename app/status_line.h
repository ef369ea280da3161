// The host's status line: the text goes to the main frame as the project's texts do.
#pragma once

#include <string>

namespace velorand::host {

void ShowStatus(const std::string& text);

}  // namespace velorand::host
