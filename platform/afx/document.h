// CDocument: the data behind views. It keeps its path name, title, modified flag and
// views; routes commands to itself and then to its template; and deletes itself when it
// closes or loses its last view, unless m_bAutoDelete is cleared. The file itself is the
// derived class's business: the base reads and writes nothing.
#pragma once

#include <string>
#include <vector>

#include "platform/afx/cmd_target.h"
#include "platform/afx/position.h"
#include "platform/win/types.h"

namespace afx {

class CDocTemplate;
class CFrameWnd;
class CView;

class CDocument : public CCmdTarget {
    DECLARE_DYNAMIC(CDocument)
  public:
    CDocument() = default;
    ~CDocument() override;
    CDocument(const CDocument&) = delete;
    CDocument& operator=(const CDocument&) = delete;

    BOOL m_bAutoDelete = TRUE;
    BOOL m_bEmbedded = FALSE;

    const std::string& GetTitle() const { return m_strTitle; }
    // Sets the title and brings the frames' titles up to date.
    virtual void SetTitle(win::LPCSTR title);
    const std::string& GetPathName() const { return m_strPathName; }
    // Takes the path as given; the title becomes its file name. With addToMRU the path
    // goes to the application's list of recent files.
    virtual void SetPathName(win::LPCSTR path, BOOL addToMRU = TRUE);
    CDocTemplate* GetDocTemplate() const { return m_pDocTemplate; }

    virtual BOOL IsModified();
    virtual void SetModifiedFlag(BOOL modified = TRUE);

    void AddView(CView* view);
    void RemoveView(CView* view);
    POSITION GetFirstViewPosition() const;
    CView* GetNextView(POSITION& pos) const;
    // Numbers the document's frames when it has more than one and renews their titles.
    void UpdateFrameCounts();

    // The life of a document. The bases: New and Open empty the contents and clear the
    // modified flag; Save clears the flag; Close destroys the frames of the views, empties
    // the contents and deletes the document when m_bAutoDelete is set.
    virtual BOOL OnNewDocument();
    virtual BOOL OnOpenDocument(win::LPCSTR path);
    virtual BOOL OnSaveDocument(win::LPCSTR path);
    virtual void OnCloseDocument();
    virtual void DeleteContents() {}
    // A frame closes: TRUE when another frame shows the document, else SaveModified.
    virtual BOOL CanCloseFrame(CFrameWnd* frame);
    virtual void PreCloseFrame(CFrameWnd* frame) {}
    // Unmodified: TRUE. Else asks "Save changes to <title>?" through the application:
    // Yes saves (DoFileSave), No gives TRUE, Cancel gives FALSE.
    virtual BOOL SaveModified();
    // Saves to path (the path name when path is null or empty); with replace the path
    // becomes the path name. FALSE when there is no path or OnSaveDocument fails.
    virtual BOOL DoSave(win::LPCSTR path, BOOL replace = TRUE);
    virtual BOOL DoFileSave();
    // No views left: closes the document when m_bAutoDelete is set.
    virtual void OnChangedViewList();

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

  protected:
    std::string m_strTitle;
    std::string m_strPathName;
    BOOL m_bModified = FALSE;

  private:
    friend class CDocTemplate;
    CDocTemplate* m_pDocTemplate = nullptr;
    std::vector<CView*> m_viewList;
};

}  // namespace afx
