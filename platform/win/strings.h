// Comparison of 8-bit text without regard to case, as the platform's C library does it:
// only the ASCII letters fold, every other byte compares as it stands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace win {

int _stricmp(const char* a, const char* b);
int _strnicmp(const char* a, const char* b, std::size_t count);

// The same for counted strings: equal ignoring case.
bool EqualNoCase(std::string_view a, std::string_view b);
// True when the text ends in the ending, case ignored.
bool EndsWithNoCase(std::string_view text, std::string_view ending);
// The text with its ASCII letters lowered.
std::string ToLower(std::string_view text);

}  // namespace win
