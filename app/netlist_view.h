// CNetlistView: the view of the simulator template document (sender 145). It reports the
// simulator's runs to the project, answers the project's questions about them (code 235:
// may the template close, 1 unless a run is on; code 334: 1 while a run is on), takes the
// tuning run's netlist request (command 1004) and brings the simulator's report file
// along when a schematic is renamed (PM_RENAME_REFERENCE, through its frame). Lines of
// its events besides those of CHostView:
//
//   tuning netlist request     netlist reread     renamed reference <old> to <new>
#pragma once

#include "app/host_view.h"

namespace velorand::host {

class CNetlistView : public CHostView {
    DECLARE_DYNCREATE(CNetlistView)
  public:
    CNetlistView() = default;

    int SenderId() const override { return kNetlistSender; }

    // Code 216 (analysis), 218 (tuning) or 219 (optimizing) with option 1 when the run
    // starts and 0 when it ends; the view keeps the state.
    NotifyOutcome ReportRun(win::UINT code, bool started);
    bool Running() const { return running_; }

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;

  protected:
    void OnProjectNotify(ProjectNotify& record) override;
    win::LPARAM OpenArgument() const override;

  private:
    win::LRESULT RenameReference(const char* text);
    void OnTuningNetlist();
    bool running_ = false;
    DECLARE_MESSAGE_MAP()
};

}  // namespace velorand::host
