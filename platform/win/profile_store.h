// Profile files on disk, by POSIX path. Reads share one parsed copy of a file for as long
// as the file is unchanged, so that many look-ups in an unchanged file parse it once. A
// watched file is known unchanged without a system call (see file_watch.h); any other is
// unchanged while it stays the same file with the same size and modification time. A write makes
// the whole new text in a temporary file beside the old one and renames it over, so that a failed
// write leaves the old file whole.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/win/profile_file.h"
#include "platform/win/types.h"

namespace win {

// The parsed file; an empty one when the file is missing or cannot be read, and then
// `found`, if given, is false.
std::shared_ptr<const ProfileFile> LoadProfile(const std::string& posixPath, bool* found = nullptr);

// The edit gives the next text of the file, or nothing to leave the file as it is.
using ProfileEdit = std::function<std::optional<std::string>(const ProfileFile&)>;

// Applies an edit to a file, creating the file when it is missing (and its folder too with
// `makeFolder`). The result is ERROR_SUCCESS, or the platform's error: 5 when the file or
// its folder is read-only (write bits all clear count even for the superuser), 3 when the
// folder is missing.
DWORD EditProfile(const std::string& posixPath, const ProfileEdit& edit, bool makeFolder);

// How many times a file has been read and parsed since the process started: tests see
// through it whether the cache answered.
std::uint64_t ProfileParses();

}  // namespace win
