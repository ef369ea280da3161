// Listing a folder with the C runtime's find calls and the platform's wildcards: '*' for
// any run of characters, '?' for one, letters matched without regard to case. "*.*"
// matches every name, one without a dot too, and "name.*" matches "name" as well.
// Entries come in a fixed order: by name without regard to case.
#pragma once

#include <cstdint>
#include <ctime>

#include "platform/win/types.h"

namespace win {

inline constexpr unsigned _A_NORMAL = 0x00;
inline constexpr unsigned _A_RDONLY = 0x01;
inline constexpr unsigned _A_SUBDIR = 0x10;

struct _finddata_t {
    unsigned attrib;
    std::time_t time_create;
    std::time_t time_access;
    std::time_t time_write;
    unsigned long size;
    char name[MAX_PATH];
};

// Starts a search for a folder and pattern ("C:\p\*.sch"); the first entry goes to
// `fileInfo`. -1 when nothing matches (errno ENOENT, last error 2), when the folder is
// missing (ENOENT, last error 3) or when the path is bad (EINVAL, last error 161).
std::intptr_t _findfirst(const char* fileSpec, _finddata_t* fileInfo);

// The next entry: 0, or -1 with errno ENOENT (last error 18) when there are no more.
int _findnext(std::intptr_t handle, _finddata_t* fileInfo);

// Ends a search: 0, or -1 with errno EINVAL for a handle that is not open.
int _findclose(std::intptr_t handle);

// Whether a name matches a pattern by the rules above.
bool MatchesWildcard(const char* pattern, const char* name);

}  // namespace win
