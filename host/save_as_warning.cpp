// The warning after a project schematic was saved under a new name: the new file is not
// the project's, and the user should know that the project did not follow it.
#include "core/project_doc.h"
#include "core/warning_dlg.h"

namespace velorand {

void CProjectDoc::WarnSaveAsNewName() {
    CWarningDlg::ShowUnlessSkipped("SkipSaveAsWrnDlg", "Warning - Saving file to a new name",
                                   "You have saved a project schematic under a new name.  "
                                   "The new file is not part of the current project, and will not "
                                   "be analyzed as part of the current project.  "
                                   "Saving the new file did not modify the current project.",
                                   mainWnd);
}

}  // namespace velorand
