// A netlist document kind of the host, for the component's tests: its template announces
// ".ckt" and stands on the main window as the property "SimulatorTemplate0", so that the
// project opens its netlist through it. The view answers the component's questions with
// the values a test gives it, and keeps every record it was sent.
#pragma once

#include <string>
#include <vector>

#include "host/project_notify.h"
#include "platform/afx/document.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"

namespace afx {
class CWnd;
}

namespace velorand::testing {

class CNetlistDoc : public afx::CDocument {
    DECLARE_DYNCREATE(CNetlistDoc)
  public:
    // Reads the file whole; FALSE when it can't be read.
    win::BOOL OnOpenDocument(win::LPCSTR path) override;

    std::string text;
};

// What the component asked the view: the record's code, option and argument; a text
// argument (code 235) is kept as text.
struct TemplateQuestion {
    win::UINT code = 0;
    int option = 0;
    win::LPARAM argument = 0;
    std::string text;
    win::HWND from = nullptr;
};

class CNetlistView : public afx::CView {
    DECLARE_DYNCREATE(CNetlistView)
  public:
    win::LRESULT queryAnswer = 0;  // code 334
    win::LRESULT closeAnswer = 1;  // code 235
    std::vector<TemplateQuestion> questions;

    win::BOOL OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) override;
};

class NetlistTemplate {
  public:
    static constexpr win::UINT kResourceId = 27010;

    // Registers the document string and the shared menu with the host's resources, makes
    // the template, gives it to the application and publishes it on the main window.
    explicit NetlistTemplate(afx::CWnd* mainWnd);
    // Closes its documents, takes the property away and deletes the template.
    ~NetlistTemplate();
    NetlistTemplate(const NetlistTemplate&) = delete;
    NetlistTemplate& operator=(const NetlistTemplate&) = delete;

    afx::CMultiDocTemplate* Get() const { return template_; }
    // The first view of a document of this template, null without one.
    static CNetlistView* ViewOf(afx::CDocument* doc);

  private:
    afx::CWnd* mainWnd_;
    afx::CMultiDocTemplate* template_;
};

}  // namespace velorand::testing
