// CHostView: the base of the host's views (schematic, symbol, netlist). It sends the
// project its records under the view's sender number, and keeps a record of everything
// the project asks of it, one line per request, for tests and transcripts:
//
//   notify <code> from <sender> option <option>[ "<text>"]   a ProjectNotify record
//   script <line>                                            an editor command line
//   error: <reason>                                          a request that failed
//
// and further lines that each view names for its own messages.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/project_owner.h"
#include "platform/afx/view.h"

namespace velorand::host {

class CHostView : public afx::CView {
    DECLARE_DYNAMIC(CHostView)
  public:
    // The view's number in its records: 105 schematic, 110 symbol, 145 netlist.
    virtual int SenderId() const = 0;

    // Sends the project a record from this view; `delivered` is false without a project.
    NotifyOutcome Notify(win::UINT code, afx::CDocument* document = nullptr, int option = 0,
                         win::LPARAM argument = 0);
    // The same under another sender number, as a script may send it.
    NotifyOutcome NotifyAs(int sender, win::UINT code, afx::CDocument* document, int option,
                           win::LPARAM argument);
    // Tells the project that the view's document has opened (code 200), then asks for
    // its title (code 234).
    void Announce();

    const std::vector<std::string>& Events() const { return events_; }
    void ClearEvents() { events_.clear(); }
    // Adds a line to the events.
    void Log(std::string line);
    // Called with every line that any host view adds to its events, as it is added; null
    // stops it.
    static void SetEventListener(
        std::function<void(const CHostView& view, const std::string& line)> listener);

    win::LRESULT WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) override;

  protected:
    CHostView() = default;
    // Logs the failure and puts it on the status line.
    void LogError(const std::string& reason);

    // A record from the project, or one it passes on. The default logs it.
    virtual void OnProjectNotify(ProjectNotify& record);
    // A line of the editor's command language: 1 when it ran. This view has none.
    virtual win::LRESULT RunScript(const std::string& line);
    // What the record of code 200 carries in `argument`.
    virtual win::LPARAM OpenArgument() const { return 0; }

  private:
    std::vector<std::string> events_;
};

// The record's line in a view's events; codes whose argument is a text show it.
std::string DescribeNotify(const ProjectNotify& record);

}  // namespace velorand::host
