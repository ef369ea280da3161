// The dialog controls as framework objects: thin wrappers that speak to their control
// window through its messages (platform/win/controls.h). A dialog ties them to its
// controls with DDX_Control; the ON_..._ macros put their notifications in a command
// table.
#pragma once

#include <string>

#include "platform/afx/wnd.h"
#include "platform/win/controls.h"

namespace afx {

class CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)
};

class CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)
  public:
    // BST_CHECKED or BST_UNCHECKED.
    int GetCheck() const;
    void SetCheck(int check);
};

class CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)
  public:
    // Selects from start to end (-1: the end of the text); a start of -1 takes the
    // selection away.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    void GetSel(int& start, int& end) const;
};

class CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)
  public:
    int AddString(LPCSTR text);
    int InsertString(int index, LPCSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    int GetCount() const;
    // The selected item's index, CB_ERR (-1) when none is.
    int GetCurSel() const;
    // Selects an item, or none with -1; CB_ERR for an index out of the list.
    int SetCurSel(int index);
    // The item's text; empty for an index out of the list.
    void GetLBText(int index, std::string& text) const;
    int GetLBTextLen(int index) const;
    // The first item after `after` (-1: from the top) equal to the text, case ignored.
    int FindStringExact(int after, LPCSTR text) const;
};

}  // namespace afx

#define ON_BN_CLICKED(id, member) ON_CONTROL(::win::BN_CLICKED, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(::win::EN_CHANGE, id, member)
#define ON_EN_SETFOCUS(id, member) ON_CONTROL(::win::EN_SETFOCUS, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(::win::EN_KILLFOCUS, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(::win::CBN_SELCHANGE, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(::win::CBN_EDITCHANGE, id, member)
