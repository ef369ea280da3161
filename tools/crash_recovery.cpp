// Recovery after the host died: at the crash the unsaved files go into the work folder,
// which is kept and noted in the project file; at the next open the user may take them
// back. A whole restart lies between, so all that must survive stands in files.
#include <cstdint>
#include <string>

#include "core/project_doc.h"
#include "host/project_notify.h"
#include "platform/win/app_profile.h"
#include "platform/win/file_attributes.h"
#include "platform/win/files.h"
#include "platform/win/find.h"
#include "platform/win/private_profile.h"

namespace velorand {

namespace {

constexpr char kExceptionCaption[] = "Velorand - Program Exception";
constexpr char kDefaultExceptionText[] = "Program will terminate due to an exception.\n";
constexpr char kRecoveryQuestion[] =
    "Some files were saved from previous program exception.\n\n"
    "Do you wish to recover these files?";
constexpr win::DWORD kFatalPathBuffer = 600;

}  // namespace

int CProjectDoc::OnFatalError(ProjectNotify* record) {
    const char* text = record != nullptr && record->argument != 0
                           ? reinterpret_cast<const char*>(record->argument)
                           : kDefaultExceptionText;
    ProjectMessageBox(text, kExceptionCaption, win::MB_ICONSTOP);
    SaveProjectState(win::TRUE, win::TRUE);
    ownWorkFolder = 0;  // nothing may remove the saved files now
    const std::string path = GetPathName();
    win::WritePrivateProfileString("Project", "FatalPath", workFolder.c_str(), path.c_str());
    win::WriteProfileString("Velorand", "LastOpenProject", path.c_str());
    win::WriteProfileInt("Velorand", "DoRecovery", 1);
    return 1;
}

int CProjectDoc::CheckCrashRecovery(const char* projectPath) {
    char folder[kFatalPathBuffer];
    if (win::GetPrivateProfileString("Project", "FatalPath", "", folder, sizeof folder,
                                     projectPath) == 0) {
        return 1;
    }
    // Whatever the answer, the question is asked once.
    win::WritePrivateProfileString("Project", "FatalPath", nullptr, projectPath);
    const win::DWORD attributes = win::GetFileAttributes(folder);
    if (attributes == win::INVALID_FILE_ATTRIBUTES ||
        (attributes & win::FILE_ATTRIBUTE_DIRECTORY) == 0) {
        return 1;
    }
    if (ProjectMessageBox(kRecoveryQuestion, nullptr, win::MB_YESNO | win::MB_ICONQUESTION) ==
        win::IDNO) {
        return 0;
    }
    RecoverFiles(folder);
    return 1;
}

int CProjectDoc::RecoverFiles(const char* folder) {
    const std::string& path = GetPathName();
    const std::size_t slash = path.rfind('\\');
    if (path.empty()) {
        return 0;
    }
    const std::string destination = path.substr(0, slash == std::string::npos ? 0 : slash + 1);
    std::string source = folder;
    if (source.empty() || source.back() != '\\') {
        source += '\\';
    }
    win::_finddata_t entry;
    const std::intptr_t search = win::_findfirst((source + "*.*").c_str(), &entry);
    if (search == -1) {
        return 1;
    }
    do {
        if ((entry.attrib & win::_A_SUBDIR) == 0) {
            win::CopyFile((source + entry.name).c_str(), (destination + entry.name).c_str(),
                          win::FALSE);
        }
    } while (win::_findnext(search, &entry) == 0);
    win::_findclose(search);
    return 1;
}

}  // namespace velorand
