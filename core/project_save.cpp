// Saving the project: the state of its open files (work files on a plain save, the real
// files after the user's answers on a close), and the project's own save with its tree
// and netlist.
#include <algorithm>
#include <string>
#include <vector>

#include "core/host_commands.h"
#include "core/project_doc.h"
#include "core/project_file.h"
#include "host/notify_codes.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/messages.h"
#include "platform/win/private_profile.h"
#include "views/project_view.h"

namespace velorand {

namespace {

// A command along the application's command route.
void RouteCommand(win::UINT id) {
    if (afx::CWinApp* app = afx::AfxGetApp()) {
        app->OnCmdMsg(id, 0, nullptr, nullptr);
    }
}

}  // namespace

int CProjectDoc::SaveProjectState(win::BOOL closing, win::BOOL crash) {
    if (treeView == nullptr) {
        return 1;
    }
    treeView->SetIgnoreSaved(1);
    ComputeRelativePath();
    auto* main = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd);
    afx::CMDIChildWnd* activeChild = main != nullptr ? main->MDIGetActive() : nullptr;
    afx::CView* activeView = main != nullptr ? main->GetActiveView() : nullptr;
    if (closing) {
        RouteCommand(kCmdSaveBegins);
    }

    // The host's answers and closes may take documents out of the list: each is looked
    // at only while it is still there.
    auto stillOpen = [this](afx::CDocument* doc) {
        return std::find(openDocs.begin(), openDocs.end(), doc) != openDocs.end() &&
               IsDocAlive(doc);
    };
    int result = 1;
    if (closing && !crash) {
        savingAll = 1;
        for (afx::CDocument* doc : std::vector<afx::CDocument*>(openDocs.begin(), openDocs.end())) {
            if (!stillOpen(doc)) {
                continue;
            }
            const win::BOOL modified = doc->IsModified();
            if (!doc->SaveModified()) {
                result = 0;
                break;
            }
            if (modified && !doc->GetPathName().empty()) {
                doc->SetPathName(doc->GetPathName().c_str(), win::TRUE);
            }
        }
        savingAll = 0;
    }

    // A file without a name of its own gets the whole of [Project]; the default session
    // never does.
    char id[2];
    const bool named = win::GetPrivateProfileString("Project", "ProjectID", "", id, sizeof id,
                                                    GetPathName().c_str()) != 0;
    if (!named && projectID.find("%session") == std::string::npos) {
        WriteProjectKeys();
    } else {
        SaveWindowLayout();
    }

    if (result == 1) {
        for (afx::CDocument* doc : std::vector<afx::CDocument*>(openDocs.begin(), openDocs.end())) {
            if (!stillOpen(doc)) {
                continue;
            }
            if (closing && !crash) {
                if (main != nullptr) {
                    main->SetActiveView(nullptr);
                }
                doc->SetModifiedFlag(win::FALSE);
                doc->OnCloseDocument();
            } else if (doc->IsModified() || doc == topDoc) {
                afx::CView* view = tuning ? GetFirstDocView(doc) : nullptr;
                // In a tuning run the view's element lock is off while its file is written.
                const auto viewArg = reinterpret_cast<win::LPARAM>(view);
                if (view != nullptr) {
                    SendProjectNotify(view, kCodeElementLock, nullptr, 0, viewArg);
                }
                SaveToWorkFile(doc);
                if (view != nullptr) {
                    SendProjectNotify(view, kCodeElementLock, nullptr, 1, viewArg);
                }
            }
        }
    }

    if (!closing && activeChild != nullptr) {
        activeChild->ActivateFrame(win::SW_SHOW);
        main->SetActiveView(activeView);
    }
    RouteCommand(kCmdSaveEnds);
    treeView->SetIgnoreSaved(0);
    return result;
}

int CProjectDoc::UpdateProject(win::BOOL markModified) {
    if (markModified) {
        SetModifiedFlag(win::TRUE);
    }
    const std::string file = GetPathName();
    if (file.empty()) {
        return 0;
    }
    afx::CWaitCursor wait;
    win::WritePrivateProfileString("Project", "LastUpdated", ProjectTimestamp().c_str(),
                                   file.c_str());
    win::WritePrivateProfileString("Project", "TopLevelSchematic", topLevelSchematic.c_str(),
                                   file.c_str());
    if (topLevelSchematic.empty()) {
        return 0;
    }
    if (!IsModified()) {
        return 1;
    }
    SaveProjectState(win::FALSE, win::FALSE);
    if (!ValidateProject(win::FALSE)) {
        return 0;
    }
    if (treeStale && !UpdateTree()) {
        return 0;
    }
    return RefreshAndNetlist();
}

}  // namespace velorand
