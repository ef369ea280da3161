// The lock file of a named project: an empty file beside the project file, held open
// under an exclusive lock for as long as the project is open, so that a second opener, in
// this process or another, is refused. The kernel drops the lock of a holder that dies.
#include <string>

#include "core/project_doc.h"
#include "platform/win/files.h"

namespace velorand {

namespace {

// From this length on the name gives up its first two characters to "~%".
constexpr std::size_t kKeepLengthFrom = 11;

}  // namespace

std::string CProjectDoc::GetLockFileName(const std::string& path) {
    const std::size_t slash = path.rfind('\\');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::string folder = path.substr(0, start);
    const std::string name = path.substr(start);
    return folder + "~%" + (name.size() >= kKeepLengthFrom ? name.substr(2) : name);
}

win::BOOL CProjectDoc::TakeLockFile() {
    lockHeld = lockFile.Open(GetLockFileName(GetPathName()).c_str(),
                             afx::CFile::modeCreate | afx::CFile::shareExclusive);
    return lockHeld;
}

void CProjectDoc::ReleaseLockFile() {
    if (!lockHeld) {
        return;
    }
    // The file that is held goes, whatever the path name has become during a load. Its
    // name goes while the lock still stands: whoever opens it afterwards makes a new file
    // and locks that, rather than a file that is about to vanish.
    win::DeleteFile(lockFile.GetFilePath().c_str());
    lockFile.Close();
    lockHeld = 0;
}

}  // namespace velorand
