// What the project does around the simulator's runs, which the template's view reports at
// their start and end: it brings itself and its netlist up to date for an analysis, and
// tells the active schematic's view, so that its editor can lock and redraw. A run that
// starts while no schematic is up is kept for the schematic that opens next.
#include <cstdio>
#include <string>

#include "core/project_doc.h"
#include "host/notify_codes.h"
#include "host/project_messages.h"
#include "host/project_notify.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/view.h"
#include "platform/win/messages.h"

namespace velorand {

namespace {

constexpr char kRedraw[] = ":redraw";

// The report's line for the status bar: `text` with "started" or "ended".
std::string RunLine(const char* text, int option) {
    char line[128];
    std::snprintf(line, sizeof line, text, option == 1 ? "started" : "ended");
    return line;
}

void Send(afx::CView* view, ProjectNotify* record) {
    view->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(record));
}

}  // namespace

int CProjectDoc::OnAnalysisReport(ProjectNotify* record) {
    if (record->idFrom != kFromTemplate)
        return 0;
    StatusMessage(RunLine("Analyzing %s ...", record->option));
    // A netlist that fails at the end of a run is no news to the user.
    if (record->option != 1)
        reportToolLog = 0;
    UpdateProject(win::TRUE);
    if (activeDoc == nullptr) {
        if (!topLevelSchematic.empty())
            NotePendingReport(tuning, record->code);
        return 0;
    }
    if (afx::CView* view = GetFirstDocView(activeDoc))
        Send(view, record);
    return 1;
}

int CProjectDoc::OnTuningReport(ProjectNotify* record, const char* text) {
    if (record->idFrom != kFromTemplate)
        return 0;
    tuning = record->option;
    StatusMessage(RunLine(text, record->option));
    if (activeDoc == nullptr) {
        if (!topLevelSchematic.empty())
            NotePendingReport(tuning, record->code);
        return 0;
    }
    afx::CView* view = GetFirstDocView(activeDoc);
    if (view == nullptr)
        return 1;
    Send(view, record);
    if (tuning != 0)
        return 1;
    // The run has ended: the editor unlocks its elements and draws the changed values.
    record->idFrom = kFromProject;
    record->document = nullptr;
    record->option = 0;
    record->code = kCodeElementLock;
    record->argument = 0;
    Send(view, record);
    record->code = kCodeEditorCommand;
    record->argument = reinterpret_cast<win::LPARAM>(kRedraw);
    Send(view, record);
    return 1;
}

void CProjectDoc::NotePendingReport(win::BOOL state, win::UINT code) {
    if (state == 0) {
        if (replayCode == kCodeTuningReport)
            replayCode = 0;
        return;
    }
    if (replayCode == 0)
        replayCode = code;
    if (IsModified())
        UpdateProject(win::FALSE);
}

int CProjectDoc::OnSmithToolReport(ProjectNotify* record) {
    if (record->idFrom != kFromTemplate)
        return 0;
    const auto* argument = reinterpret_cast<const char*>(record->argument);
    const std::string text = argument != nullptr ? argument : "";
    StatusMessage("SmithTooling " + text + " ...");
    if (activeDoc == nullptr)
        return 0;
    afx::CDocTemplate* docTemplate = activeDoc->GetDocTemplate();
    afx::CDocument* doc =
        docTemplate != nullptr ? docTemplate->OpenDocumentFile(nullptr, win::TRUE) : nullptr;
    afx::CView* view = GetFirstDocView(doc);
    if (view == nullptr)
        return 1;
    const std::string command = ":smithtool " + text;
    view->SendMessage(PM_RUN_SCRIPT, 0, reinterpret_cast<win::LPARAM>(command.c_str()));
    return 1;
}

}  // namespace velorand
