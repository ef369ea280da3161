#include "suite/flat_copy.h"

#include <sys/stat.h>

#include "platform/win/paths.h"
#include "suite/search_list.h"
#include "suite/text_file.h"

namespace suite {

void CopyFilesFlat(const std::vector<std::string>& files, const std::string& folder, ToolLog& log) {
    std::string target = win::FullPlatformPath(folder);
    while (target.size() > 3 && target.back() == '\\')
        target.pop_back();
    std::optional<std::string> posix = win::PosixPath(target);
    struct stat info;
    if (!posix || stat(posix->c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        log.Fail(kToolWriteFailed, "the copy's folder " + target + " does not exist");
        return;
    }
    std::vector<std::string> names;
    for (const std::string& file : files) {
        std::string name(FileNameOf(file));
        bool taken = false;
        for (const std::string& have : names)
            taken = taken || SamePath(have, name);
        if (taken) {
            log.Note("left out " + file + ": another " + name + " was copied before");
            continue;
        }
        names.push_back(name);
        std::string destination = target + (target.back() == '\\' ? "" : "\\") + name;
        if (SamePath(destination, file))
            continue;
        std::string error;
        if (CopyTextFile(file, destination, error))
            log.Detail("copied " + file + " to " + destination);
        else
            log.Fail(kToolWriteFailed, error);
    }
}

}  // namespace suite
