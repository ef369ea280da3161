// CDialog: a modal dialog made from a dialog resource. DoModal makes the dialog window and
// its controls, calls OnInitDialog, and hands the dialog to the user agent
// (platform/win/user_agent.h), which works its controls through their messages, so that
// the dialog's own handlers run; the buttons IDOK and IDCANCEL run OnOK and OnCancel, and
// EndDialog ends the run with the code that DoModal answers.
//
//   class CWarningDlg : public afx::CDialog {
//   public:
//       CWarningDlg() : CDialog(25648) {}
//   protected:
//       void DoDataExchange(afx::CDataExchange* dx) override {
//           afx::DDX_Control(dx, 25650, skipBox);
//       }
//       void OnSkipClicked();
//       afx::CButton skipBox;
//       DECLARE_MESSAGE_MAP()
//   };
//   BEGIN_MESSAGE_MAP(CWarningDlg, afx::CDialog)
//       ON_BN_CLICKED(25650, OnSkipClicked)
//   END_MESSAGE_MAP()
#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/afx/wnd.h"

namespace afx {

class CDialog;

// The direction of a data exchange: into the controls (FALSE) or out of them (TRUE).
class CDataExchange {
  public:
    CDataExchange(CDialog* dialog, BOOL saveAndValidate)
        : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}
    BOOL m_bSaveAndValidate;
    CDialog* m_pDlgWnd;
};

// Ties a control object to the dialog's control of that id for as long as the dialog's
// window lives. An unknown id leaves the object untied.
void DDX_Control(CDataExchange* dx, int id, CWnd& control);

class CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
  public:
    // The dialog resource is looked for in the resource module (AfxGetResourceHandle),
    // then in every module that registered resources.
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // Runs the dialog and answers the code it ended with; -1 when it cannot be made (no
    // such resource, or it is running already), or when its window was destroyed without
    // EndDialog.
    virtual win::INT_PTR DoModal();
    // Ends the run; the first call decides the result, later ones change nothing.
    void EndDialog(int result);

    virtual BOOL OnInitDialog();
    // Exchanges data with the controls through DoDataExchange.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    // Any control of the dialog, with or without an object of its own (the dialog keeps
    // a stand-in object until its window goes); null for an unknown id.
    CWnd* GetDlgItem(int id) const;
    // Moves the focus to a control of the dialog.
    void GotoDlgCtrl(CWnd* control);

    UINT GetTemplateId() const { return m_nIDTemplate; }

  protected:
    virtual void DoDataExchange(CDataExchange* dx);
    virtual void OnOK();
    virtual void OnCancel();
    LRESULT WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) override;
    void OnNcDestroy() override;

    DECLARE_MESSAGE_MAP()

  private:
    friend void DDX_Control(CDataExchange* dx, int id, CWnd& control);
    void Unbind();

    UINT m_nIDTemplate;
    CWnd* m_pParentWnd;
    // Tied by DDX_Control. An object may die before the dialog's window does (as members
    // of a derived dialog do when it is deleted with its window alive); one that is no
    // longer the handle's object is not touched.
    std::vector<std::pair<HWND, CWnd*>> bound_;
    mutable std::map<int, std::unique_ptr<CWnd>> standIns_;  // made by GetDlgItem
};

}  // namespace afx
