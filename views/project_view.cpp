#include "views/project_view.h"

#include <utility>

#include "core/project_doc.h"
#include "host/project_messages.h"
#include "platform/afx/cmd_ui.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/mdi_frame_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/app_profile.h"
#include "platform/win/cursor.h"
#include "platform/win/message_queue.h"
#include "platform/win/resources.h"
#include "platform/win/strings.h"

namespace velorand {

using afx::CTreeView;

IMPLEMENT_DYNCREATE(CProjectView, CTreeView)

BEGIN_MESSAGE_MAP(CProjectView, CTreeView)
ON_COMMAND(kCmdToggleTreePane, OnToggleTreePane)
END_MESSAGE_MAP()

namespace {

constexpr win::WPARAM kKeyF3OrSmallR = 0x72;  // VK_F3 in key messages, "r" in WM_CHAR
constexpr win::WPARAM kKeyR = 0x52;
constexpr win::COLORREF kMaskWhite = win::RGB(255, 255, 255);
constexpr int kMinImages = 4;

// The host's main frame: the document's, else the application's.
afx::CMDIFrameWnd* MainFrameOf(const CProjectDoc* doc) {
    afx::CWnd* main =
        doc != nullptr && doc->mainWnd != nullptr ? doc->mainWnd : afx::AfxGetMainWnd();
    return dynamic_cast<afx::CMDIFrameWnd*>(main);
}

bool EndsWithNoCase(const std::string& path, const char* ending) {
    return path.size() >= 4 &&
           win::EqualNoCase(std::string_view(path).substr(path.size() - 4), ending);
}

}  // namespace

void CProjectView::RegisterBitmaps(win::HINSTANCE instance) {
    for (win::UINT id :
         {kBitmapFolderOpen, kBitmapFolderClosed, kBitmapSymbol, kBitmapSchematic, kBitmapPdf}) {
        win::RegisterBitmapResource(instance, id, win::SIZE{16, 16});
    }
}

CProjectView::CProjectView()
    : traceNotify(static_cast<int>(win::GetProfileInt("Project", "TraceNotify", 0))),
      images(std::make_unique<afx::CImageList>()) {
    images->Create(16, 16, win::ILC_MASK, 4, 4);
}

CProjectView::~CProjectView() = default;

CProjectDoc* CProjectView::GetDocument() const {
    return dynamic_cast<CProjectDoc*>(afx::CTreeView::GetDocument());
}

int CProjectView::OnCreate(win::CREATESTRUCT* cs) {
    if (afx::CTreeView::OnCreate(cs) == -1) {
        return -1;
    }
    LoadImages();
    return 0;
}

void CProjectView::LoadImages() {
    const win::UINT order[] = {kBitmapFolderOpen, kBitmapFolderClosed, kBitmapSchematic,
                               kBitmapSchematic,  kBitmapSymbol,       kBitmapSymbol,
                               kBitmapPdf};
    int* slots[] = {&imgFolderOpen, &imgFolderClosed, &imgSchematic, &imgSchematic2,
                    &imgSymbol,     &imgSymbol2,      &imgPdf};
    for (std::size_t i = 0; i < std::size(order); ++i) {
        afx::CBitmap bitmap;
        bitmap.LoadBitmap(order[i]);
        *slots[i] = images->Add(&bitmap, kMaskWhite);
    }
    if (images->GetImageCount() >= kMinImages) {
        GetTreeCtrl().SetImageList(images.get(), win::TVSIL_NORMAL);
    }
}

void CProjectView::OnDestroy() {
    GetTreeCtrl().DeleteAllItems();
    afx::CTreeView::OnDestroy();
}

win::HTREEITEM CProjectView::InsertTreeItem(win::HTREEITEM parent, const std::string& text,
                                            win::HTREEITEM insertAfter, int image) {
    win::TVINSERTSTRUCT insert;
    insert.hParent = parent;
    insert.hInsertAfter = insertAfter;
    insert.item.mask = win::TVIF_TEXT | win::TVIF_IMAGE | win::TVIF_SELECTEDIMAGE | win::TVIF_PARAM;
    insert.item.pszText = const_cast<char*>(text.c_str());
    insert.item.cchTextMax = static_cast<int>(text.size());
    insert.item.iImage = image;
    insert.item.iSelectedImage = image;
    insert.item.lParam = 0;
    return GetTreeCtrl().InsertItem(&insert);
}

win::HTREEITEM CProjectView::AddRootItem(const std::string& text) {
    return InsertTreeItem(nullptr, text, win::TVI_LAST, imgFolderOpen);
}

win::HTREEITEM CProjectView::AddChildItem(win::HTREEITEM parent, const std::string& text,
                                          const std::string& path) {
    return InsertTreeItem(parent, text, win::TVI_SORT, ChildImage(path));
}

int CProjectView::ChildImage(const std::string& path) const {
    if (EndsWithNoCase(path, ".sym")) {
        return imgSymbol;
    }
    if (EndsWithNoCase(path, ".pdf")) {
        return imgPdf;
    }
    return imgSchematic;
}

win::BOOL CProjectView::SetIgnoreSaved(win::BOOL flag) {
    return std::exchange(ignoreSaved, flag);
}

win::BOOL CProjectView::OnCmdMsg(win::UINT id, int code, void* extra,
                                 afx::AFX_CMDHANDLERINFO* info) {
    // The host's own commands of this range are none of the tree's business: they must
    // not be disabled for want of a handler while the tree has the focus.
    if (id > 0xA000 && id < 0xCFFF && (code == afx::CN_UPDATE_COMMAND_UI || info != nullptr)) {
        return win::TRUE;
    }
    return afx::CTreeView::OnCmdMsg(id, code, extra, info);
}

win::BOOL CProjectView::OnCommand(win::WPARAM wParam, win::LPARAM lParam) {
    CProjectDoc* doc = GetDocument();
    if (win::LOWORD(wParam) == kCmdAddSymbolPath && lParam != 0 && doc != nullptr) {
        doc->AddSymbolSearchPath(reinterpret_cast<char*>(lParam));
        return win::TRUE;
    }
    return afx::CTreeView::OnCommand(wParam, lParam);
}

void CProjectView::OnActivateView(win::BOOL activate, afx::CView* activateView,
                                  afx::CView* deactiveView) {
    afx::CMDIFrameWnd* main = activate ? MainFrameOf(GetDocument()) : nullptr;
    if (main == nullptr) {
        return;
    }
    afx::CMDIChildWnd* child = main->MDIGetActive();
    if (child == nullptr) {
        main->SetActiveView(nullptr);
    } else if (afx::CView* view = child->GetActiveView()) {
        main->SetActiveView(view);
    }
}

afx::CView* CProjectView::ActiveChildView() const {
    afx::CMDIFrameWnd* main = MainFrameOf(GetDocument());
    afx::CMDIChildWnd* child = main != nullptr ? main->MDIGetActive() : nullptr;
    return child != nullptr ? child->GetActiveView() : nullptr;
}

bool CProjectView::ForwardKey(win::UINT msg, win::WPARAM key, win::LPARAM flags) {
    if (key != kKeyF3OrSmallR && key != kKeyR) {
        return false;
    }
    // Only the repeat count goes along, not the key's flags.
    if (afx::CView* target = ActiveChildView()) {
        target->SendMessage(msg, key, win::LOWORD(static_cast<std::uintptr_t>(flags)));
    }
    return true;
}

win::LRESULT CProjectView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    switch (msg) {
        case win::WM_ENABLE:
            // The tree stays usable while the host disables its windows.
            if (!wParam) {
                EnableWindow(win::TRUE);
            }
            return 0;
        case win::WM_KEYDOWN:
        case win::WM_KEYUP:
        case win::WM_CHAR:
            if (ForwardKey(msg, wParam, lParam)) {
                return 0;
            }
            break;
        case PM_ENABLE_RULE_CHECK:
            ercEnabled = static_cast<win::BOOL>(wParam);
            return 0;
        case PM_FIRST_QUERY:
            return std::exchange(firstQuery, 0);
        default:
            break;
    }
    return afx::CTreeView::WindowProc(msg, wParam, lParam);
}

