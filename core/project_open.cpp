// Opening a project: the template makes the one document with its frame, the document
// reads the project file under its lock, and the load brings the project into the host:
// tree, files, windows and netlist.
#include <fstream>
#include <list>
#include <string>

#include "core/host_commands.h"
#include "core/project_doc.h"
#include "core/project_doc_template.h"
#include "core/project_settings.h"
#include "core/tool_group_kit.h"
#include "platform/afx/dialog.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/files.h"
#include "platform/win/messages.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"
#include "platform/win/text_stream.h"
#include "platform/win/user_name.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {

namespace {

constexpr char kCannotMake[] = "Failed to create the document.";
constexpr char kSessionFile[] = "%session.vpj";
constexpr win::DWORD kUserNameBuffer = 256;

// A box of the application's own, as the framework shows its messages.
void AppMessageBox(const std::string& text, win::UINT flags = win::MB_OK) {
    if (afx::CWinApp* app = afx::AfxGetApp()) {
        app->DoMessageBox(text.c_str(), flags, 0);
    }
}

void SendCommand(afx::CWnd* main, win::UINT id) {
    if (main != nullptr) {
        main->SendMessage(win::WM_COMMAND, id, 0);
    }
}

}  // namespace

afx::CDocument* CProjectDocTemplate::OpenDocumentFile(win::LPCSTR path, win::BOOL makeVisible) {
    if (currentDoc != nullptr) {
        currentDoc->OnCloseDocument();
        if (GetFirstDocPosition() != nullptr) {
            return nullptr;  // the user kept the open project
        }
    }
    auto* doc = dynamic_cast<CProjectDoc*>(CreateNewDocument());
    currentDoc = doc;
    if (doc == nullptr) {
        AppMessageBox(kCannotMake, win::MB_OK | win::MB_ICONEXCLAMATION);
        return nullptr;
    }
    afx::CWnd* main = afx::AfxGetMainWnd();
    const win::BOOL autoDelete = doc->m_bAutoDelete;
    doc->m_bAutoDelete = win::FALSE;  // the frame's failure must not take the document along
    afx::CFrameWnd* frame = CreateNewFrame(doc, nullptr);
    doc->m_bAutoDelete = autoDelete;
    if (frame == nullptr) {
        AppMessageBox(kCannotMake, win::MB_OK | win::MB_ICONEXCLAMATION);
        delete doc;
        currentDoc = nullptr;
        return nullptr;
    }

    // A failed open leaves no document: the host offers a new project instead.
    auto fail = [&] {
        doc->OnCloseDocument();
        if (main != nullptr) {
            main->PostMessage(win::WM_COMMAND, kCmdNewProject, 0);
        }
        return nullptr;
    };
    if (path == nullptr) {
        SetDefaultTitle(doc);
        if (!makeVisible) {
            doc->m_bEmbedded = win::TRUE;
        }
        if (!doc->OnNewDocument()) {
            return fail();
        }
        ++m_nUntitledCount;
    } else {
        win::BOOL opened;
        {
            afx::CWaitCursor wait;
            opened = doc->OnOpenDocument(path);
        }
        if (!opened) {
            // A restart that reopens the last project keeps its failure quiet.
            const bool restarting = win::GetProfileInt("Velorand", "DoRecovery", 0) != 0 ||
                                    win::GetProfileInt("Velorand", "OpenLastSession", 0) != 0;
            if (!restarting && !doc->commandTest) {
                AppMessageBox(std::string("Unable to open: ") + path +
                              "\nPlease check if sharing is permitted.");
            }
            return fail();
        }
    }

    LoadToolGroup("Project", GroupInstance(), main, kResourceId);
    const std::string opened = path != nullptr ? path : doc->GetPathName();
    doc->SetPathName(opened.c_str(), win::TRUE);
    InitialUpdateFrame(frame, doc, makeVisible);
    return doc;
}

win::BOOL CProjectDoc::OnNewDocument() {
    afx::CDialog dialog(kProjectDialogId, mainWnd);
    if (dialog.DoModal() == -1 || projectID.empty()) {
        return win::FALSE;
    }
    // The dialog's commit has named the project and taken its values over; they are
    // applied once more, as the dialog left them, before the load.
    const ProjectSettings values{kModeNewProject, projectID, topLevelSchematic,
                                 location,        simulator, searchPaths};
    if (ApplyProjectSettings(values) != 1) {
        return win::FALSE;
    }
    return LoadProject(GetPathName().c_str(), win::TRUE);
}

