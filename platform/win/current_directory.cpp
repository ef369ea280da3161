#include "platform/win/current_directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/win/last_error.h"
#include "platform/win/paths.h"
#include "platform/win/posix_file.h"
#include "platform/win/text_buffer.h"

namespace win {

DWORD GetCurrentDirectory(DWORD bufferLength, LPSTR buffer) {
    return internal::CopyToBuffer(FullPlatformPath("."), bufferLength, buffer);
}

BOOL SetCurrentDirectory(LPCSTR pathName) {
    std::optional<std::string> posix = internal::PosixPathOf(pathName);
    if (!posix)
        return FALSE;
    struct stat info;
    if (stat(posix->c_str(), &info) == 0 && !S_ISDIR(info.st_mode)) {
        SetLastError(ERROR_DIRECTORY);
        return FALSE;
    }
    if (chdir(posix->c_str()) != 0) {
        internal::SetLastErrorForPath(errno, *posix);
        return FALSE;
    }
    return TRUE;
}

}  // namespace win
