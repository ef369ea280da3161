#include "tools/files_equal.h"

#include <cstring>
#include <fstream>
#include <optional>

#include "platform/win/paths.h"

namespace velorand {

int FilesEqual(const std::string& pathA, const std::string& pathB) {
    std::optional<std::string> posixA = win::PosixPath(win::FullPlatformPath(pathA));
    std::optional<std::string> posixB = win::PosixPath(win::FullPlatformPath(pathB));
    if (!posixA || !posixB)
        return 0;
    std::ifstream a(*posixA, std::ios::binary);
    std::ifstream b(*posixB, std::ios::binary);
    if (!a.is_open() || !b.is_open())
        return 0;
    char bufferA[8192];
    char bufferB[8192];
    for (;;) {
        a.read(bufferA, sizeof bufferA);
        b.read(bufferB, sizeof bufferB);
        std::streamsize countA = a.gcount();
        if (countA != b.gcount() || std::memcmp(bufferA, bufferB, countA) != 0)
            return 0;
        if (countA < static_cast<std::streamsize>(sizeof bufferA))
            return 1;
    }
}

}  // namespace velorand
