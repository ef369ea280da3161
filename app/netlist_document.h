// CNetlistDoc: the simulator template document, the project's netlist as the simulator
// of the host keeps it. A netlist that the translator hasn't written yet opens empty.
// Command 25621 from the project rereads the file, which the translator has changed.
#pragma once

#include "app/text_document.h"

namespace velorand::host {

class CNetlistDoc : public CTextDocument {
    DECLARE_DYNCREATE(CNetlistDoc)
  public:
    CNetlistDoc() = default;

  protected:
    bool OpensMissingFile() const override { return true; }

  private:
    void OnRefresh();
    DECLARE_MESSAGE_MAP()
};

}  // namespace velorand::host
