#include "platform/afx/controls.h"

namespace afx {

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

int CButton::GetCheck() const {
    return static_cast<int>(SendMessage(win::BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    SendMessage(win::BM_SETCHECK, static_cast<WPARAM>(check));
}

void CEdit::SetSel(int start, int end, BOOL noScroll) {
    SendMessage(win::EM_SETSEL, static_cast<WPARAM>(start), end);
    if (!noScroll) {
        SendMessage(win::EM_SCROLLCARET);
    }
}

void CEdit::GetSel(int& start, int& end) const {
    win::DWORD s = 0;
    win::DWORD e = 0;
    SendMessage(win::EM_GETSEL, reinterpret_cast<WPARAM>(&s), reinterpret_cast<LPARAM>(&e));
    start = static_cast<int>(s);
    end = static_cast<int>(e);
}

int CComboBox::AddString(LPCSTR text) {
    return static_cast<int>(SendMessage(win::CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

int CComboBox::InsertString(int index, LPCSTR text) {
    return static_cast<int>(SendMessage(win::CB_INSERTSTRING, static_cast<WPARAM>(index),
                                        reinterpret_cast<LPARAM>(text)));
}

int CComboBox::DeleteString(UINT index) {
    return static_cast<int>(SendMessage(win::CB_DELETESTRING, index));
}

void CComboBox::ResetContent() {
    SendMessage(win::CB_RESETCONTENT);
}

int CComboBox::GetCount() const {
    return static_cast<int>(SendMessage(win::CB_GETCOUNT));
}

int CComboBox::GetCurSel() const {
    return static_cast<int>(SendMessage(win::CB_GETCURSEL));
}

int CComboBox::SetCurSel(int index) {
    return static_cast<int>(SendMessage(win::CB_SETCURSEL, static_cast<WPARAM>(index)));
}

int CComboBox::GetLBTextLen(int index) const {
    return static_cast<int>(SendMessage(win::CB_GETLBTEXTLEN, static_cast<WPARAM>(index)));
}

void CComboBox::GetLBText(int index, std::string& text) const {
    const int length = GetLBTextLen(index);
    if (length < 0) {
        text.clear();
        return;
    }
    text.assign(static_cast<std::size_t>(length) + 1, '\0');
    SendMessage(win::CB_GETLBTEXT, static_cast<WPARAM>(index),
                reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
}

int CComboBox::FindStringExact(int after, LPCSTR text) const {
    return static_cast<int>(SendMessage(win::CB_FINDSTRINGEXACT, static_cast<WPARAM>(after),
                                        reinterpret_cast<LPARAM>(text)));
}

}  // namespace afx
