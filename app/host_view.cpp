#include "app/host_view.h"

#include <memory>

#include "app/host_messages.h"
#include "app/status_line.h"
#include "platform/afx/document.h"
#include "platform/win/messages.h"

namespace velorand::host {

using afx::CView;
IMPLEMENT_DYNAMIC(CHostView, CView)

namespace {

std::function<void(const CHostView&, const std::string&)> eventListener;

// The project's records whose argument is a text: commands, the close question, renames.
bool CarriesText(const ProjectNotify& record) {
    if (record.idFrom != static_cast<win::UINT_PTR>(kProjectSender) || record.argument == 0) {
        return false;
    }
    switch (record.code) {
        case 225:
        case 235:
        case 240:
        case 246:
        case 310:
            return true;
        default:
            return false;
    }
}

}  // namespace

std::string DescribeNotify(const ProjectNotify& record) {
    std::string line = "notify " + std::to_string(record.code) + " from " +
                       std::to_string(record.idFrom) + " option " + std::to_string(record.option);
    if (CarriesText(record)) {
        line += " \"" + std::string(reinterpret_cast<const char*>(record.argument)) + "\"";
    }
    return line;
}

NotifyOutcome CHostView::Notify(win::UINT code, afx::CDocument* document, int option,
                                win::LPARAM argument) {
    return NotifyAs(SenderId(), code, document, option, argument);
}

NotifyOutcome CHostView::NotifyAs(int sender, win::UINT code, afx::CDocument* document, int option,
                                  win::LPARAM argument) {
    return NotifyProject(m_hWndOwner, m_hWnd, sender, code, document, option, argument);
}

void CHostView::Announce() {
    afx::CDocument* doc = GetDocument();
    Notify(kDocumentOpened, doc, 0, OpenArgument());
    // The open may have closed the document again; only a view still showing it asks.
    if (GetDocument() == doc && doc != nullptr) {
        doc->SetTitle(nullptr);
    }
}

void CHostView::Log(std::string line) {
    events_.push_back(std::move(line));
    if (eventListener) {
        eventListener(*this, events_.back());
    }
}

void CHostView::SetEventListener(
    std::function<void(const CHostView& view, const std::string& line)> listener) {
    eventListener = std::move(listener);
}

void CHostView::LogError(const std::string& reason) {
    Log("error: " + reason);
    ShowStatus(reason);
}

void CHostView::OnProjectNotify(ProjectNotify& record) {
    Log(DescribeNotify(record));
}

win::LRESULT CHostView::RunScript(const std::string& line) {
    LogError("This view takes no editor commands: " + line);
    return 0;
}

win::LRESULT CHostView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    switch (msg) {
        case win::WM_NOTIFY:
            if (lParam == 0) {
                return 0;
            }
            OnProjectNotify(*reinterpret_cast<ProjectNotify*>(lParam));
            return 0;
        case PM_RUN_SCRIPT: {
            std::string line = lParam != 0 ? reinterpret_cast<const char*>(lParam) : "";
            Log("script " + line);
            return RunScript(line);
        }
        case PM_SHOW_INFO_FILE: {
            // The sender made the string for us; it is ours to free.
            std::unique_ptr<std::string> path(reinterpret_cast<std::string*>(lParam));
            Log("show info file " + (path ? *path : std::string()));
            return 0;
        }
        default:
            return CView::WindowProc(msg, wParam, lParam);
    }
}

}  // namespace velorand::host
