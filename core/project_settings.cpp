// The project dialog as the open project sees it: the guarded run of Modify, and the
// taking over of the dialog's values into the document and its project file.
#include "core/project_settings.h"

#include <memory>
#include <string>
#include <vector>

#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "platform/afx/dialog.h"
#include "platform/win/file_attributes.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

constexpr std::uint32_t kProjectVersion = 40;
constexpr char kProjectVersionText[] = "40";

bool FileExists(const std::string& path) {
    return win::GetFileAttributes(path.c_str()) != win::INVALID_FILE_ATTRIBUTES;
}

}  // namespace

int CProjectDoc::ModifyProject() {
    if (projectDlgOpen) {
        return 0;
    }
    projectDlgOpen = 1;
    // The dialog shows the search paths as the project file has them now.
    std::vector<std::string> paths;
    LoadSearchPaths(paths);
    if (commandTest == 1) {
        projectDlgOpen = 0;
        return 0;
    }
    afx::CDialog dialog(kProjectDialogId, mainWnd);
    const win::INT_PTR result = dialog.DoModal();
    projectDlgOpen = 0;
    return result == -1 ? 0 : 1;
}

int CProjectDoc::ApplyProjectSettings(const ProjectSettings& values) {
    projectID = values.projectID;
    topLevelSchematic = values.topLevelSchematic;
    simulator = values.simulator;
    simulatorInfo = std::make_unique<SimulatorInfo>(simulator);
    projectVersion = kProjectVersion;
    if (values.mode == kModeNewProject) {
        location = values.location;
        if (location.empty() || location.back() != '\\') {
            location += '\\';
        }
    }
    if (win::EndsWithNoCase(projectID, ".vpj")) {
        projectID.resize(projectID.size() - 4);
    }
    if (!win::EndsWithNoCase(topLevelSchematic, ".sch")) {
        topLevelSchematic += ".sch";
    }
    SetPathName((location + projectID + ".vpj").c_str(), win::FALSE);
    ComputeRelativePath();
    const std::string file = GetPathName();
    win::WritePrivateProfileString("Project", "RelativePath", relativePath.c_str(), file.c_str());
    win::WritePrivateProfileString("Project", "ProjectVersion", kProjectVersionText, file.c_str());
    // The editor learns a changed list of an existing project: the old paths go first.
    const bool tellEditor = values.mode != kModeNewProject && FileExists(topLevelSchematic);
    if (tellEditor) {
        SendRemovePaths();
    }
    StoreSearchPaths(file.c_str(), values.searchPaths);
    if (tellEditor) {
        SendAddPaths();
    }
    return 1;
}

}  // namespace velorand
