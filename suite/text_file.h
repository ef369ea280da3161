// Whole-file reads and writes on platform paths, for the tools' small text files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace suite {

// The largest file a tool reads; anything bigger is no schematic of ours.
inline constexpr std::size_t kMaxFileSize = 16 * 1024 * 1024;

// The POSIX path of an existing regular file, or nothing.
std::optional<std::string> ExistingFile(std::string_view platformPath);

// The whole file. Nothing, with the reason in `error`, when the path names no file, the
// file can't be read or is larger than kMaxFileSize.
std::optional<std::string> ReadTextFile(std::string_view platformPath, std::string& error);

// Replaces the file's contents through a temporary file beside it, so that a failed write
// leaves the old file whole. A read-only file (no write bit at all) is refused, as the
// platform refuses to overwrite it.
bool WriteTextFile(std::string_view platformPath, std::string_view text, std::string& error);

// Copies a file over whatever stands at the destination, read-only destinations refused.
bool CopyTextFile(std::string_view fromPlatformPath, std::string_view toPlatformPath,
                  std::string& error);

// The lines of a text without their line ends; a CR before the LF goes too. A last line
// without a line end counts; an empty text has no lines.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace suite
