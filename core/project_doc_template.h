// CProjectDocTemplate: the template through which the host makes and closes the one
// project document, with its frame and tree view.
#pragma once

#include "core/tool_group_doc_template.h"

namespace velorand {

class CProjectDoc;

class CProjectDocTemplate : public CToolGroupDocTemplate {
    DECLARE_DYNAMIC(CProjectDocTemplate)
  public:
    // The resource id of the document string, and the shared menu's.
    static constexpr win::UINT kResourceId = 430;
    static constexpr win::UINT kSharedMenu = 26625;
    // The tool bar group's buttons: command ids, 0 a separator.
    static constexpr win::UINT kGroupButtons[7] = {26449, 26450, 0, 26452, 26458, 26456, 26457};

    CProjectDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                        const afx::CRuntimeClass* frameClass, const afx::CRuntimeClass* viewClass);

    CProjectDoc* currentDoc = nullptr;  // the one open project document
    win::BOOL openLocked = 0;

    int SetupStatusPanes() override { return 1; }
    // RegisterToolGroup("Project", "Standard", ...) with the group's buttons.
    int RegisterGroup() override;

    // Closes the open project first; then a new project for a null path, else the file
    // opened. Null when the old project stays, or the new one can't be made or opened;
    // the host is then asked (command 26454) for a new project instead.
    afx::CDocument* OpenDocumentFile(win::LPCSTR path, win::BOOL makeVisible = win::TRUE) override;
    // The tree's frame with its view on the document; null when it can't be made.
    afx::CFrameWnd* CreateNewFrame(afx::CDocument* doc, afx::CFrameWnd* other) override;
    // The frame stays as it was made; only the document's frame counts are brought up.
    void InitialUpdateFrame(afx::CFrameWnd* frame, afx::CDocument* doc,
                            win::BOOL makeVisible = win::TRUE) override;
    // Forgets the document if it is the current one.
    void ForgetDocument(afx::CDocument* doc);
};

}  // namespace velorand
