// The fixture of the component's tests: a sandbox, the reference host with its main frame
// (`mainWnd`), the component linked into it through LinkProjectDll with the suite's sibling
// libraries at hand, and a scripted user. Documents come from the component's template as
// the host would have them made.
//
//   TEST_F(ProjectTest, ...) {
//       CProjectDoc* doc = MakeDocument();
//       user.Answer(win::IDOK);
//       ...
//   }
#pragma once

#include <string>

#include "app/host_app.h"
#include "app/main_frame.h"
#include "core/project_doc.h"
#include "core/project_doc_template.h"
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

    // The platform path of a file below the sandbox's drive C:, written with the text.
    std::string WriteFile(const std::string& relative, const std::string& text) const;
    // The calls that the sibling libraries recorded, one a line.
    std::string SuiteLog() const;

    ScriptedUser user;
    host::CHostApp app;
    host::CMainFrame* mainWnd = nullptr;
    CProjectDocTemplate* projectTemplate = nullptr;
};

}  // namespace velorand::testing
