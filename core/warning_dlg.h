// A warning with a check box that stops it for good: the box's state goes to a key of
// section "Project" in the application's profile, and a set key keeps the warning away.
#pragma once

#include <string>

#include "platform/afx/controls.h"
#include "platform/afx/dialog.h"
#include "platform/win/dialog_template.h"

namespace velorand {

class CWarningDlg : public afx::CDialog {
  public:
    static constexpr win::UINT IDD = 25648;
    static constexpr int IDC_SKIP = 25650;
    static constexpr int IDC_MESSAGE = 25651;

    CWarningDlg(std::string profileKey, std::string caption, std::string message,
                afx::CWnd* parent = nullptr);

    // Shows the warning unless the profile key in section "Project" is set. The result is
    // that of DoModal, or 0 when the warning was skipped.
    static win::INT_PTR ShowUnlessSkipped(const std::string& profileKey, const std::string& caption,
                                          const std::string& message, afx::CWnd* parent = nullptr);

    // The dialog resource, for the component's module to register under IDD.
    static win::DialogTemplate Resource();

    afx::CButton skipBox;
    std::string profileKey;
    std::string caption;
    std::string message;

  protected:
    void DoDataExchange(afx::CDataExchange* dx) override;
    win::BOOL OnInitDialog() override;
    // Only the button stores the box; any other way out leaves the profile alone.
    void OnOK() override;
};

}  // namespace velorand
