// The numbered kinds of file that belong to a project, the lists of output extensions,
// and the checks on file names. Free functions without state.
#pragma once

#include <cstddef>
#include <string_view>

namespace velorand {

// The extension, with its dot, of a numbered kind of file; null for a number that names
// no kind. The numbers are fixed: every part of the system refers to kinds by them.
const char* GetFileExtension(int index);

inline constexpr int kProjectFile = 1;
inline constexpr int kSchematicFile = 2;
inline constexpr int kSymbolFile = 3;
inline constexpr int kListingFile = 6;
inline constexpr int kWorkFolder = 9;
inline constexpr int kNetlistSimulator0 = 10;
inline constexpr int kNetlistSimulator1 = 11;
inline constexpr int kToolLog = 15;
inline constexpr int kToolDebugLog = 16;
inline constexpr int kListingCopy = 18;

// Four lists, each for its own purpose and in its own order; they are never merged.
// A name matches a list when its last four characters equal an entry, case ignored.
// Files a clean-up may delete and a transfer leaves behind.
extern const char* const OutputExtensions[11];
// Files that must not be read-only before an analysis.
extern const char* const WritableOutputExtensions[9];
// Files that a project's deletion takes with it.
extern const char* const ProjectOutputExtensions[13];
// Output files that follow a project when it is renamed.
extern const char* const RenamedOutputExtensions[4];

// True when the last four characters of the name, case ignored, are one of the entries.
template <std::size_t N>
bool EndsInOneOf(const char* name, const char* const (&extensions)[N]);
bool EndsInOneOf(const char* name, const char* const* extensions, std::size_t count);

template <std::size_t N>
bool EndsInOneOf(const char* name, const char* const (&extensions)[N]) {
    return EndsInOneOf(name, extensions, N);
}

// True when the file is one of the project's outputs, by the last four characters.
bool IsOutputFile(const char* name);

// 1 when the name may be used as a file name, 0 after telling the user why not. The empty
// name passes: callers that must refuse it do so themselves.
int IsValidFileName(const char* name);

// The file name with its extension: the text behind the last backslash or slash.
std::string_view FileNamePart(std::string_view path);

// 0 when the two paths name the same file: equal paths, or the same file name and
// extension in any folders, case ignored; -1 when the extensions differ.
int CompareFileNames(const char* a, const char* b);

}  // namespace velorand
