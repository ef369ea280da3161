#include "platform/win/text_stream.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/win/last_error.h"
#include "platform/win/posix_file.h"

namespace win {

BOOL OpenTextStream(std::ifstream& stream, LPCSTR fileName) {
    std::optional<std::string> posix = internal::PosixPathOf(fileName);
    if (!posix)
        return FALSE;
    struct stat info;
    if (stat(posix->c_str(), &info) != 0) {
        internal::SetLastErrorForPath(errno, *posix);
        return FALSE;
    }
    if (S_ISDIR(info.st_mode)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    errno = 0;
    stream.open(*posix, std::ios::in | std::ios::binary);
    if (!stream.is_open()) {
        SetLastError(errno != 0 ? ErrorFromErrno(errno) : ERROR_ACCESS_DENIED);
        return FALSE;
    }
    return TRUE;
}

BOOL OpenTextStream(std::ofstream& stream, LPCSTR fileName, std::ios::openmode mode) {
    std::optional<std::string> posix = internal::PosixPathOf(fileName);
    if (!posix)
        return FALSE;
    struct stat info;
    bool exists = stat(posix->c_str(), &info) == 0;
    if (exists && (S_ISDIR(info.st_mode) || internal::IsReadOnly(info.st_mode))) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (!exists && !internal::MayChangeFolderOf(*posix))
        return FALSE;
    errno = 0;
    stream.open(*posix,
                std::ios::out | std::ios::binary | (mode & (std::ios::trunc | std::ios::app)));
    if (!stream.is_open()) {
        internal::SetLastErrorForPath(errno != 0 ? errno : EACCES, *posix);
        return FALSE;
    }
    return TRUE;
}

bool ReadTextLine(std::istream& stream, std::string& line) {
    if (!std::getline(stream, line))
        return false;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

}  // namespace win
