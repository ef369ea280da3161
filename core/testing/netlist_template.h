// The host's netlist documents, for the component's tests: a template whose documents are
// sheets with the filter extension ".ckt", published on the main window as the property
// "SimulatorTemplate0", so that the project opens its netlist through it. Its view answers
// the component's questions (codes 334 and 235) with the values a test gives it.
#pragma once

#include <string>

#include "core/testing/host_sheet.h"
#include "platform/afx/multi_doc_template.h"

namespace afx {
class CWnd;
}

namespace velorand::testing {

class CNetlistView : public CSheetView {
    DECLARE_DYNCREATE(CNetlistView)
  public:
    win::LRESULT queryAnswer = 0;  // code 334
    win::LRESULT closeAnswer = 1;  // code 235
    std::string closeText;         // the text that came with code 235

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
