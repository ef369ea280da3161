#include "core/project_doc.h"

namespace velorand {

const SimulatorInfo* CProjectDoc::ChosenSimulator() const {
    return simulator != -1 ? simulatorInfo.get() : nullptr;
}

}  // namespace velorand
