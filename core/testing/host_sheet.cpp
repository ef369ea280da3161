#include "core/testing/host_sheet.h"

#include <fstream>
#include <optional>
#include <sstream>

#include "host/project_messages.h"
#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/paths.h"
#include "platform/win/resources.h"

namespace velorand::testing {

IMPLEMENT_DYNCREATE(CSheetDoc, CDocument)
IMPLEMENT_DYNCREATE(CSheetView, CView)

namespace {

constexpr win::UINT kSheetId = 431;

const afx::CRuntimeClass* RegisterSheetResources() {
    win::RegisterStringResource(afx::AfxGetResourceHandle(), kSheetId,
                                "Sheet\nSheet\nSheet\nSchematic (*.sch)\n.sch\nSheet\nSheet");
    return RUNTIME_CLASS(CSheetDoc);
}

}  // namespace

win::BOOL CSheetDoc::OnOpenDocument(win::LPCSTR path) {
    std::optional<std::string> posix = win::PosixPath(path);
    std::ifstream in;
    if (posix) {
        in.open(*posix, std::ios::binary);
    }
    if (!in.is_open()) {
        return win::FALSE;
    }
    std::ostringstream whole;
    whole << in.rdbuf();
    text = whole.str();
    char value[win::MAX_PATH] = {};
    win::GetProfileString("Velorand", "ProjectSearchPath", "", value, sizeof value);
    projectSearchPath = value;
    return CDocument::OnOpenDocument(path);
}

win::BOOL CSheetDoc::OnSaveDocument(win::LPCSTR path) {
    std::optional<std::string> posix = win::PosixPath(path);
    std::ofstream out;
    if (posix) {
        out.open(*posix, std::ios::binary | std::ios::trunc);
    }
    if (!out.is_open() || !(out << text)) {
        return win::FALSE;
    }
    return CDocument::OnSaveDocument(path);
}

win::BOOL CSheetDoc::IsModified() {
    if (activateWhenAsked) {
        afx::POSITION pos = GetFirstViewPosition();
        if (afx::CView* view = pos != nullptr ? GetNextView(pos) : nullptr) {
            view->GetParentFrame()->ActivateFrame(win::SW_SHOW);
        }
    }
    return CDocument::IsModified();
}

win::BOOL CSheetView::OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) {
    notes.push_back(*reinterpret_cast<const ProjectNotify*>(lParam));
    *result = 0;
    return win::TRUE;
}

win::LRESULT CSheetView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    if (msg == PM_RUN_SCRIPT) {
        scriptLines.emplace_back(reinterpret_cast<const char*>(lParam));
        return 1;
    }
    return CView::WindowProc(msg, wParam, lParam);
}

CSheetTemplate::CSheetTemplate()
    : CMultiDocTemplate(kSheetId, RegisterSheetResources(), &afx::CMDIChildWnd::classCMDIChildWnd,
                        RUNTIME_CLASS(CSheetView)) {}

}  // namespace velorand::testing
