#include "core/project_doc.h"

#include "core/command_test_mode.h"
#include "core/file_kinds.h"
#include "core/project_doc_template.h"
#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/project_notify.h"
#include "platform/afx/afx_messages.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/view.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/files.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "views/project_view.h"

namespace velorand {

IMPLEMENT_DYNCREATE(CProjectDoc, CDocument)

namespace {

constexpr char kCaption[] = "Velorand - Project Manager";

afx::CMDIChildWnd* ActiveChild(afx::CWnd* mainWnd) {
    auto* frame = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd);
    return frame != nullptr ? frame->MDIGetActive() : nullptr;
}

}  // namespace

CProjectDoc::CProjectDoc() : mainWnd(afx::AfxGetMainWnd()) {
    autoOpenFile = win::GetProfileInt("Project", "AutoOpenFile", 1);
    showFileList = win::GetProfileInt("Project", "ShowFileList", 0);
    templateDisabled = win::GetProfileInt("Project", "DisableQT", 0);
    toolsEnabled = win::GetProfileInt("Project", "SkipNetlist", 1) == 0 ? 1 : 0;
    ChooseSettingsStore();
    commandTest = AskCommandTestMode();
}

CProjectDoc::~CProjectDoc() {
    if (auto* tmpl = dynamic_cast<CProjectDocTemplate*>(GetDocTemplate())) {
        tmpl->ForgetDocument(this);
    }
}

win::BOOL CProjectDoc::IsModified() {
    if (CDocument::IsModified()) {
        return win::TRUE;
    }
    afx::CMDIChildWnd* before = ActiveChild(mainWnd);
    win::BOOL modified = win::FALSE;
    for (afx::CDocument* doc : openDocs) {
        if (doc->IsModified()) {
            modified = win::TRUE;
            break;
        }
    }
    if (before != nullptr && win::IsWindow(before->m_hWnd)) {
        before->ActivateFrame(win::SW_SHOW);
    }
    return modified;
}

void CProjectDoc::SetModifiedFlag(win::BOOL modified) {
    m_bModified = modified;
}

void CProjectDoc::DeleteContents() {
    openDocs.clear();
    schematics.clear();
    if (!topLevelSchematic.empty()) {
        std::string base = topLevelSchematic.substr(
            0, topLevelSchematic.size() >= 4 ? topLevelSchematic.size() - 4 : 0);
        win::DeleteFile((base + GetFileExtension(kToolDebugLog)).c_str());
        win::DeleteFile((base + GetFileExtension(kToolLog)).c_str());
        win::DeleteFile((location + projectID + GetFileExtension(kListingFile)).c_str());
    }
    CDocument::DeleteContents();
}

void CProjectDoc::ActivateNextWindow() {
    for (afx::CDocument* doc : {activeDoc, templateDoc}) {
        afx::CFrameWnd* frame = GetDocFrame(doc, win::FALSE);
        if (frame != nullptr && frame->IsWindowVisible()) {
            frame->ActivateFrame(win::SW_SHOW);
            return;
        }
    }
    if (auto* frame = dynamic_cast<afx::CMDIFrameWnd*>(mainWnd)) {
        win::SendMessage(frame->m_hWndMDIClient, win::WM_MDINEXT, 0, 0);
    }
}

void CProjectDoc::StatusMessage(const std::string& text) const {
    if (mainWnd != nullptr) {
        mainWnd->SendMessage(afx::WM_SETMESSAGESTRING, 0,
                             reinterpret_cast<win::LPARAM>(text.c_str()));
    }
}

int CProjectDoc::ProjectMessageBox(const std::string& text, const char* caption,
                                   win::UINT flags) const {
    return win::MessageBox(mainWnd != nullptr ? mainWnd->m_hWnd : nullptr, text.c_str(),
                           caption != nullptr ? caption : kCaption, flags);
}

win::LRESULT CProjectDoc::SendProjectNotify(afx::CWnd* target, win::UINT code, afx::CDocument* doc,
                                            int option, win::LPARAM argument) const {
    ProjectNotify record;
    record.hwndFrom = treeView != nullptr ? treeView->m_hWnd : nullptr;
    record.idFrom = kFromProject;
    record.code = code;
    record.document = doc;
    record.option = option;
    record.argument = argument;
    target->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(&record));
    return record.result;
}

afx::CView* CProjectDoc::GetFirstDocView(afx::CDocument* doc) {
    if (doc == nullptr) {
        return nullptr;
    }
    afx::POSITION pos = doc->GetFirstViewPosition();
    return pos != nullptr ? doc->GetNextView(pos) : nullptr;
}

afx::CFrameWnd* CProjectDoc::GetDocFrame(afx::CDocument* doc, win::BOOL notify) const {
    afx::CView* view = GetFirstDocView(doc);
    if (view == nullptr || !win::IsWindow(view->m_hWnd)) {
        return nullptr;
    }
    if (notify) {
        SendProjectNotify(view, kCodeFrameAsked, nullptr, 0, reinterpret_cast<win::LPARAM>(view));
    }
    afx::CFrameWnd* frame = view->GetParentFrame();
    if (frame == nullptr || !win::IsWindow(frame->m_hWnd)) {
        return nullptr;
    }
    return frame;
}

win::BOOL CProjectDoc::IsDocAlive(afx::CDocument* doc) const {
    return GetDocFrame(doc, win::TRUE) != nullptr ? win::TRUE : win::FALSE;
}

}  // namespace velorand
