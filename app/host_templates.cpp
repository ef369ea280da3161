#include "app/host_templates.h"

#include "app/child_frame.h"
#include "app/host_view.h"
#include "app/netlist_document.h"
#include "app/netlist_view.h"
#include "app/schematic_document.h"
#include "app/schematic_view.h"
#include "platform/afx/win_app.h"
#include "platform/win/resources.h"
#include "platform/win/window_props.h"

namespace velorand::host {

using afx::CMultiDocTemplate;
IMPLEMENT_DYNAMIC(CHostDocTemplate, CMultiDocTemplate)

CHostDocTemplate::CHostDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                                   const afx::CRuntimeClass* viewClass)
    : CMultiDocTemplate(id, docClass, RUNTIME_CLASS(CChildFrame), viewClass) {}

afx::CDocument* CHostDocTemplate::OpenDocumentFile(win::LPCSTR path, win::BOOL makeVisible) {
    afx::CDocument* doc = CMultiDocTemplate::OpenDocumentFile(path, makeVisible);
    if (doc != nullptr && doc->IsKindOf(RUNTIME_CLASS(CTextDocument))) {
        if (CHostView* view = static_cast<CTextDocument*>(doc)->FirstHostView()) {
            view->Announce();
        }
    }
    return doc;
}

namespace {

// The parts of each document string: window title (none for MDI children), document
// name, new-file name, filter name, filter extension, file type id and name.
constexpr const char* kSchematicStrings =
    "\nSchematic\nSchematic\nSchematic Files (*.sch)\n.sch\nVelorand.Schematic\nVelorand "
    "Schematic";
constexpr const char* kSymbolStrings =
    "\nSymbol\nSymbol\nSymbol Files (*.sym)\n.sym\nVelorand.Symbol\nVelorand Symbol";
constexpr const char* kQuintarisStrings =
    "\nNetlist\nQuintaris Netlist\nQuintaris Netlists (*.ckt)\n.ckt\nVelorand.Netlist.Quintaris\n"
    "Quintaris Netlist";
constexpr const char* kLumentraStrings =
    "\nNetlist\nLumentra Netlist\nLumentra Netlists (*.lmt)\n.lmt\nVelorand.Netlist.Lumentra\n"
    "Lumentra Netlist";

}  // namespace

HostTemplates::~HostTemplates() = default;

void HostTemplates::Register(afx::CWinApp& app, afx::CWnd& mainWnd) {
    // The templates read their strings from the host's module, whichever module a
    // component has made the resource module.
    const win::HINSTANCE before = afx::AfxGetResourceHandle();
    const win::HINSTANCE host = afx::AfxGetInstanceHandle();
    afx::AfxSetResourceHandle(host);
    win::RegisterStringResource(host, IDR_SCHEMATIC, kSchematicStrings);
    win::RegisterStringResource(host, IDR_SYMBOL, kSymbolStrings);
    win::RegisterStringResource(host, IDR_NETLIST_QUINTARIS, kQuintarisStrings);
    win::RegisterStringResource(host, IDR_NETLIST_LUMENTRA, kLumentraStrings);
    schematic_ = std::make_unique<CHostDocTemplate>(IDR_SCHEMATIC, RUNTIME_CLASS(CSchematicDoc),
                                                    RUNTIME_CLASS(CSchematicView));
    symbol_ = std::make_unique<CHostDocTemplate>(IDR_SYMBOL, RUNTIME_CLASS(CSymbolDoc),
                                                 RUNTIME_CLASS(CSchematicView));
    netlists_[0] = std::make_unique<CHostDocTemplate>(
        IDR_NETLIST_QUINTARIS, RUNTIME_CLASS(CNetlistDoc), RUNTIME_CLASS(CNetlistView));
    netlists_[1] = std::make_unique<CHostDocTemplate>(
        IDR_NETLIST_LUMENTRA, RUNTIME_CLASS(CNetlistDoc), RUNTIME_CLASS(CNetlistView));
    afx::AfxSetResourceHandle(before);

    app.AddDocTemplate(schematic_.get());
    app.AddDocTemplate(symbol_.get());
    for (int i = 0; i < 2; ++i) {
        app.AddDocTemplate(netlists_[i].get());
        win::SetProp(mainWnd.m_hWnd, ("SimulatorTemplate" + std::to_string(i)).c_str(),
                     reinterpret_cast<win::HANDLE>(netlists_[i].get()));
    }
}

CHostDocTemplate* HostTemplates::Netlist(int simulator) const {
    return simulator == 0 || simulator == 1 ? netlists_[simulator].get() : nullptr;
}

}  // namespace velorand::host
