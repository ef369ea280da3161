// The checks a project must pass before it loads and at each save: its name, its folder,
// which becomes the process's current folder, and its top level schematic, which is
// looked for again beside the project file when a project has been moved.
#include <algorithm>
#include <string>
#include <vector>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/win/current_directory.h"
#include "platform/win/file_attributes.h"
#include "platform/win/private_profile.h"
#include "platform/win/temp_path.h"

namespace velorand {

namespace {

constexpr std::size_t kMaxProjectName = 256;

bool FileExists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

std::string TempFolder() {
    char buffer[win::MAX_PATH];
    const win::DWORD length = win::GetTempPath(sizeof buffer, buffer);
    return length > 0 && length < sizeof buffer ? std::string(buffer, length) : std::string();
}

}  // namespace

int CProjectDoc::ValidateProject(win::BOOL isNew) {
    if (projectID.size() > kMaxProjectName) {
        ProjectMessageBox("The project name " + projectID + " is not valid.\n\n" +
                              "It has more than 256 characters\n",
                          nullptr, win::MB_ICONEXCLAMATION);
        return 0;
    }
    if (!IsValidFileName(projectID.c_str())) {
        return 0;
    }
    if (location.empty()) {
        location = TempFolder();
        ownWorkFolder = 0;
    }
    win::SetCurrentDirectory(location.c_str());
    if (topLevelSchematic.empty()) {
        return 1;
    }
    if (!netlistFile.empty() && !FileExists(netlistFile)) {
        netlistFile.clear();
    }
    if (isNew || FileExists(topLevelSchematic)) {
        return 1;
    }

    // A moved project: the schematic is looked for where it lies from the project file,
    // counted from the project's folder, which is the current one. The field keeps that
    // relative form until the tree is built.
    const std::string name(FileNamePart(topLevelSchematic));
    const bool joined = relativePath.empty() || relativePath.back() == '\\';
    topLevelSchematic = relativePath + (joined ? "" : "\\") + name;
    if (FileExists(topLevelSchematic)) {
        char folder[win::MAX_PATH];
        const win::DWORD length = win::GetCurrentDirectory(sizeof folder, folder);
        const std::string full = length > 0 && length < sizeof folder
                                     ? std::string(folder, length) + "\\" + topLevelSchematic
                                     : topLevelSchematic;
        win::WritePrivateProfileString("Project", "TopLevelSchematic", full.c_str(),
                                       GetPathName().c_str());
        return 1;
    }

    if (ProjectMessageBox("Top level schematic " + topLevelSchematic + " does not exist.\n\n" +
                              "Do you want to modify the project?\n",
                          nullptr, win::MB_OKCANCEL | win::MB_ICONEXCLAMATION) == win::IDCANCEL) {
        return 0;
    }
    netlistFile.clear();
    win::WritePrivateProfileString("MRU List", nullptr, nullptr, GetPathName().c_str());
    mruFiles.clear();
    // A close may take other documents out of the list: each is closed while it is there.
    for (afx::CDocument* doc : std::vector<afx::CDocument*>(openDocs.begin(), openDocs.end())) {
        if (std::find(openDocs.begin(), openDocs.end(), doc) != openDocs.end()) {
            doc->OnCloseDocument();
        }
    }
    return ModifyProject();
}

}  // namespace velorand
