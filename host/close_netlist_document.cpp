// The host asks the project to close the simulator's netlist document (code 248), before
// it opens another one. While a project with schematics is open, the netlist is its own
// and stays.
#include <string>

#include "core/project_cmd_ui.h"
#include "core/project_doc.h"
#include "platform/afx/doc_template.h"
#include "platform/afx/frame_wnd.h"
#include "platform/win/strings.h"

namespace velorand {

namespace {

bool IsNetlistDocument(afx::CDocument* doc) {
    afx::CDocTemplate* docTemplate = doc->GetDocTemplate();
    std::string extension;
    return docTemplate != nullptr &&
           docTemplate->GetDocString(extension, afx::CDocTemplate::filterExt) &&
           (win::EqualNoCase(extension, ".lmt") || win::EqualNoCase(extension, ".ckt"));
}

}  // namespace

win::LRESULT CProjectDoc::CloseNetlistDocument() {
    afx::CDocument* netlist = nullptr;
    for (afx::CDocument* doc : openDocs) {
        if (IsNetlistDocument(doc)) {
            netlist = doc;
            break;
        }
    }
    if (netlist == nullptr)
        return 0;
    if (ProjectCmdUIHolds(mainWnd))
        return 3;
    if (!netlist->CanCloseFrame(GetDocFrame(netlist, win::FALSE)))
        return 1;
    netlist->OnCloseDocument();
    return 2;
}

}  // namespace velorand
