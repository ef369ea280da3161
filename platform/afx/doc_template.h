// CDocTemplate: makes documents, their frames and views from runtime classes, and keeps
// the documents it made. Its document string (string resource id of the resource module
// at construction) holds seven parts with '\n' between them, asked for by GetDocString.
// The template is in the command route behind its documents, and behind the application.
#pragma once

#include <string>

#include "platform/afx/cmd_target.h"
#include "platform/afx/position.h"
#include "platform/win/types.h"

namespace afx {

class CDocument;
class CFrameWnd;

class CDocTemplate : public CCmdTarget {
    DECLARE_DYNAMIC(CDocTemplate)
  public:
    enum DocStringIndex {
        windowTitle,
        docName,
        fileNewName,
        filterName,
        filterExt,
        regFileTypeId,
        regFileTypeName
    };

    ~CDocTemplate() override;

    UINT m_nIDResource;
    const CRuntimeClass* m_pDocClass;
    const CRuntimeClass* m_pFrameClass;
    const CRuntimeClass* m_pViewClass;
    std::string m_strDocStrings;

    // The part of the document string; FALSE (and empty) when it is missing or empty.
    virtual BOOL GetDocString(std::string& out, DocStringIndex index) const;

    virtual void AddDocument(CDocument* doc);
    virtual void RemoveDocument(CDocument* doc);
    virtual POSITION GetFirstDocPosition() const = 0;
    virtual CDocument* GetNextDoc(POSITION& pos) const = 0;

    // A new document of the document class, added to this template; null without one.
    virtual CDocument* CreateNewDocument();
    // A new frame of the frame class with a view of the view class on the document; null
    // when there is no frame class or the frame could not be made.
    virtual CFrameWnd* CreateNewFrame(CDocument* doc, CFrameWnd* other);
    virtual void InitialUpdateFrame(CFrameWnd* frame, CDocument* doc, BOOL makeVisible = TRUE);
    virtual BOOL SaveAllModified();
    // OnCloseDocument on each document, in order.
    virtual void CloseAllDocuments(BOOL endSession);
    // Null path: a new document (OnNewDocument); else OnOpenDocument(path). Null when the
    // document, its frame or the open fails; nothing of it is left then.
    virtual CDocument* OpenDocumentFile(win::LPCSTR path, BOOL makeVisible = TRUE) = 0;
    virtual void SetDefaultTitle(CDocument* doc) = 0;

  protected:
    CDocTemplate(UINT id, const CRuntimeClass* docClass, const CRuntimeClass* frameClass,
                 const CRuntimeClass* viewClass);
    win::HINSTANCE m_hResources;  // the module whose resources the template uses
};

// The framework's message 0xF104 in the application's box: a document or its frame could
// not be made.
void ReportDocumentNotMade();

}  // namespace afx
