#include "app/schematic_view.h"

#include <fstream>

#include "app/host_app.h"
#include "app/host_messages.h"
#include "app/rule_check.h"
#include "app/schematic_document.h"
#include "platform/win/text_stream.h"

namespace velorand::host {

IMPLEMENT_DYNCREATE(CSchematicView, CHostView)

namespace {

constexpr win::UINT kRunCommand = 310;
constexpr win::UINT kRunTemplateCommand = 225;
constexpr win::UINT kElementLock = 304;
constexpr win::UINT kSubcircuitRenamed = 240;
constexpr win::UINT kHoldsName = 246;

std::vector<std::string>& SearchFolders() {
    static std::vector<std::string> none;
    auto* app = dynamic_cast<CHostApp*>(afx::AfxGetApp());
    return app ? app->EditorSearchFolders() : none;
}

}  // namespace

int CSchematicView::SenderId() const {
    afx::CDocument* doc = GetDocument();
    return doc != nullptr && doc->IsKindOf(RUNTIME_CLASS(CSymbolDoc)) ? kSymbolSender
                                                                      : kSchematicSender;
}

CSchematicDoc* CSchematicView::GetSchematic() const {
    afx::CDocument* doc = GetDocument();
    return doc != nullptr && doc->IsKindOf(RUNTIME_CLASS(CSchematicDoc))
               ? static_cast<CSchematicDoc*>(doc)
               : nullptr;
}

win::LRESULT CSchematicView::RunScript(const std::string& line) {
    CSchematicDoc* doc = GetSchematic();
    if (doc == nullptr) {
        LogError("The view has no schematic for: " + line);
        return 0;
    }
    const int redraws = state_.redraws;
    EditorContext context{*doc, state_, SearchFolders()};
    std::string error;
    bool ran = RunEditorLine(line, context, error);
    if (state_.redraws != redraws) {
        Log("redraw");
    }
    if (!ran) {
        LogError(error);
        return 0;
    }
    return 1;
}

void CSchematicView::OnProjectNotify(ProjectNotify& record) {
    CHostView::OnProjectNotify(record);
    if (record.idFrom != static_cast<win::UINT_PTR>(kProjectSender)) {
        return;
    }
    const char* text = reinterpret_cast<const char*>(record.argument);
    CSchematicDoc* doc = GetSchematic();
    switch (record.code) {
        case kRunCommand:
        case kRunTemplateCommand:
            if (text != nullptr) {
                RunScript(text);
            }
            break;
        case kElementLock:
            locked_ = record.option != 1;
            Log(locked_ ? "locked" : "unlocked");
            break;
        case kHoldsName:
            record.result = doc != nullptr && text != nullptr && doc->UsesCell(text) ? 1 : 0;
            break;
        case kSubcircuitRenamed:
            if (doc != nullptr && text != nullptr) {
                std::vector<std::string> parts = SplitTokens(text);
                if (parts.size() >= 2 && doc->RenameCell(parts[0], parts[1]) > 0) {
                    Log("renamed " + parts[0] + " to " + parts[1]);
                }
            }
            break;
        default:
            break;
    }
}

win::LRESULT CSchematicView::ImportText(const char* path) {
    CSchematicDoc* doc = GetSchematic();
    std::vector<std::string> lines;
    std::string error;
    if (doc == nullptr || path == nullptr) {
        LogError("Nothing to import into.");
        return 0;
    }
    if (!CTextDocument::ReadLines(path, lines, error)) {
        LogError(error);
        return 0;
    }
    if (std::string wrong = CSchematicDoc::CheckSheet(lines, "[schematic2]"); !wrong.empty()) {
        LogError("Unable to import " + std::string(path) + ": " + wrong);
        return 0;
    }
    doc->ReplaceLines(std::move(lines));
    state_.selection.clear();
    Log("imported " + std::string(path));
    return 1;
}

win::LRESULT CSchematicView::CheckRules(win::WPARAM askContinue, win::LPARAM buffer) {
    if (buffer != 0) {
        // The run asks the active view first; a view that the project is changing refuses.
        return locked_ ? 0 : 1;
    }
    CSchematicDoc* doc = GetSchematic();
    if (doc == nullptr) {
        return 0;
    }
    std::string report = RuleCheckReportPath(doc->GetPathName());
    std::ofstream out;
    if (!win::OpenTextStream(out, report.c_str())) {
        LogError("Unable to write the rule check report " + report + ".");
        return 0;
    }
    out << RuleCheckReport(doc->GetPathName(), velorand::host::CheckRules(doc->Lines()));
    out.close();
    Log("rule check report " + report);
    return 1;
}

win::LRESULT CSchematicView::WindowProc(win::UINT msg, win::WPARAM wParam, win::LPARAM lParam) {
    switch (msg) {
        case PM_IMPORT_TEXT:
            return ImportText(reinterpret_cast<const char*>(lParam));
        case PM_RULE_CHECK:
            return CheckRules(wParam, lParam);
        case PM_RULE_CHECK_MODE:
            Log(wParam == 1 ? "rule check mode on" : "rule check mode off");
            return 0;
        case PM_PRINT_VIEW:
            if (lParam == 0) {
                return 1;  // a sheet prints on one page
            }
            Log("printed");
            return 0;
        default:
            return CHostView::WindowProc(msg, wParam, lParam);
    }
}

}  // namespace velorand::host
