#include "platform/win/app_profile.h"

#include <string>

#include "platform/win/config_files.h"
#include "platform/win/private_profile.h"

namespace win {

UINT GetProfileInt(LPCSTR section, LPCSTR key, INT defaultValue) {
    return GetProfileIntAt(AppProfilePath(), section, key, defaultValue);
}

DWORD GetProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer, DWORD size) {
    return GetProfileStringAt(AppProfilePath(), section, key, defaultValue, buffer, size);
}

BOOL WriteProfileString(LPCSTR section, LPCSTR key, LPCSTR value) {
    return WriteProfileStringAt(AppProfilePath(), section, key, value, true);
}

BOOL WriteProfileInt(LPCSTR section, LPCSTR key, INT value) {
    return WriteProfileString(section, key, std::to_string(value).c_str());
}

}  // namespace win
