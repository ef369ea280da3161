// Whether a rebuilt file came out the same as the copy taken before the rebuild.
#pragma once

#include <string>

namespace velorand {

// 1 when both files open and hold the same bytes (two empty files are equal); 0 at the
// first difference, when one is shorter, or when either can't be opened.
int FilesEqual(const std::string& pathA, const std::string& pathB);

}  // namespace velorand
