// The record that the suite's sibling libraries keep of their calls, so that a test or a
// transcript can see what the component asked of them: one line per call, appended to the
// file that VELORAND_SUITE_LOG names. Without that variable nothing is recorded.
#pragma once

#include <string>

namespace suite {

// Appends "<library>: <call>" and a line end.
void LogSiblingCall(const char* library, const std::string& call);

}  // namespace suite
