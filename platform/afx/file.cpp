#include "platform/afx/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/win/last_error.h"
#include "platform/win/posix_file.h"

namespace afx {

CFile::~CFile() {
    Close();
}

BOOL CFile::Open(LPCSTR fileName, UINT openFlags) {
    Close();
    std::optional<std::string> posix = win::internal::PosixPathOf(fileName);
    if (!posix)
        return win::FALSE;

    UINT access = openFlags & 0x3;
    bool writing = access == modeWrite || access == modeReadWrite;
    struct stat info;
    bool exists = stat(posix->c_str(), &info) == 0;
    bool creating = (openFlags & modeCreate) != 0;
    if (exists && (S_ISDIR(info.st_mode) ||
                   ((writing || creating) && win::internal::IsReadOnly(info.st_mode)))) {
        win::SetLastError(win::ERROR_ACCESS_DENIED);
        return win::FALSE;
    }
    if (!exists && creating && !win::internal::MayChangeFolderOf(*posix))
        return win::FALSE;

    // The file is emptied only once the lock is ours, so that a refused opener never
    // touches the holder's file.
    int flags = O_CLOEXEC | (creating ? O_CREAT : 0);
    flags |= access == modeReadWrite ? O_RDWR : access == modeWrite ? O_WRONLY : O_RDONLY;
    int fd = open(posix->c_str(), flags, 0666);
    if (fd < 0) {
        win::internal::SetLastErrorForPath(errno, *posix);
        return win::FALSE;
    }
    UINT share = openFlags & 0x70;
    if (share != shareCompat && share != shareDenyNone && flock(fd, LOCK_EX | LOCK_NB) != 0) {
        win::SetLastError(errno == EWOULDBLOCK ? win::ERROR_SHARING_VIOLATION
                                               : win::ErrorFromErrno(errno));
        close(fd);
        return win::FALSE;
    }
    if (creating && !(openFlags & modeNoTruncate) && writing && ftruncate(fd, 0) != 0) {
        win::SetLastError(win::ErrorFromErrno(errno));
        close(fd);
        return win::FALSE;
    }
    fd_ = fd;
    path_ = fileName;
    return win::TRUE;
}

void CFile::Close() {
    if (fd_ < 0)
        return;
    close(fd_);
    fd_ = -1;
    path_.clear();
}

}  // namespace afx
