// The component's fixture with a project document whose fields are those of a loaded
// project. The process's current folder, which the project's operations move, comes back
// at the end of each test.
#pragma once

#include <string>
#include <vector>

#include "core/testing/project_fixture.h"

namespace velorand::testing {

class LoadedProjectTest : public ProjectTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    // A document for the project `id` in the folder (relative to drive C:, with '/'), as
    // a load leaves it: projectID, location and the path name of its project file, which
    // holds `fileText`.
    CProjectDoc* MakeProject(const std::string& folder, const std::string& id,
                             const std::string& fileText);

    // The open sheets of the host, in the order they were opened.
    std::vector<CSheetDoc*> Sheets() const;
    // The sheet's view, null when it has none.
    static CSheetView* ViewOf(afx::CDocument* doc);

  private:
    std::string savedFolder_;
};

}  // namespace velorand::testing
