#include "core/warning_dlg.h"

#include <utility>

#include "platform/win/app_profile.h"
#include "platform/win/controls.h"
#include "platform/win/message_box.h"

namespace velorand {

CWarningDlg::CWarningDlg(std::string key, std::string title, std::string text, afx::CWnd* parent)
    : CDialog(IDD, parent),
      profileKey(std::move(key)),
      caption(std::move(title)),
      message(std::move(text)) {}

win::INT_PTR CWarningDlg::ShowUnlessSkipped(const std::string& profileKey,
                                            const std::string& caption, const std::string& message,
                                            afx::CWnd* parent) {
    if (win::GetProfileInt("Project", profileKey.c_str(), 0) != 0) {
        return 0;
    }
    CWarningDlg dialog(profileKey, caption, message, parent);
    return dialog.DoModal();
}

win::DialogTemplate CWarningDlg::Resource() {
    win::DialogTemplate dialog;
    dialog.caption = "Warning";
    auto add = [&](int id, win::ControlKind kind, const char* text) -> win::DialogItemTemplate& {
        win::DialogItemTemplate& item = dialog.items.emplace_back();
        item.id = id;
        item.kind = kind;
        item.text = text;
        return item;
    };
    add(win::IDC_STATIC, win::ControlKind::GroupBox, "Warning");
    add(IDC_SKIP, win::ControlKind::CheckBox, "Skip this warning. ");
    add(IDC_MESSAGE, win::ControlKind::Static, "");
    add(win::IDOK, win::ControlKind::PushButton, "Close").defaultButton = true;
    return dialog;
}

void CWarningDlg::DoDataExchange(afx::CDataExchange* dx) {
    afx::DDX_Control(dx, IDC_SKIP, skipBox);
}

win::BOOL CWarningDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowText(caption.c_str());
    if (afx::CWnd* text = GetDlgItem(IDC_MESSAGE)) {
        text->SetWindowText(message.c_str());
    }
    skipBox.SetCheck(win::BST_UNCHECKED);
    return win::TRUE;
}

void CWarningDlg::OnOK() {
    win::WriteProfileInt("Project", profileKey.c_str(),
                         skipBox.GetCheck() == win::BST_CHECKED ? 1 : 0);
    CDialog::OnOK();
}

}  // namespace velorand
