// The saved layout of a project: which files were open and where their windows stood, in
// the project file's [MRU List], the documentation files in [PdfFiles], and the show state
// of child windows in the profile.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "core/file_kinds.h"
#include "core/project_doc.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/win/app_profile.h"
#include "platform/win/messages.h"
#include "platform/win/private_profile.h"
#include "platform/win/strings.h"
#include "platform/win/window.h"
#include "platform/win/window_placement.h"

namespace velorand {

namespace {

constexpr const char* kMruSection = "MRU List";
constexpr const char* kPdfSection = "PdfFiles";
constexpr win::DWORD kMruBufferSize = 12800;
constexpr int kDefaultShowCmd = win::SW_RESTORE;

std::string TrimLeft(const std::string& text) {
    std::size_t start = text.find_first_not_of(" \t\r\n");
    return start == std::string::npos ? std::string() : text.substr(start);
}

// The value of the first line of the section whose key names a file of that name, in
// any folder; nothing when no line does.
bool FindPlacementLine(const char* file, const std::string& docPath, std::string& value) {
    std::vector<char> section(kMruBufferSize);
    win::GetPrivateProfileSection(kMruSection, section.data(), kMruBufferSize, file);
    const std::string name(FileNamePart(docPath));
    for (const char* line = section.data(); *line != '\0'; line += std::strlen(line) + 1) {
        const std::string text = line;
        const std::size_t equals = text.find('=');
        const std::string key = text.substr(0, equals);
        if (win::EqualNoCase(FileNamePart(key), name)) {
            value = equals == std::string::npos ? std::string() : text.substr(equals + 1);
            return true;
        }
    }
    return false;
}

// The tree pane comes up as the profile wants it when there is a tree to show, and goes
// away otherwise. The tree's frame stands in for the pane until the pane has a window of
// its own, which then also remembers the state.
void SetTreePaneVisible(afx::CWnd* treeFrame, bool withTree) {
    if (treeFrame == nullptr)
        return;
    const bool visible = withTree && win::GetProfileInt("Project", "IsVisible", 1) != 0;
    treeFrame->ShowWindow(visible ? win::SW_SHOW : win::SW_HIDE);
}

afx::CMDIFrameWnd* MdiFrame(afx::CWnd* mainWnd) {
    return dynamic_cast<afx::CMDIFrameWnd*>(mainWnd);
}

}  // namespace

void CProjectDoc::SaveWindowLayout() {
    const std::string path = GetPathName();
    const char* file = path.c_str();
    win::WriteProfileString(profileSection.c_str(), "MRU", TrimLeft(GetPathName()).c_str());
    win::WritePrivateProfileString(kMruSection, nullptr, nullptr, file);
    StoreChildShowCmd();
    // Another user's session keeps its layout: the section stays empty.
    if (foreignOwner)
        return;
    for (afx::CDocument* doc : openDocs)
        SaveWindow(doc, file);
    win::WritePrivateProfileString(kPdfSection, nullptr, nullptr, file);
    for (std::size_t i = 0; i < pdfFiles.size(); ++i) {
        const std::string key = "PdfFiles" + std::to_string(i);
        win::WritePrivateProfileString(kPdfSection, key.c_str(), pdfFiles[i]->c_str(), file);
    }
}

void CProjectDoc::SaveWindow(afx::CDocument* doc, const char* file) {
    afx::CFrameWnd* frame = GetDocFrame(doc, win::FALSE);
    win::WINDOWPLACEMENT placement;
    if (frame == nullptr || !frame->GetWindowPlacement(&placement))
        return;
    placement.flags = 0;
    if (frame->IsZoomed())
        placement.showCmd = win::SW_SHOWMAXIMIZED;
    else if (frame->IsIconic())
        placement.showCmd = win::SW_SHOWMINIMIZED;
    else if (!frame->IsWindowVisible())
        placement.showCmd = win::SW_HIDE;
    else
        placement.showCmd = win::SW_SHOW;
    if (doc->GetPathName().empty())
        return;
    char value[160];
    std::snprintf(value, sizeof value, "%u,%u,%d,%d,%d,%d,%d,%d,%d,%d", placement.flags,
                  placement.showCmd, placement.ptMinPosition.x, placement.ptMinPosition.y,
                  placement.ptMaxPosition.x, placement.ptMaxPosition.y,
                  placement.rcNormalPosition.left, placement.rcNormalPosition.top,
                  placement.rcNormalPosition.right, placement.rcNormalPosition.bottom);
    win::WritePrivateProfileString(kMruSection, doc->GetPathName().c_str(), value, file);
}

void CProjectDoc::RestoreWindows() {
    SetTreePaneVisible(treeFrame, treeValid && !topLevelSchematic.empty());
    const std::string path = GetPathName();
    for (afx::CDocument* doc : openDocs)
        RestoreWindow(doc, path.c_str());
    if (!openDocs.empty()) {
        if (afx::CFrameWnd* last = GetDocFrame(openDocs.back(), win::TRUE))
            last->ActivateFrame(win::SW_SHOW);
        // The schematic or symbol that opened last, at the head, ends on top.
        if (afx::CFrameWnd* head = GetDocFrame(openDocs.front(), win::TRUE)) {
            head->ActivateFrame(win::SW_SHOW);
            head->ActivateFrame(win::SW_SHOW);
        }
    }
    if (afx::CMDIFrameWnd* main = MdiFrame(mainWnd))
        main->MDIIconArrange();
}

void CProjectDoc::RestoreWindow(afx::CDocument* doc, const char* file) {
    const int show = GetChildShowCmd();
    afx::CFrameWnd* frame = GetDocFrame(doc, win::TRUE);
    if (frame == nullptr)
        return;
    win::WINDOWPLACEMENT placement;
    placement.showCmd = win::SW_HIDE;
    int fields = 0;
    std::string value;
    if (FindPlacementLine(file, doc->GetPathName(), value)) {
        fields =
            std::sscanf(value.c_str(), "%u,%u,%d,%d,%d,%d,%d,%d,%d,%d", &placement.flags,
                        &placement.showCmd, &placement.ptMinPosition.x, &placement.ptMinPosition.y,
                        &placement.ptMaxPosition.x, &placement.ptMaxPosition.y,
                        &placement.rcNormalPosition.left, &placement.rcNormalPosition.top,
                        &placement.rcNormalPosition.right, &placement.rcNormalPosition.bottom);
    }
    // A hidden window stays hidden; all others follow the profile, not their own state.
    if (placement.showCmd != win::SW_HIDE)
        placement.showCmd = show;
    if (fields != 10) {
        // No full place stored: the window comes up where the frame puts it.
        if (fields == 0) {
            frame->BringWindowToTop();
            placement.showCmd = show;
            if (show != win::SW_HIDE)
                frame->ActivateFrame(show);
        } else {
            placement.showCmd =
                show == win::SW_SHOWMAXIMIZED ? win::SW_SHOWMAXIMIZED : win::SW_SHOWNORMAL;
            frame->ActivateFrame(static_cast<int>(placement.showCmd));
        }
        frame->GetWindowPlacement(&placement);
    }
    if (frame->IsWindowVisible()) {
        placement.showCmd = win::SW_SHOWNA;
    } else if (placement.showCmd == win::SW_SHOWMAXIMIZED) {
        frame->ShowWindow(win::SW_SHOWMAXIMIZED);
        placement.showCmd = win::SW_SHOWNA;
        frame->SetWindowPlacement(&placement);
        return;
    }
    frame->SetWindowPlacement(&placement);
    if (placement.showCmd == win::SW_SHOWNA)
        frame->UpdateWindow();
    if (!busy)
        frame->ActivateFrame(static_cast<int>(placement.showCmd));
}

int CProjectDoc::GetChildShowCmd() {
    return static_cast<int>(win::GetProfileInt("Settings", "ShowCmd", kDefaultShowCmd));
}

void CProjectDoc::StoreChildShowCmd() {
    win::BOOL maximized = win::FALSE;
    afx::CMDIFrameWnd* main = MdiFrame(mainWnd);
    afx::CMDIChildWnd* child = main ? main->MDIGetActive(&maximized) : nullptr;
    win::WriteProfileInt("Settings", "ShowCmd",
                         child != nullptr && maximized ? win::SW_SHOWMAXIMIZED : kDefaultShowCmd);
}

}  // namespace velorand
