// The host's side of schematic documents, as small as the component's tests need: a
// document that reads and writes its file, a view that records the editor's command
// lines, and an MDI child frame, under a template that the application opens ".sch"
// files with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/testing/project_fixture.h"

#include "platform/afx/document.h"
#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/afx/view.h"

namespace afx {
class CWinApp;
}

namespace velorand::testing {

class CTestSchematicDoc : public afx::CDocument {
    DECLARE_DYNCREATE(CTestSchematicDoc)
  public:
    std::string text;  // the file's bytes as read, or as the test sets them
    // The profile value "ProjectSearchPath" of section "Velorand" while the file loaded,
    // where the host finds the project's paths.
    std::string projectSearchPath;

    // Fails for a file that can't be read.
    win::BOOL OnOpenDocument(win::LPCSTR path) override;
    // Writes `text` to the path; fails when it can't be written.
    win::BOOL OnSaveDocument(win::LPCSTR path) override;
};

class CTestSchematicView : public afx::CView {
    DECLARE_DYNCREATE(CTestSchematicView)
  public:
    // The lines of the editor's command language it was sent, in order.
    std::vector<std::string> scriptLines;

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;
};

class CTestSchematicFrame : public afx::CMDIChildWnd {
    DECLARE_DYNCREATE(CTestSchematicFrame)
};

// The schematic template, joined to the application for the life of the object.
class SchematicHost {
  public:
    explicit SchematicHost(afx::CWinApp& app);
    // Closes the template's documents and takes the template away.
    ~SchematicHost();
    SchematicHost(const SchematicHost&) = delete;
    SchematicHost& operator=(const SchematicHost&) = delete;

    afx::CMultiDocTemplate& Template() { return *template_; }
    // The open schematic documents, in the order they were opened.
    std::vector<CTestSchematicDoc*> Documents() const;
    // The document's view, null when it has none or is no schematic of this host.
    static CTestSchematicView* ViewOf(afx::CDocument* doc);

  private:
    afx::CMultiDocTemplate* template_;
};

// The component's fixture with schematic documents in the host, and a project document
// whose fields are those of a loaded project. The process's current folder comes back at
// the end of each test.
class SchematicProjectTest : public ProjectTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // A document for the project `id` in the folder (relative to drive C:, with '/'), as
    // a load leaves it: projectID, location and the path name of its project file, which
    // holds `fileText`.
    CProjectDoc* MakeProject(const std::string& folder, const std::string& id,
                             const std::string& fileText);

    std::optional<SchematicHost> schematicHost;

  private:
    std::string savedFolder_;
};

}  // namespace velorand::testing