win::BOOL CProjectDoc::OnOpenDocument(win::LPCSTR path) {
    afx::CWaitCursor wait;
    const std::string given = path != nullptr ? path : "";
    SetPathName(given.c_str(), win::FALSE);
    const std::string name = given.empty() ? kSessionFile : given;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || !win::EqualNoCase(name.substr(dot), ".vpj")) {
        ProjectMessageBox("''" + given + "'' is not a valid project name.\n", nullptr,
                          win::MB_ICONEXCLAMATION);
        return win::FALSE;
    }
    if (!CheckCrashRecovery(given.c_str())) {
        return win::FALSE;
    }
    win::WriteProfileInt("Velorand", "DoRecovery", 0);

    std::ifstream file;
    if (!win::OpenTextStream(file, name.c_str())) {
        return win::FALSE;
    }
    if (name.find("%session") == std::string::npos && !TakeLockFile()) {
        AppMessageBox("Unable to open: " + name +
                      "\nThis file is already in use or can't be shared.");
        return win::FALSE;
    }
    std::string owner;
    if (!ReadProjectFile(name.c_str(), owner)) {
        ProjectMessageBox("Simulator used in this project is not installed or is not correct");
        return win::FALSE;
    }
    file.close();

    if (projectID.empty() && mainWnd != nullptr) {
        mainWnd->SendMessage(kMsgProjectWithoutName, 0, 0);
    }
    char user[kUserNameBuffer];
    win::DWORD size = sizeof user;
    if (!owner.empty() && win::GetUserName(user, &size) && owner != user) {
        foreignOwner = 1;
        StatusMessage(
            "This default session is created by another user.\n"
            "\nYou will not be able to save this session!\n");
    }

    const std::size_t slash = given.rfind('\\');
    const std::string folder = slash == std::string::npos ? "" : given.substr(0, slash + 1);
    if (!location.empty() && !win::EqualNoCase(location, folder)) {
        StatusMessage("Project location is changed from " + location + " to " + folder);
        location = folder;
        if (!GetPathName().empty()) {
            win::WritePrivateProfileString("Project", "Location", location.c_str(),
                                           GetPathName().c_str());
        }
    }
    return LoadProject(given.c_str(), win::FALSE);
}

int CProjectDoc::LoadProject(const char* path, win::BOOL isNew) {
    afx::CWaitCursor wait;
    SendCommand(mainWnd, kCmdLoadBegins);
    treeView = dynamic_cast<CProjectView*>(GetFirstDocView(this));
    treeFrame = treeView != nullptr ? treeView->GetParent() : nullptr;
    SetPathName((location + projectID + ".vpj").c_str(), win::FALSE);
    const win::HWND main = mainWnd != nullptr ? mainWnd->m_hWnd : nullptr;
    const win::HWND tree = treeView != nullptr ? treeView->m_hWnd : nullptr;
    if (treeView != nullptr) {
        treeView->SetWindowText(projectID.c_str());
    }
    win::SetProp(main, "Project", reinterpret_cast<win::HANDLE>(tree));
    win::WriteProfileString("Velorand", "ProjectSearchPath", path);

    busy = 1;
    DeleteContents();
    SetModifiedFlag(win::FALSE);
    const int valid = ValidateProject(isNew);
    busy = 0;
    if (!valid) {
        SendCommand(mainWnd, kCmdLoadEnds);
        return 0;
    }
    ownWorkFolder = 0;
    if (topLevelSchematic.empty()) {
        toolsEnabled = 0;
    } else {
        win::CopyFile(topLevelSchematic.c_str(), GetWorkFile(topLevelSchematic.c_str()).c_str(),
                      win::FALSE);
        if (!UpdateTree()) {
            SendCommand(mainWnd, kCmdTreeChanged);
            SendCommand(mainWnd, kCmdTreeChanged);
            SendCommand(mainWnd, kCmdLoadEnds);
            // The user may mend the project in the dialog; read-only outputs get their
            // message from the check, and no dialog.
            if (CheckOutputsWritable() == 1 && ModifyProject() == 0) {
                return 0;
            }
            if (!UpdateTree()) {
                return 0;
            }
        }
    }

    busy = 1;
    if (!topLevelSchematic.empty()) {
        win::SetProp(main, "ProjectCmdUI", reinterpret_cast<win::HANDLE>(tree));
        if (autoOpenFile && OpenSimulatorTemplate() == 0) {
            busy = 0;
            return 0;
        }
    }
    if (mruFiles.empty()) {
        OpenTopSchematic();
    }
    for (const std::string& entry : std::list<std::string>(mruFiles)) {
        if (entry.empty()) {
            continue;
        }
        if (entry == topLevelSchematic) {
            OpenTopSchematic();
        } else if (topLevelSchematic.empty()) {
            OpenFile(entry.c_str(), 0);
        } else {
            // The netlist comes with the simulator template, not from the list.
            const std::string lower = win::ToLower(entry);
            if (lower.find(".ckt") == std::string::npos &&
                lower.find(".lmt") == std::string::npos) {
                OpenFile(entry.c_str(), 0);
            }
        }
    }
    mruFiles.clear();
    busy = 0;

    SendCommand(mainWnd, kCmdTreeChanged);
    SendCommand(mainWnd, kCmdLoadEnds);
    SendCommand(mainWnd, kCmdProjectReady);
    if (templateDoc != nullptr) {
        templateDoc->OnCmdMsg(kCmdTemplateRefresh, 0, nullptr, nullptr);
    }
    RestoreWindows();
    if (!treeValid && !topLevelSchematic.empty()) {
        StatusMessage("Failed to open project");
        return 0;
    }
    if (!isNew) {
        UpdateProject(win::TRUE);
    }
    ScanLibIndexes();
    return 1;
}

}  // namespace velorand
