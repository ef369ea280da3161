// A file held open by the framework's file class. Its use here is the lock file: opened
// with modeCreate | shareExclusive it is held under an exclusive lock that no second
// opener gets, in this process or another, and that the kernel drops when the holder
// ends, however it ends.
#pragma once

#include <string>

#include "platform/win/types.h"

namespace afx {

using win::BOOL;
using win::LPCSTR;
using win::UINT;

class CFile {
  public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
    };

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    // Opens a file, closing the one this object held. modeCreate makes the file; opened
    // for writing it is emptied unless modeNoTruncate is given, and an existing read-only
    // file refuses it. Any share mode but shareDenyNone and shareCompat
    // takes the exclusive lock. FALSE, with the last error set, when the lock is held
    // elsewhere (32), the file or its folder is read-only (5), or the file cannot be
    // opened; nothing is made or emptied then.
    BOOL Open(LPCSTR fileName, UINT openFlags);

    // Gives the file and its lock back; nothing happens for a closed file.
    void Close();

    // The platform path the file was opened with; empty while closed.
    const std::string& GetFilePath() const { return path_; }

  private:
    int fd_ = -1;
    std::string path_;
};

}  // namespace afx
