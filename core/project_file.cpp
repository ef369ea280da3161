#include "core/project_file.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "core/project_doc.h"
#include "platform/win/clock.h"
#include "platform/win/file_attributes.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"
#include "platform/win/text_stream.h"

namespace velorand {

namespace {

constexpr char kRelease[] = "4.0";
constexpr char kVersion[] = "40";

bool StartsWith(const char* line, const char* prefix) {
    return std::strncmp(line, prefix, std::strlen(prefix)) == 0;
}

const char* SkipWhiteSpace(const char* text) {
    while (*text == ' ' || *text == '\t') {
        ++text;
    }
    return text;
}

bool IsExistingFile(const char* path) {
    win::DWORD attributes = win::GetFileAttributes(path);
    return attributes != win::INVALID_FILE_ATTRIBUTES &&
           (attributes & win::FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The key of an [MRU List] line: the text after any leading '=' up to the next '='.
std::string FileListKey(const char* line) {
    while (*line == '=') {
        ++line;
    }
    return std::string(line, std::strcspn(line, "="));
}

int WriteProjectFile(const char* path, const std::string& projectID,
                     const std::string& topLevelSchematic, int simulator,
                     const std::string& location, const std::string* searchPath) {
    std::ofstream out;
    if (!win::OpenTextStream(out, path, std::ios::trunc)) {
        return 0;
    }
    out << "[Project]\n"
        << "ProjectID=" << projectID << "\n"
        << "ProjectRelease=" << kRelease << "\n"
        << "ProjectVersion=" << kVersion << "\n"
        << "DateCreated=" << ProjectTimestamp() << "\n"
        << "LastUpdated=\n"
        << "TopLevelSchematic=" << topLevelSchematic << "\n"
        << "Simulator=" << simulator << "\n"
        << "Location=" << location << "\n"
        << "RelativePath=\n\n"
        << "[Search Paths]\n\n";
    if (searchPath != nullptr) {
        out << "SearchPath0=" << *searchPath << "\n";
    } else {
        out << "\n";
    }
    out << "[Setting]\n\n"
        << "[Extra]\n\n";
    out.close();
    return out.fail() ? 0 : 1;
}

}  // namespace

std::string ProjectTimestamp() {
    char date[16];
    char time[16];
    return std::string(win::_strdate(date)) + " " + win::_strtime(time);
}

bool ReadProjectLine(std::istream& in, char (&line)[600]) {
    std::string text;
    if (!win::ReadTextLine(in, text) || text.size() >= sizeof line) {
        return false;
    }
    std::memcpy(line, text.data(), text.size());
    line[text.size()] = '\0';
    return true;
}

int WriteNewProjectFile(const char* path, const std::string& projectID,
                        const std::string& topLevelSchematic, int simulator,
                        const std::string& location) {
    return WriteProjectFile(path, projectID, topLevelSchematic, simulator, location, nullptr);
}

void WriteImportedProjectFile(const char* path, const std::string& location) {
    std::string name = path;
    std::size_t slash = name.find_last_of("\\/:");
    if (slash != std::string::npos) {
        name.erase(0, slash + 1);
    }
    std::size_t dot = name.rfind('.');
    if (dot != std::string::npos) {
        name.erase(dot);
    }
    std::string folder = location;
    if (!folder.empty() && folder.back() == '\\') {
        folder.pop_back();
    }
    WriteProjectFile(path, name, location + name + ".sch", 0, location, &folder);
}

bool ReadProjectSummary(const char* path, ProjectFileSummary& summary) {
    std::ifstream in;
    if (!win::OpenTextStream(in, path)) {
        return false;
    }
    char line[600];
    bool more = ReadProjectLine(in, line);
    while (more) {
        if (StartsWith(line, "ProjectID=")) {
            summary.projectID = line + 10;
        } else if (StartsWith(line, "TopLevelSchematic=")) {
            summary.topLevelSchematic = SkipWhiteSpace(line + 18);
        } else if (StartsWith(line, "Location=")) {
            summary.location = SkipWhiteSpace(line + 9);
        } else if (StartsWith(line, "RelativePath=")) {
            summary.relativePath = line + 13;
        } else if (StartsWith(line, "[Search Pa")) {
            // The section runs to the next head, which is looked at again as any line.
            summary.searchPaths.clear();
            while ((more = ReadProjectLine(in, line)) && line[0] != '[') {
                const char* equals = std::strrchr(line, '=');
                if (equals != nullptr && equals[1] != '[') {
                    summary.searchPaths.emplace_back(equals + 1);
                }
            }
            continue;
        }
        more = ReadProjectLine(in, line);
    }
    return true;
}

std::vector<std::string> ReadDocumentationFiles(const char* path) {
    std::vector<std::string> files;
    for (int i = 0; i < 255; ++i) {
        char key[32];
        std::snprintf(key, sizeof key, "PdfFiles%d", i);
        char value[260];
        if (win::GetPrivateProfileString("PdfFiles", key, "", value, sizeof value, path) == 0) {
            break;
        }
        files.emplace_back(value);
    }
    return files;
}

int CProjectDoc::ReadProjectFile(const char* path, std::string& owner) {
    std::ifstream in;
    if (!win::OpenTextStream(in, path)) {
        return 0;
    }
    while (ReadProjectLine(in, line)) {
        if (StartsWith(line, "ProjectVersion=")) {
            projectVersion = static_cast<std::uint32_t>(std::strtoul(line + 15, nullptr, 10));
        } else if (StartsWith(line, "ProjectID=")) {
            projectID = line + 10;
        } else if (StartsWith(line, "DateCreated=")) {
            dateCreated = line + 12;
        } else if (StartsWith(line, "TopLevelSchematic=")) {
            topLevelSchematic = SkipWhiteSpace(line + 18);
        } else if (StartsWith(line, "Simulator=")) {
            // The default session has no simulator of its own; ProjectID stands before.
            if (!win::EqualNoCase(projectID, "%session") && !TestSimulator(line + 10)) {
                return 0;
            }
        } else if (StartsWith(line, "Location=")) {
            location = SkipWhiteSpace(line + 9);
        } else if (StartsWith(line, "Owner=")) {
            owner = SkipWhiteSpace(line + 6);
        } else if (StartsWith(line, "RelativePath=")) {
            relativePath = line + 13;
        } else if (StartsWith(line, "[MRU List]")) {
            // Every further line names a file, whatever section it stands in; only files
            // that exist now are kept.
            while (ReadProjectLine(in, line)) {
                std::string file = FileListKey(line);
                if (!file.empty() && file[0] != '[' && IsExistingFile(file.c_str())) {
                    mruFiles.push_back(file);
                }
            }
        }
    }
    return 1;
}

void CProjectDoc::WriteProjectKeys() {
    const char* file = GetPathName().c_str();
    char simulatorText[16];
    std::snprintf(simulatorText, sizeof simulatorText, "%d", simulator);
    std::string now = ProjectTimestamp();
    win::WritePrivateProfileString("Project", "ProjectID", projectID.c_str(), file);
    win::WritePrivateProfileString("Project", "ProjectRelease", kRelease, file);
    win::WritePrivateProfileString("Project", "ProjectVersion", kVersion, file);
    win::WritePrivateProfileString("Project", "DateCreated", dateCreated.c_str(), file);
    win::WritePrivateProfileString("Project", "LastUpdated", now.c_str(), file);
    win::WritePrivateProfileString("Project", "TopLevelSchematic", topLevelSchematic.c_str(), file);
    win::WritePrivateProfileString("Project", "Simulator", simulatorText, file);
    win::WritePrivateProfileString("Project", "Location", location.c_str(), file);
    win::WritePrivateProfileString("Project", "RelativePath", relativePath.c_str(), file);
    for (std::size_t i = 0; i < searchPaths.size(); ++i) {
        char key[32];
        std::snprintf(key, sizeof key, "SearchPath%zu", i);
        win::WritePrivateProfileString("Search Paths", key, searchPaths[i].c_str(), file);
    }
}

void CProjectDoc::ComputeRelativePath() {
    relativePath.clear();
    if (topLevelSchematic.empty()) {
        return;
    }
    const std::string& path = GetPathName();
    std::size_t last = path.rfind('\\');
    std::string p = last == std::string::npos ? "" : path.substr(0, last + 1);
    last = topLevelSchematic.rfind('\\');
    std::string s = last == std::string::npos ? "" : topLevelSchematic.substr(0, last);
    if (s.empty() || s.back() != '\\') {
        s += '\\';
    }

    // Positions of the first backslash; npos counts as "none", which is never above 0.
    auto above0 = [](std::size_t pos) { return pos != std::string::npos && pos > 0; };
    auto cut = [](std::string& text, std::size_t pos) {
        text = pos == std::string::npos ? "" : text.substr(pos + 1);
    };
    std::size_t i = p.find('\\');
    std::size_t j = s.find('\\');
    if (above0(i) && above0(j) && i == j && !win::EqualNoCase(p.substr(0, i), s.substr(0, j))) {
        return;  // no common root: different drives
    }
    do {
        cut(p, i);
        cut(s, j);
        i = p.find('\\');
        j = s.find('\\');
    } while (above0(i) && above0(j) && i == j && win::EqualNoCase(p.substr(0, i), s.substr(0, j)));
    while (above0(i = p.find('\\'))) {
        relativePath += "..\\";
        cut(p, i);
    }
    relativePath += s;
}

}  // namespace velorand
