#include "core/temp_folder.h"

#include "platform/win/temp_path.h"
#include "platform/win/types.h"

namespace velorand {

std::string TempFolder() {
    char buffer[win::MAX_PATH];
    const win::DWORD length = win::GetTempPath(sizeof buffer, buffer);
    return length > 0 && length < sizeof buffer ? std::string(buffer, length) : std::string();
}

}  // namespace velorand
