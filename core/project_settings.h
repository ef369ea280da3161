// What the project dialog gives the document: the values of a new or changed project. The
// dialog fills them, and the document takes them over with ApplyProjectSettings.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/win/types.h"

namespace velorand {

// The project dialog's resource.
inline constexpr win::UINT kProjectDialogId = 26368;

// The dialog's modes, which are also the commands that start them.
inline constexpr int kModeNewProject = 26454;
inline constexpr int kModeModifyProject = 26452;
inline constexpr int kModeCopyProject = 26458;
inline constexpr int kModeArchiveProject = 26453;
inline constexpr int kModeRenameProject = 26457;

struct ProjectSettings {
    int mode = kModeNewProject;
    std::string projectID;  // the name, which may still end in ".vpj"
    std::string topLevelSchematic;
    std::string location;  // taken over in New only
    std::int32_t simulator = -1;
    std::vector<std::string> searchPaths;
};

}  // namespace velorand
