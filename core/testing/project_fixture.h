// The fixture of the component's tests: a sandbox, the reference host with its main frame
// (`mainWnd`), the component linked into it through LinkProjectDll with the suite's sibling
// libraries at hand, and a scripted user. Documents come from the component's template as
// the host would have them made; the host's own documents are sheets (host_sheet.h).
//
//   TEST_F(ProjectTest, ...) {
//       CProjectDoc* doc = MakeDocument();
//       user.Answer(win::IDOK);
//       ...
//   }
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/host_app.h"
#include "app/main_frame.h"
#include "core/project_doc.h"
#include "core/project_doc_template.h"
#include "core/testing/host_sheet.h"
#include "platform/testing/sandbox.h"
#include "platform/testing/scripted_user.h"

namespace velorand::testing {

class ProjectTest : public SandboxTest {
  protected:
    ProjectTest();
    ~ProjectTest() override;

    // Links the component; a test that wants another world (say, no sibling libraries)
    // changes the environment first and calls Relink().
    void SetUp() override;
    void TearDown() override;
    void Relink();

    // A new project document through the template, with its frame and its tree view, as
    // the current document of the template; null if the template couldn't make it.
    CProjectDoc* MakeDocument();

    // Writes the file and opens it as a sheet of the host in its own child frame; null if
    // it can't be opened.
    CSheetDoc* OpenSheet(const std::string& relative, const std::string& text);

    // The platform path of a file below the sandbox's drive C:, written with the text.
    std::string WriteFile(const std::string& relative, const std::string& text) const;
    // The calls that the sibling libraries recorded, one a line.
    std::string SuiteLog() const;
    // The lines the component put on the host's status line, in order.
    std::vector<std::string> StatusLines() const;

    ScriptedUser user;
    host::CHostApp app;
    host::CMainFrame* mainWnd = nullptr;
    CProjectDocTemplate* projectTemplate = nullptr;
    std::unique_ptr<CSheetTemplate> sheetTemplate;
};

}  // namespace velorand::testing
