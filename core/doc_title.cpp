// The titles of the host's documents: their file, and the project's name in front of
// those that belong to the project.
#include <string>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/win/app_profile.h"

namespace velorand {

void CProjectDoc::SetDocTitle(afx::CDocument* doc, win::BOOL inProject, const char* text) {
    std::string title = doc->GetPathName();
    if (!title.empty() && win::GetProfileInt("Project", "ShortTitle", 0) != 0) {
        title = FileNamePart(title);
    }
    if (title.empty() && text != nullptr) {
        // A text that begins with a dot is an extension, not a title: the old one stays.
        if (text[0] == '.') {
            return;
        }
        title = text;
    }
    if (inProject && title.find(" - ") == std::string::npos) {
        title = projectID + " - " + title;
    }
    doc->SetTitle(title.c_str());
}

}  // namespace velorand
