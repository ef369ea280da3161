#include "platform/win/file_attributes.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/win/posix_file.h"

namespace win {

DWORD GetFileAttributes(LPCSTR fileName) {
    std::optional<std::string> posix = internal::PosixPathOf(fileName);
    if (!posix)
        return INVALID_FILE_ATTRIBUTES;
    struct stat info;
    if (stat(posix->c_str(), &info) != 0) {
        internal::SetLastErrorForPath(errno, *posix);
        return INVALID_FILE_ATTRIBUTES;
    }
    DWORD attributes = 0;
    if (S_ISDIR(info.st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if (internal::IsReadOnly(info.st_mode))
        attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

}  // namespace win
