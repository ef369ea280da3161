// The project file (<ProjectID>.vpj): a profile-style text file read and written both
// line by line and key by key. The document's own readers and writers are members of
// CProjectDoc (ReadProjectFile, WriteProjectKeys, ComputeRelativePath); here are those that
// work on a file without an open project.
#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <vector>

namespace velorand {

// Now, as the project file's dates are written: "MM/DD/YY HH:MM:SS".
std::string ProjectTimestamp();

// The next line, without its line end, into a 600-byte buffer. False at the end of the
// stream and for a line longer than 599 characters, which ends the reading as a failed
// read does; the buffer is never overrun.
bool ReadProjectLine(std::istream& in, char (&line)[600]);

// A new project file as the project commit writes it: [Project] with the given name,
// schematic, simulator and folder, an empty [Search Paths] (its keys come afterwards, by
// key), [Setting] and [Extra]. 1, or 0 when the file can't be opened.
int WriteNewProjectFile(const char* path, const std::string& projectID,
                        const std::string& topLevelSchematic, int simulator,
                        const std::string& location);

// A new project file for an imported filter design: named after the file, with
// <location><name>.sch as its schematic, simulator 0, and the location as its one search
// path. Nothing happens when the file can't be opened.
void WriteImportedProjectFile(const char* path, const std::string& location);

// What the delete dialog reads of a project it doesn't open.
struct ProjectFileSummary {
    std::string projectID;
    std::string topLevelSchematic;
    std::string location;
    std::string relativePath;
    std::vector<std::string> searchPaths;  // in file order, whatever their keys' numbers
};

// Reads the file line by line into the summary; false when it can't be opened.
bool ReadProjectSummary(const char* path, ProjectFileSummary& summary);

// The documentation files of [PdfFiles] (PdfFiles0 on), up to the first missing or empty
// key, at most 255 of them.
std::vector<std::string> ReadDocumentationFiles(const char* path);

}  // namespace velorand
