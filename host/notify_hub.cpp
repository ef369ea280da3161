// The notification hub: every WM_NOTIFY that the host's editors send to the tree view
// enters here. A record from one of the thirteen known senders is looked up by its code
// in the table below; the row says which senders may use the code and what the project
// does with it. Records of other senders are the framework's.
#include <array>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <initializer_list>

#include "core/project_doc.h"
#include "core/simulator_info.h"
#include "host/notify_codes.h"
#include "host/project_notify.h"
#include "platform/afx/view.h"
#include "platform/win/messages.h"
#include "views/project_view.h"

namespace velorand {

namespace {

constexpr win::UINT kCmdFatalEnd = 25612;

// The senders that the hub serves; a row's senders are a set of their bits.
constexpr std::array<win::UINT_PTR, 13> kSenders = {100, 101, 105, 107, 110, 115, 125,
                                                    130, 140, 145, 155, 165, 225};
using SenderSet = std::uint32_t;

constexpr int SenderBit(win::UINT_PTR id) {
    for (std::size_t i = 0; i < kSenders.size(); ++i)
        if (kSenders[i] == id)
            return static_cast<int>(i);
    return -1;
}

constexpr SenderSet Senders(std::initializer_list<win::UINT_PTR> ids) {
    SenderSet set = 0;
    for (win::UINT_PTR id : ids)
        set |= SenderSet{1} << SenderBit(id);
    return set;
}

constexpr SenderSet kAll = (SenderSet{1} << kSenders.size()) - 1;
constexpr SenderSet kEditors = Senders({kFromSchematic, kFromSymbol});
// The document kinds that bring the template's menu along.
constexpr SenderSet kMenuKinds = Senders({140, kFromTemplate, 155});

bool In(SenderSet set, win::UINT_PTR id) {
    const int bit = SenderBit(id);
    return bit >= 0 && (set & (SenderSet{1} << bit)) != 0;
}

// Answered: the hub returns at once, without its exit trace and its out value.
enum class Outcome { kGoOn, kAnswered };
using Handler = Outcome (*)(CProjectDoc& doc, ProjectNotify& record, CProjectView& view);

struct Row {
    win::UINT code;
    SenderSet from;
    Handler run;  // null: the code is known and its senders served, with nothing to do yet
};

template <auto Operation>
Outcome Call(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    (doc.*Operation)(&record);
    return Outcome::kGoOn;
}

Outcome DocumentClosing(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    // The rule check's window, when no schematic is left, will be dropped first here.
    doc.OnDocumentClosing(&record);
    doc.SetModifiedFlag(win::TRUE);
    return Outcome::kGoOn;
}

Outcome DocumentSaved(CProjectDoc& doc, ProjectNotify& record, CProjectView& view) {
    // The project's own saves of its documents are none of the project's news.
    if (view.ignoreSaved)
        return Outcome::kAnswered;
    doc.OnDocumentSaved(&record);
    return Outcome::kGoOn;
}

Outcome MenuUpdate(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    if (In(kEditors, record.idFrom)) {
        doc.StatusMessage("Updating Schematic menu...");
        doc.MergeTemplateMenus(&record);
    } else if (In(kMenuKinds, record.idFrom)) {
        doc.SetupTemplateMenus(&record);
        doc.MergeTemplateMenus(&record);
    }
    return Outcome::kGoOn;
}

Outcome ShareTemplateMenu(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    if (In(kEditors, record.idFrom))
        record.argument =
            doc.templateDoc != nullptr ? reinterpret_cast<win::LPARAM>(doc.templateMenu) : 0;
    else if (In(kMenuKinds, record.idFrom))
        doc.templateMenu = reinterpret_cast<win::HMENU>(record.argument);
    return Outcome::kGoOn;
}

Outcome StoreIfModified(CProjectDoc& doc, ProjectNotify&, CProjectView&) {
    if (doc.IsModified()) {
        doc.reportToolLog = 0;
        doc.UpdateProject(win::FALSE);
        doc.reportToolLog = 1;
    }
    return Outcome::kGoOn;
}

Outcome AnalysisReport(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    doc.reportToolLog = 1;
    doc.OnAnalysisReport(&record);
    doc.reportToolLog = 1;
    return Outcome::kGoOn;
}

Outcome TuningReport(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    doc.OnTuningReport(&record, "Tuning %s ...");
    return Outcome::kGoOn;
}

Outcome OptimizingReport(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    doc.OnTuningReport(&record, "Optimizing %s ...");
    return Outcome::kGoOn;
}

Outcome SmithToolReport(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    doc.OnSmithToolReport(&record);
    return Outcome::kGoOn;
}

Outcome TemplateCommand(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    if (afx::CView* view = CProjectDoc::GetFirstDocView(doc.templateDoc))
        view->OnCmdMsg(static_cast<win::UINT>(record.option), static_cast<int>(record.argument),
                       nullptr, nullptr);
    return Outcome::kGoOn;
}

Outcome MayAnalysisStart(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    record.result = doc.CheckOutputsWritable();
    return Outcome::kGoOn;
}

Outcome WhichSimulator(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    const SimulatorInfo* chosen = doc.ChosenSimulator();
    record.result =
        chosen != nullptr ? reinterpret_cast<win::LRESULT>(chosen->shortTag.c_str()) : 0;
    return Outcome::kGoOn;
}

Outcome NetlistDocument(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    record.result = doc.CloseNetlistDocument();
    return Outcome::kGoOn;
}

Outcome StoreProject(CProjectDoc& doc, ProjectNotify&, CProjectView&) {
    doc.UpdateProject(win::FALSE);
    return Outcome::kGoOn;
}

Outcome DeviceLibrary(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    return doc.OnDeviceLibrary(&record) ? Outcome::kAnswered : Outcome::kGoOn;
}

Outcome FatalError(CProjectDoc& doc, ProjectNotify& record, CProjectView&) {
    doc.OnFatalError(&record);
    if (doc.mainWnd != nullptr)
        doc.mainWnd->PostMessage(win::WM_COMMAND, kCmdFatalEnd, 0);
    return Outcome::kGoOn;
}

constexpr Row kTable[] = {
    // Opening a schematic by its tree text comes with the element updates.
    {200, Senders({kFromTextSender}), nullptr},
    {200, kAll & ~Senders({kFromTextSender}), Call<&CProjectDoc::OnDocumentOpened>},
    {201, kAll, DocumentClosing},
    {202, kAll, DocumentSaved},
    {203, kAll, nullptr},  // known, and nothing to do
    {208, kAll, MenuUpdate},
    {209, kAll, ShareTemplateMenu},
    {215, Senders({kFromTemplate}), StoreIfModified},
    {216, kAll, AnalysisReport},
    // Port updates come with the element updates.
    {217, kEditors, nullptr},
    {218, kAll, TuningReport},
    {219, kAll, OptimizingReport},
    {221, kAll, SmithToolReport},
    {225, kEditors, TemplateCommand},
    {231, kAll, Call<&CProjectDoc::OnCustomizing>},
    {234, kAll, Call<&CProjectDoc::OnDocumentTitle>},
    {237, kAll, MayAnalysisStart},
    // Finding a symbol's users, and the question whether one is used, come with the
    // element updates.
    {241, Senders({kFromSymbol}), nullptr},
    {243, Senders({kFromSymbol}), nullptr},
    // The filter tool's import comes with the filter import.
    {245, Senders({kFromFilterLink}), nullptr},
    {247, Senders({kFromSchematic}), WhichSimulator},
    {248, Senders({kFromTemplate, 155}), NetlistDocument},
    {303, kAll, StoreProject},
    // Element locks, reads, updates, selections and searches come with the element
    // updates.
    {304, kAll, nullptr},
    {306, Senders({kFromTemplate, kFromTextSender}), nullptr},
    {310, Senders({kFromTemplate, kFromTextSender}), nullptr},
    {311, Senders({kFromSchematic, kFromTextSender}), nullptr},
    {313, Senders({kFromTemplate, kFromTextSender}), nullptr},
    {314, Senders({kFromTemplate, kFromMenuDocument}), DeviceLibrary},
    {315, Senders({kFromTemplate, kFromMenuDocument, kFromSymbol}), DeviceLibrary},
    {329, kAll, FatalError},
    // The rule check before an analysis comes with the rule check run.
    {330, kAll, nullptr},
};

// The row of the code for the sender; `known` tells whether the code is in the table.
const Row* FindRow(win::UINT code, win::UINT_PTR from, bool& known) {
    known = false;
    for (const Row& row : kTable) {
        if (row.code != code)
            continue;
        known = true;
        if (In(row.from, from))
            return &row;
    }
    return nullptr;
}

std::uintptr_t Bits(const void* pointer) {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

}  // namespace

win::BOOL CProjectView::OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) {
    auto* record = reinterpret_cast<ProjectNotify*>(lParam);
    if (record == nullptr)
        return afx::CTreeView::OnNotify(wParam, lParam, result);
    CProjectDoc* doc = GetDocument();
    char trace[200];
    if (traceNotify != 0 && doc != nullptr) {
        std::snprintf(trace, sizeof trace,
                      "OnNotify (Enter): From=%d; HWND=%" PRIxPTR "; code=%d; Document=%" PRIxPTR
                      "; Arg=%" PRIxPTR,
                      static_cast<int>(record->idFrom), Bits(record->hwndFrom),
                      static_cast<int>(record->code), Bits(record->document),
                      static_cast<std::uintptr_t>(record->argument));
        doc->StatusMessage(trace);
    }
    if (SenderBit(record->idFrom) < 0)
        return afx::CTreeView::OnNotify(wParam, lParam, result);
    bool known = false;
    const Row* row = FindRow(record->code, record->idFrom, known);
    if (!known) {
        *result = 0;
        return win::FALSE;
    }
    if (row != nullptr && row->run != nullptr && doc != nullptr &&
        row->run(*doc, *record, *this) == Outcome::kAnswered)
        return win::TRUE;
    if (traceNotify > 0 && doc != nullptr) {
        std::snprintf(trace, sizeof trace,
                      "OnNotify (Exit): From=%d; HWND=%" PRIxPTR "; code=%d; Result:%" PRIxPTR,
                      static_cast<int>(record->idFrom), Bits(record->hwndFrom),
                      static_cast<int>(record->code), static_cast<std::uintptr_t>(record->result));
        doc->StatusMessage(trace);
    }
    *result = 0;
    return win::TRUE;
}

}  // namespace velorand
