#include "app/netlist_document.h"

#include "app/host_messages.h"
#include "app/host_view.h"

namespace velorand::host {

IMPLEMENT_DYNCREATE(CNetlistDoc, CTextDocument)

BEGIN_MESSAGE_MAP(CNetlistDoc, CTextDocument)
ON_COMMAND(ID_TEMPLATE_REFRESH, OnRefresh)
END_MESSAGE_MAP()

void CNetlistDoc::OnRefresh() {
    std::vector<std::string> lines;
    std::string error;
    CHostView* view = FirstHostView();
    if (!ReadLines(GetPathName(), lines, error)) {
        Fail(error);
        if (view != nullptr) {
            view->Log("error: " + error);
        }
        return;
    }
    lines_ = std::move(lines);
    SetModifiedFlag(win::FALSE);
    if (view != nullptr) {
        view->Log("netlist reread");
    }
}

}  // namespace velorand::host
