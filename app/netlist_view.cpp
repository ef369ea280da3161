#include "app/netlist_view.h"

#include <fstream>

#include "app/host_messages.h"
#include "app/text_document.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/multi_doc_template.h"
#include "platform/win/strings.h"
#include "platform/win/text_stream.h"

namespace velorand::host {

using afx::CMultiDocTemplate;
IMPLEMENT_DYNCREATE(CNetlistView, CHostView)

BEGIN_MESSAGE_MAP(CNetlistView, CHostView)
ON_COMMAND(ID_TUNING_NETLIST, OnTuningNetlist)
END_MESSAGE_MAP()

namespace {

constexpr win::UINT kMayClose = 235;
constexpr win::UINT kQuestion = 334;

// Replaces every occurrence of `from`, case ignored, by `to`; the number replaced.
int ReplaceNoCase(std::string& text, const std::string& from, const std::string& to) {
    int count = 0;
    std::string lowered = win::ToLower(text);
    const std::string key = win::ToLower(from);
    std::string result;
    std::size_t pos = 0;
    for (std::size_t hit; !key.empty() && (hit = lowered.find(key, pos)) != std::string::npos;) {
        result += text.substr(pos, hit - pos) + to;
        pos = hit + key.size();
        ++count;
    }
    text = result + text.substr(pos);
    return count;
}

}  // namespace

NotifyOutcome CNetlistView::ReportRun(win::UINT code, bool started) {
    running_ = started;
    return Notify(code, nullptr, started ? 1 : 0);
}

win::LPARAM CNetlistView::OpenArgument() const {
    afx::CDocument* doc = GetDocument();
    afx::CDocTemplate* tmpl = doc ? doc->GetDocTemplate() : nullptr;
    if (tmpl == nullptr || !tmpl->IsKindOf(RUNTIME_CLASS(CMultiDocTemplate))) {
        return 0;
    }
    return reinterpret_cast<win::LPARAM>(static_cast<afx::CMultiDocTemplate*>(tmpl)->m_hMenuShared);
}

void CNetlistView::OnProjectNotify(ProjectNotify& record) {
    CHostView::OnProjectNotify(record);
    if (record.idFrom != static_cast<win::UINT_PTR>(kProjectSender)) {
        return;
    }
    if (record.code == kMayClose) {
        record.result = running_ ? 0 : 1;
    } else if (record.code == kQuestion) {
        record.result = running_ ? 1 : 0;
    }
}

void CNetlistView::OnTuningNetlist() {
    Log("tuning netlist request");
}

win::LRESULT CNetlistView::RenameReference(const char* text) {
    std::string parts = text != nullptr ? text : "";
    std::size_t first = parts.find('+');
    std::size_t second = first == std::string::npos ? first : parts.find('+', first + 1);
    if (second == std::string::npos) {
        LogError("A rename reference takes \"<old>+<new>+<report>\": " + parts);
        return 0;
    }
    std::string oldPath = parts.substr(0, first);
    std::string newPath = parts.substr(first + 1, second - first - 1);
    std::string report = parts.substr(second + 1);
    std::vector<std::string> lines;
    std::string error;
    if (!CTextDocument::ReadLines(report, lines, error)) {
        LogError(error);
        return 0;
    }
    std::ofstream out;
    if (!win::OpenTextStream(out, report.c_str())) {
        LogError("Unable to write " + report + ".");
        return 0;
    }
    for (std::string& line : lines) {
        ReplaceNoCase(line, oldPath, newPath);
        out << line << '\n';
    }
    Log("renamed reference " + oldPath + " to " + newPath);
    return 1;
}

win::LRESULT CNetlistView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    if (msg == PM_RENAME_REFERENCE) {
        return RenameReference(reinterpret_cast<const char*>(lParam));
    }
    return CHostView::WindowProc(msg, wParam, lParam);
}

}  // namespace velorand::host
