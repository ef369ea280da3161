#include "platform/win/temp_path.h"

#include <stdlib.h>

#include <string>

#include "platform/win/paths.h"
#include "platform/win/text_buffer.h"

namespace win {

DWORD GetTempPath(DWORD bufferLength, LPSTR buffer) {
    const char* tmpdir = getenv("TMPDIR");
    std::string path = PlatformPath(tmpdir && *tmpdir ? tmpdir : "/tmp");
    if (path.empty() || path.back() != '\\')
        path += '\\';
    return internal::CopyToBuffer(path, bufferLength, buffer);
}

}  // namespace win
