// CToolGroupDocTemplate: a multiple-document template that owns a group of the suite's
// tool bar (the sibling library ToolGroupKit). The group is registered when the component
// links and unloaded when the template's last document goes.
#pragma once

#include <array>
#include <string>

#include "platform/afx/multi_doc_template.h"

namespace velorand {

class CToolGroupDocTemplate : public afx::CMultiDocTemplate {
    DECLARE_DYNAMIC(CToolGroupDocTemplate)
  public:
    CToolGroupDocTemplate(win::UINT id, const afx::CRuntimeClass* docClass,
                          const afx::CRuntimeClass* frameClass,
                          const afx::CRuntimeClass* viewClass);

    win::BOOL toolGroupEnabled = 0;
    std::string groupName;  // the window title part of the document string
    std::array<std::string, 8> statusTexts;

    // The first step of the group's set-up, before the status panes; nothing to do here.
    virtual int PrepareGroup() { return 1; }
    virtual int SetupStatusPanes() = 0;
    // Registers the template's group with ToolGroupKit.
    virtual int RegisterGroup() = 0;
    // Stores the text of a status pane.
    virtual void SetStatusText(int index, int arg, const char* text);

    // Remembers the module whose resources the group's buttons come from, takes the group
    // name from the document string and, with a name, registers and sets up the group.
    void InitToolGroup(win::HINSTANCE instance);
    win::HINSTANCE GroupInstance() const { return groupInstance_; }

    // When the last document goes, the group is unloaded and the status line is "Ready".
    void RemoveDocument(afx::CDocument* doc) override;

  private:
    win::HINSTANCE groupInstance_ = nullptr;
};

}  // namespace velorand