win::BOOL CProjectView::OnChildNotify(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam,
                                      win::LRESULT* result) {
    const auto* header = reinterpret_cast<const win::NMHDR*>(lParam);
    if (msg == win::WM_NOTIFY && header->hwndFrom == m_hWnd && header->code == win::NM_DBLCLK) {
        *result = OnDoubleClick();
        return win::TRUE;
    }
    return afx::CTreeView::OnChildNotify(msg, wParam, lParam, result);
}

win::LRESULT CProjectView::OnDoubleClick() {
    // The notification names no item: the mouse position does.
    win::POINT point;
    win::GetCursorPos(&point);
    ScreenToClient(&point);
    afx::CTreeCtrl& tree = GetTreeCtrl();
    win::HTREEITEM item = tree.HitTest(point);
    win::LRESULT result = 0;
    if (item == nullptr || tree.GetParentItem(item) == nullptr) {
        return result;
    }
    std::string text = tree.GetItemText(item);
    win::DWORD_PTR data = tree.GetItemData(item);
    if (data == 0) {
        OpenSchematicItem(text, &result);
    } else {
        ShowDocumentationItem(*reinterpret_cast<const std::string*>(data), &result);
    }
    return result;
}

void CProjectView::OpenSchematicItem(const std::string& text, win::LRESULT* result) {
    CProjectDoc* doc = GetDocument();
    if (doc == nullptr) {
        return;
    }
    std::string path = doc->FindSchematicByText(text);
    // A state circuit is no sheet to open; the control opens or closes its item.
    if (text.substr(0, text.find(' ')) == "stateckt") {
        return;
    }
    if (!path.empty()) {
        doc->OpenSchematicInstance(path, text);
        *result = 1;
    } else if (!text.empty()) {
        doc->OpenFile(text.c_str(), 1);
    } else {
        *result = 0;
    }
}

