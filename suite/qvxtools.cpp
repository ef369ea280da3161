// The stand-in for the sibling library "qvxtools": it tells whether the suite runs in its
// command test mode, which VELORAND_COMMAND_TEST_MODE sets (a number, 0 when unset).
#include <cstdlib>

#include "suite/sibling_log.h"

extern "C" __attribute__((visibility("default"))) int IsInCommandTestMode() {
    const char* mode = std::getenv("VELORAND_COMMAND_TEST_MODE");
    int answer = mode != nullptr ? std::atoi(mode) : 0;
    suite::LogSiblingCall("qvxtools", "IsInCommandTestMode() = " + std::to_string(answer));
    return answer;
}
