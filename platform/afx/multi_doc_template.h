// CMultiDocTemplate: a template for any number of documents, each in its MDI child frame.
// Its shared menu (menu resource m_nIDResource) is loaded at construction and destroyed
// with the template.
#pragma once

#include <vector>

#include "platform/afx/doc_template.h"

namespace afx {

class CMultiDocTemplate : public CDocTemplate {
    DECLARE_DYNAMIC(CMultiDocTemplate)
  public:
    CMultiDocTemplate(UINT id, const CRuntimeClass* docClass, const CRuntimeClass* frameClass,
                      const CRuntimeClass* viewClass);
    ~CMultiDocTemplate() override;

    win::HMENU m_hMenuShared = nullptr;
    UINT m_nUntitledCount = 0;

    void AddDocument(CDocument* doc) override;
    void RemoveDocument(CDocument* doc) override;
    POSITION GetFirstDocPosition() const override;
    CDocument* GetNextDoc(POSITION& pos) const override;
    CDocument* OpenDocumentFile(win::LPCSTR path, BOOL makeVisible = TRUE) override;
    // The document name part (else "Untitled") with the next untitled number.
    void SetDefaultTitle(CDocument* doc) override;

  protected:
    std::vector<CDocument*> m_docList;

  private:
    void Discard(CFrameWnd* frame, CDocument* doc);
};

}  // namespace afx
