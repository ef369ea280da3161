#include "core/testing/host_sheet.h"

#include <fstream>
#include <optional>
#include <sstream>

#include "platform/afx/frame_wnd.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/win_app.h"
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
    if (!in) {
        return win::FALSE;
    }
    std::ostringstream whole;
    whole << in.rdbuf();
    text = whole.str();
    return CDocument::OnOpenDocument(path);
}

win::BOOL CSheetDoc::OnSaveDocument(win::LPCSTR path) {
    std::optional<std::string> posix = win::PosixPath(path);
    std::ofstream out;
    if (posix) {
        out.open(*posix, std::ios::binary | std::ios::trunc);
    }
    if (!out || !(out << text)) {
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

CSheetTemplate::CSheetTemplate()
    : CMultiDocTemplate(kSheetId, RegisterSheetResources(), &afx::CMDIChildWnd::classCMDIChildWnd,
                        RUNTIME_CLASS(CSheetView)) {}

}  // namespace velorand::testing
