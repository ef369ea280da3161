// The host's document templates: schematics (".sch"), symbols (".sym"), and the netlists
// of the two simulators (".ckt" for simulator 0, ".lmt" for simulator 1). Each document
// they open, or make new, is announced to the project by its view. The netlist templates
// are published on the main window as the properties "SimulatorTemplate0" and
// "SimulatorTemplate1", so that the project opens its netlist through them.
#pragma once

#include <memory>
#include <string>

#include "platform/afx/multi_doc_template.h"

namespace afx {
class CWinApp;
class CWnd;
}  // namespace afx

namespace velorand::host {

// String and menu resource ids of the templates, in the host's module.
inline constexpr win::UINT IDR_SCHEMATIC = 30101;
inline constexpr win::UINT IDR_SYMBOL = 30102;
inline constexpr win::UINT IDR_NETLIST_QUINTARIS = 30103;
inline constexpr win::UINT IDR_NETLIST_LUMENTRA = 30104;

class CHostDocTemplate : public afx::CMultiDocTemplate {
    DECLARE_DYNAMIC(CHostDocTemplate)
  public:
    CHostDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                     const afx::CRuntimeClass* viewClass);

    // The framework's open; then the new document's view tells the project.
    afx::CDocument* OpenDocumentFile(win::LPCSTR path, win::BOOL makeVisible = win::TRUE) override;
};

class HostTemplates {
  public:
    HostTemplates() = default;
    // Deletes the templates; their documents must be closed before.
    ~HostTemplates();
    HostTemplates(const HostTemplates&) = delete;
    HostTemplates& operator=(const HostTemplates&) = delete;

    // Makes the templates from the host's resources, adds them to the application in the
    // order above and publishes the netlist templates on the main window.
    void Register(afx::CWinApp& app, afx::CWnd& mainWnd);

    CHostDocTemplate* Schematic() const { return schematic_.get(); }
    CHostDocTemplate* Symbol() const { return symbol_.get(); }
    // The netlist template of simulator 0 or 1, else null.
    CHostDocTemplate* Netlist(int simulator) const;

  private:
    std::unique_ptr<CHostDocTemplate> schematic_;
    std::unique_ptr<CHostDocTemplate> symbol_;
    std::unique_ptr<CHostDocTemplate> netlists_[2];
};

}  // namespace velorand::host
