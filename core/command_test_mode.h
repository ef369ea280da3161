// Whether the suite runs in its command test mode, as the sibling library "qvxtools" says.
#pragma once

namespace velorand {

// The answer of qvxtools' IsInCommandTestMode; 0 when the library or its export is missing.
int AskCommandTestMode();

}  // namespace velorand