void CProjectView::ShowDocumentationItem(const std::string& stored, win::LRESULT* result) {
    CProjectDoc* doc = GetDocument();
    if (doc == nullptr) {
        return;
    }
    auto path = std::make_unique<std::string>(stored);
    if (stored.find('\\') == std::string::npos) {
        const std::string& projectFile = doc->GetPathName();
        *path = projectFile.substr(0, projectFile.rfind('\\') + 1) + stored;
    }
    afx::CMDIFrameWnd* main = MainFrameOf(doc);
    afx::CMDIChildWnd* child = main != nullptr ? main->MDIGetActive() : nullptr;
    afx::CView* target = nullptr;
    if (child != nullptr && child->GetActiveView() == nullptr) {
        *result = 1;
        return;
    }
    if (child != nullptr) {
        std::string title;
        child->GetWindowText(title);
        if (win::ToLower(title).find(".sch") != std::string::npos) {
            target = child->GetActiveView();
        }
    }
    if (target == nullptr) {
        // The file is shown by a schematic view: the top level schematic's serves.
        doc->OpenFile(doc->topLevelSchematic.c_str(), 1);
        target = main != nullptr ? main->GetActiveView() : nullptr;
    }
    // Posted, so that the schematic's open has finished when it arrives; the receiver
    // owns the string from then on.
    if (target != nullptr &&
        target->PostMessage(PM_SHOW_INFO_FILE, 0, reinterpret_cast<win::LPARAM>(path.get()))) {
        path.release();
    }
}

void CProjectView::OnToggleTreePane() {
    afx::CWnd* pane = GetParent();
    if (pane == nullptr) {
        return;
    }
    const int visible = pane->IsWindowVisible() ? 0 : 1;
    win::WriteProfileInt("Project", "IsVisible", visible);
    pane->ShowWindow(visible ? win::SW_SHOW : win::SW_HIDE);
    if (afx::CFrameWnd* frame = pane->GetParentFrame()) {
        frame->RecalcLayout();
    }
}

}  // namespace velorand
