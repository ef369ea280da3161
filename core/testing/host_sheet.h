// A document of the host as the component meets it in tests: a text file shown in an MDI
// child frame of the main frame, whose view keeps every notification record it gets.
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
    win::BOOL OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) override;
};

// The host's template for sheets, resource id 431 of the application.
class CSheetTemplate : public afx::CMultiDocTemplate {
  public:
    CSheetTemplate();
};

}  // namespace velorand::testing
