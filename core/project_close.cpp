// Closing the project: its files are saved as the user answers, its windows and work
// folder go, its lock is given back, and the document deletes itself. A refusal of the
// user leaves the project open as it was.
#include "core/project_doc.h"
#include "core/project_doc_template.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/menu.h"
#include "platform/win/strings.h"
#include "platform/win/window_props.h"
#include "views/project_view.h"

namespace velorand {

void CProjectDoc::OnCloseDocument() {
    if (busy) {
        return;
    }
    busy = 1;
    if (!CloseProject()) {
        busy = 0;
        SendAddPaths();
        return;
    }
    // The host's schematic and symbol menus belong to a named project; the session
    // leaves them to the host.
    const win::HWND main = mainWnd != nullptr ? mainWnd->m_hWnd : nullptr;
    if (!win::EqualNoCase(projectID, "%session")) {
        for (const char* property : {"SchMenuHandle", "SymMenuHandle"}) {
            if (auto* menu = reinterpret_cast<win::HMENU*>(win::GetProp(main, property))) {
                win::DestroyMenu(*menu);
                *menu = nullptr;
                win::RemoveProp(main, property);
            }
        }
    }
    if (auto* tmpl = dynamic_cast<CProjectDocTemplate*>(GetDocTemplate())) {
        tmpl->ForgetDocument(this);
    }
    busy = 0;
    CDocument::OnCloseDocument();
}

int CProjectDoc::CloseProject() {
    afx::CWaitCursor wait;
    auto* frame = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd);
    win::BOOL maximized = win::FALSE;
    afx::CMDIChildWnd* child = frame != nullptr ? frame->MDIGetActive(&maximized) : nullptr;
    const int showCmd = child == nullptr ? GetChildShowCmd()
                        : maximized      ? win::SW_SHOWMAXIMIZED
                                         : win::SW_RESTORE;

    // A document whose load never began holds nothing of the file it was given, which
    // may be another user's project or no project at all: nothing is stored into it.
    const bool loadBegan = treeView != nullptr;
    treeView = dynamic_cast<CProjectView*>(GetFirstDocView(this));
    treeFrame = treeView != nullptr ? treeView->GetParent() : nullptr;
    const win::HWND main = mainWnd != nullptr ? mainWnd->m_hWnd : nullptr;
    win::RemoveProp(main, "ProjectCmdUI");
    if (loadBegan && !SaveProjectState(win::TRUE, win::FALSE)) {
        if (!topLevelSchematic.empty() && treeView != nullptr) {
            win::SetProp(main, "ProjectCmdUI", reinterpret_cast<win::HANDLE>(treeView->m_hWnd));
        }
        return 0;
    }

    // The document must survive the loss of its view.
    const win::BOOL autoDelete = m_bAutoDelete;
    m_bAutoDelete = win::FALSE;
    if (treeView != nullptr) {
        if (auto* viewFrame = treeView->GetParentFrame();
            viewFrame != nullptr && viewFrame->GetActiveView() == treeView) {
            viewFrame->SetActiveView(nullptr);
        }
        win::RemoveProp(main, "Project");
        delete treeFrame;
        treeFrame = nullptr;
        treeView = nullptr;
    }
    RemoveWorkFolder(nullptr);
    if (afx::CWinApp* app = afx::AfxGetApp()) {
        app->CloseAllDocuments(win::FALSE);
    }
    m_bAutoDelete = autoDelete;
    win::WriteProfileInt("Settings", "ShowCmd", showCmd);
    ReleaseLockFile();
    return 1;
}

}  // namespace velorand
