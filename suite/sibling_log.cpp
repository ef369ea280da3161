#include "suite/sibling_log.h"

#include <cstdio>
#include <cstdlib>

namespace suite {

void LogSiblingCall(const char* library, const std::string& call) {
    const char* path = std::getenv("VELORAND_SUITE_LOG");
    if (path == nullptr || *path == '\0') {
        return;
    }
    if (std::FILE* log = std::fopen(path, "a")) {
        std::fprintf(log, "%s: %s\n", library, call.c_str());
        std::fclose(log);
    }
}

}  // namespace suite
