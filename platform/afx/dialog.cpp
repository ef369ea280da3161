#include "platform/afx/dialog.h"

#include "platform/afx/win_app.h"
#include "platform/win/dialog.h"
#include "platform/win/message_box.h"
#include "platform/win/messages.h"
#include "platform/win/resources.h"

namespace afx {

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(win::IDOK, OnOK)
ON_COMMAND(win::IDCANCEL, OnCancel)
END_MESSAGE_MAP()

void DDX_Control(CDataExchange* dx, int id, CWnd& control) {
    CDialog* dialog = dx->m_pDlgWnd;
    if (control.m_hWnd != nullptr) {
        return;
    }
    HWND item = win::GetDlgItem(dialog->m_hWnd, id);
    if (item == nullptr) {
        return;
    }
    // A stand-in made earlier by GetDlgItem gives way to the real object.
    if (auto it = dialog->standIns_.find(id); it != dialog->standIns_.end()) {
        it->second->Detach();
        dialog->standIns_.erase(it);
    }
    if (control.Attach(item)) {
        dialog->bound_.emplace_back(item, &control);
    }
}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nIDTemplate(templateId), m_pParentWnd(parent) {}

CDialog::~CDialog() {
    // The window goes first, while the dialog's own handlers can still run.
    if (m_hWnd != nullptr && win::IsWindow(m_hWnd)) {
        win::DestroyWindow(m_hWnd);
    }
    Unbind();
}

win::INT_PTR CDialog::DoModal() {
    if (m_hWnd != nullptr) {
        return -1;
    }
    win::HINSTANCE module = AfxGetResourceHandle();
    if (win::FindDialogResource(module, m_nIDTemplate) == nullptr &&
        !win::FindDialogModule(m_nIDTemplate, &module)) {
        return -1;
    }
    // A copy: the handlers may change the module's resources while the dialog runs.
    const win::DialogTemplate dialogTemplate = *win::FindDialogResource(module, m_nIDTemplate);
    win::RegisterDialogClass();
    win::DialogCreateParams params{nullptr, static_cast<int>(m_nIDTemplate)};
    if (!CreateEx(0, win::DIALOG_CLASS, dialogTemplate.caption.c_str(), win::DIALOG_STYLE,
                  win::RECT{}, m_pParentWnd, 0, &params)) {
        return -1;
    }
    HWND dialog = m_hWnd;
    if (!win::InitDialog(dialog, module, dialogTemplate, 0)) {
        return -1;
    }
    const win::INT_PTR result = win::RunModalDialog(dialog);
    if (win::IsWindow(dialog)) {
        win::DestroyWindow(dialog);
    }
    return result;
}

void CDialog::EndDialog(int result) {
    win::EndDialog(m_hWnd, result);
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
    CDataExchange dx(this, saveAndValidate);
    DoDataExchange(&dx);
    return TRUE;
}

CWnd* CDialog::GetDlgItem(int id) const {
    HWND item = win::GetDlgItem(m_hWnd, id);
    if (item == nullptr) {
        return nullptr;
    }
    if (CWnd* wnd = CWnd::FromHandle(item)) {
        return wnd;
    }
    auto standIn = std::make_unique<CWnd>();
    standIn->Attach(item);
    return (standIns_[id] = std::move(standIn)).get();
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    if (control != nullptr && IsChild(control)) {
        control->SetFocus();
    }
}

void CDialog::DoDataExchange(CDataExchange* dx) {}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) {
        EndDialog(win::IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(win::IDCANCEL);
}

LRESULT CDialog::WindowProc(UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == win::WM_INITDIALOG) {
        return OnInitDialog();
    }
    return CWnd::WindowProc(msg, wParam, lParam);
}

void CDialog::OnNcDestroy() {
    Unbind();
    CWnd::OnNcDestroy();
}

void CDialog::Unbind() {
    for (auto [hwnd, control] : bound_) {
        if (CWnd::FromHandle(hwnd) == control) {
            control->Detach();
        }
    }
    bound_.clear();
    for (auto& [id, standIn] : standIns_) {
        standIn->Detach();
    }
    standIns_.clear();
}

}  // namespace afx
