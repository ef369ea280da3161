// The platform's rule for calls that return a text in the caller's buffer and its length.
#pragma once

#include <cstring>
#include <string>

#include "platform/win/types.h"

namespace win::internal {

// Copies the text with its terminating zero and returns its length; when it doesn't fit,
// the buffer is left alone and the result is the size needed, terminating zero included.
inline DWORD CopyToBuffer(const std::string& text, DWORD bufferLength, LPSTR buffer) {
    if (buffer == nullptr || bufferLength <= text.size())
        return static_cast<DWORD>(text.size() + 1);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<DWORD>(text.size());
}

}  // namespace win::internal
