// CProjectView: the view of the project document, the tree of its schematics, and the
// window that the host's editors address their notifications to. The tree build fills it
// through AddRootItem and AddChildItem; a double click opens what an item names.
//
// What an item holds: its text, one image for both states, and a data word that is 0 for
// schematic and file items and, for a documentation item, points at its string in the
// document's pdfFiles (the bare file name for a file in the project's folder).
#pragma once

#include <memory>
#include <string>

#include "platform/afx/image_list.h"
#include "platform/afx/tree_view.h"
#include "platform/win/tree_control.h"
#include "platform/win/window.h"

namespace velorand {

class CProjectDoc;

class CProjectView : public afx::CTreeView {
    DECLARE_DYNCREATE(CProjectView)
  public:
    // How the project's frame makes the view: the window's style and control id.
    static constexpr win::DWORD kStyle = win::WS_CHILD | win::WS_VISIBLE | win::WS_BORDER |
                                         win::TVS_HASBUTTONS | win::TVS_HASLINES |
                                         win::TVS_SHOWSELALWAYS;
    static constexpr win::UINT kControlId = 431;
    // The component's bitmaps of the tree, loaded in the order of the image indices.
    static constexpr win::UINT kBitmapFolderOpen = 439;
    static constexpr win::UINT kBitmapFolderClosed = 440;
    static constexpr win::UINT kBitmapSymbol = 441;
    static constexpr win::UINT kBitmapSchematic = 442;
    static constexpr win::UINT kBitmapPdf = 445;

    // Registers the tree's bitmaps with the module's resources.
    static void RegisterBitmaps(win::HINSTANCE instance);

    // Reads "TraceNotify" of the profile's "Project" section and makes the image list.
    CProjectView();
    ~CProjectView() override;

    CProjectDoc* GetDocument() const;

    // A top-level item after those there, with the open folder's image; null on failure.
    win::HTREEITEM AddRootItem(const std::string& text);
    // A child in the control's sorted order, its image chosen by the file path; null on
    // failure.
    win::HTREEITEM AddChildItem(win::HTREEITEM parent, const std::string& text,
                                const std::string& path);
    // The one insert: text, image for both states, data word 0. A null parent is the top.
    win::HTREEITEM InsertTreeItem(win::HTREEITEM parent, const std::string& text,
                                  win::HTREEITEM insertAfter, int image);
    // The image of a child for its file: ".sym" and ".pdf" as the path's last four
    // characters (case ignored) give the symbol and document images, all else the
    // schematic's.
    int ChildImage(const std::string& path) const;
    // Sets the flag that makes the hub ignore "saved" notifications; the old value.
    win::BOOL SetIgnoreSaved(win::BOOL flag);

    // Command ids in 0xA001..0xCFFE: state queries and queries with extra data count as
    // handled and change nothing. The rest takes the view's route.
    win::BOOL OnCmdMsg(win::UINT id, int code, void* extra, afx::AFX_CMDHANDLERINFO* info) override;
    // Command 26459 with a text in lParam: a symbol's folder for the search paths.
    win::BOOL OnCommand(win::WPARAM wParam, win::LPARAM lParam) override;
    // The notification hub: every WM_NOTIFY of the host's editors.
    win::BOOL OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) override;
    // Hands the activation on to the active child frame's view: the tree never stays
    // the main frame's active view.
    void OnActivateView(win::BOOL activate, afx::CView* activateView,
                        afx::CView* deactiveView) override;
    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;

    // The fields, in their order.
    win::BOOL ignoreSaved = 0;
    int traceNotify = 0;
    std::unique_ptr<afx::CImageList> images;
    int imgFolderOpen = -1;
    int imgFolderClosed = -1;
    int imgSchematic = -1;
    int imgSchematic2 = -1;
    int imgSymbol = -1;
    int imgSymbol2 = -1;
    int imgPdf = -1;
    win::BOOL ercEnabled = 0;
    win::BOOL firstQuery = 1;

  protected:
    int OnCreate(win::CREATESTRUCT* cs) override;
    void OnDestroy() override;
    win::BOOL OnChildNotify(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam,
                            win::LRESULT* result) override;

  private:
    // Loads the bitmaps into the image list; the control gets the list when it holds at
    // least four images.
    void LoadImages();
    // r, R and F3 go to the active child's view; false for other keys.
    bool ForwardKey(win::UINT msg, win::WPARAM key, win::LPARAM flags);
    // The double click's work on the item under the mouse; the control's answer.
    win::LRESULT OnDoubleClick();
    void OpenSchematicItem(const std::string& text, win::LRESULT* result);
    void ShowDocumentationItem(const std::string& stored, win::LRESULT* result);
    // Command 26463: the tree pane on or off.
    void OnToggleTreePane();
    // The main frame's active child frame's active view, or null.
    afx::CView* ActiveChildView() const;

    DECLARE_MESSAGE_MAP()
};

}  // namespace velorand
