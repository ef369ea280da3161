#include "core/testing/netlist_template.h"

#include "platform/afx/mdi_child_wnd.h"
#include "platform/afx/win_app.h"
#include "platform/win/menu.h"
#include "platform/win/resources.h"
#include "platform/win/window.h"
#include "platform/win/window_props.h"

namespace velorand::testing {

IMPLEMENT_DYNCREATE(CNetlistView, CSheetView)

win::BOOL CNetlistView::OnNotify(win::WPARAM wParam, win::LPARAM lParam, win::LRESULT* result) {
    auto* record = reinterpret_cast<ProjectNotify*>(lParam);
    if (record->code == 235) {
        closeText = reinterpret_cast<const char*>(record->argument);
        record->result = closeAnswer;
    } else if (record->code == 334) {
        record->result = queryAnswer;
    }
    return CSheetView::OnNotify(wParam, lParam, result);
}

NetlistTemplate::NetlistTemplate(afx::CWnd* mainWnd) : mainWnd_(mainWnd) {
    using afx::CMDIChildWnd;
    using Item = win::MenuTemplateItem;
    const win::HINSTANCE resources = afx::AfxGetResourceHandle();
    win::RegisterStringResource(resources, kResourceId,
                                "Netlist\nNetlist\nNetlist\nNetlist (*.ckt)\n.ckt\nNetlist\n"
                                "Netlist Document");
    win::RegisterMenuResource(resources, kResourceId,
                              {Item{"&File", 0, win::MF_POPUP, {Item{"&Close", 57602, 0, {}}}},
                               Item{"&Edit", 0, win::MF_POPUP, {Item{"&Copy", 57634, 0, {}}}},
                               Item{"&Simulate", 0, win::MF_POPUP, {Item{"&Analyze", 1004, 0, {}}}},
                               Item{"&Window", 0, win::MF_POPUP, {Item{"&Tile", 57650, 0, {}}}},
                               Item{"&Help", 0, win::MF_POPUP, {Item{"&About", 57664, 0, {}}}}});
    template_ =
        new afx::CMultiDocTemplate(kResourceId, RUNTIME_CLASS(CSheetDoc),
                                   RUNTIME_CLASS(CMDIChildWnd), RUNTIME_CLASS(CNetlistView));
    afx::AfxGetApp()->AddDocTemplate(template_);
    win::SetProp(mainWnd_->m_hWnd, "SimulatorTemplate0", reinterpret_cast<win::HANDLE>(template_));
}

NetlistTemplate::~NetlistTemplate() {
    template_->CloseAllDocuments(win::FALSE);
    if (win::IsWindow(mainWnd_->m_hWnd))
        win::RemoveProp(mainWnd_->m_hWnd, "SimulatorTemplate0");
    delete template_;
}

CNetlistView* NetlistTemplate::ViewOf(afx::CDocument* doc) {
    afx::POSITION pos = doc->GetFirstViewPosition();
    return dynamic_cast<CNetlistView*>(doc->GetNextView(pos));
}

}  // namespace velorand::testing
