// CSchematicView: the host's view of a schematic or a symbol (sender 105 or 110). It runs
// the editor's command lines (PM_RUN_SCRIPT, and the project's records 310 and 225), takes
// in another file (PM_IMPORT_TEXT), writes its rule check report (PM_RULE_CHECK), counts
// and prints its pages (PM_PRINT_VIEW), and answers the project's rename records. Lines of
// its events besides those of CHostView:
//
//   rule check mode on|off     redraw     locked|unlocked     printed
//   rule check report <path>   imported <path>   renamed <old> to <new>
#pragma once

#include "app/editor_commands.h"
#include "app/host_view.h"

namespace velorand::host {

class CSchematicDoc;

class CSchematicView : public CHostView {
    DECLARE_DYNCREATE(CSchematicView)
  public:
    CSchematicView() = default;

    int SenderId() const override;
    CSchematicDoc* GetSchematic() const;
    const EditorState& State() const { return state_; }
    // While the project changes the view's elements during a tuning run (code 304).
    bool Locked() const { return locked_; }

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;

  protected:
    void OnProjectNotify(ProjectNotify& record) override;
    win::LRESULT RunScript(const std::string& line) override;

  private:
    win::LRESULT ImportText(const char* path);
    win::LRESULT CheckRules(win::WPARAM askContinue, win::LPARAM buffer);

    EditorState state_;
    bool locked_ = false;
};

}  // namespace velorand::host
