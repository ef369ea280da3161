// A host document has opened (code 200): it joins the project. A schematic that is none of
// the project's is worth a warning, since the project's analysis will not see it; the
// simulator template's view brings the menu that the frame shows while no schematics are.
#include "core/project_doc.h"
#include "core/warning_dlg.h"
#include "host/notify_codes.h"
#include "host/project_notify.h"
#include "platform/afx/wnd.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"
#include "platform/win/window.h"

namespace velorand {

namespace {

constexpr win::UINT kCmdMenuChanged = 26467;
constexpr const char* kSkipKey = "SkipAssociationDlg";

}  // namespace

void CProjectDoc::OnDocumentOpened(ProjectNotify* record) {
    afx::CDocument* doc = record->document;
    SchematicNode* node = FindDocNode(doc);
    const bool loneSchematic = record->idFrom == kFromSchematic && node == nullptr;
    if (loneSchematic && doc != nullptr) {
        if (!topLevelSchematic.empty())
            CWarningDlg::ShowUnlessSkipped(
                kSkipKey, "Schematic Not Part of Current Project",
                "The schematic file you are opening is not part of the current project.  It "
                "will not be used during analysis of the project, nor will be it analyzed along "
                "with the project.",
                mainWnd);
        else
            CWarningDlg::ShowUnlessSkipped(
                kSkipKey, "Schematic Not Associated with Simulator",
                "You are opening a schematic file directly, rather than as part of a project.  "
                "You will not be able to analyze the schematic because it is not associated "
                "with a simulator.  To enable simulation, open the schematic as part of a "
                "project.",
                mainWnd);
    }
    if (loneSchematic)
        activeDoc = doc;
    Attach(node, doc);
    if (record->idFrom == kFromTemplate || record->idFrom == kFromMenuDocument) {
        auto menu = reinterpret_cast<win::HMENU>(record->argument);
        if (menu != nullptr && topLevelSchematic.empty()) {
            win::HWND main = mainWnd != nullptr ? mainWnd->m_hWnd : nullptr;
            win::SetMenu(main, menu);
            win::SendMessage(main, win::WM_COMMAND, kCmdMenuChanged, 0);
        }
    }
    if (record->idFrom == kFromTemplate) {
        templateDoc = doc;
        CheckOutputsWritable();
    }
}

}  // namespace velorand
