// A document of the host as the component meets it in tests: a text file shown in an MDI
// child frame of the main frame, whose view keeps every notification record and every
// editor command line it gets.
#pragma once

#include <string>
#include <vector>

#include "host/project_notify.h"
#include "platform/afx/document.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"

namespace velorand::testing {

class CSheetDoc : public afx::CDocument {
    DECLARE_DYNCREATE(CSheetDoc)
  public:
    std::string text;
    // The profile value "ProjectSearchPath" of section "Velorand" while the file loaded,
    // where the host finds the project's paths.
    std::string projectSearchPath;
    // While set, asking whether the sheet is modified brings its frame up, as an editor
    // may do while it looks at its windows.
    bool activateWhenAsked = false;

    // Reads the file whole; FALSE when it can't be read.
    win::BOOL OnOpenDocument(win::LPCSTR path) override;
    // Writes the text to the path; FALSE when it can't be written.
    win::BOOL OnSaveDocument(win::LPCSTR path) override;
    win::BOOL IsModified() override;
};

class CSheetView : public afx::CView {
    DECLARE_DYNCREATE(CSheetView)
  public:
    std::vector<ProjectNotify> notes;
    // The lines of the editor's command language it was sent (PM_RUN_SCRIPT), in order.
    std::vector<std::string> scriptLines;
    win::BOOL OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) override;
    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;
};

// The host's template for sheets, resource id 431 of the application.
class CSheetTemplate : public afx::CMultiDocTemplate {
  public:
    CSheetTemplate();
};

}  // namespace velorand::testing
