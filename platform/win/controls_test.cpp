#include "platform/win/controls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win/dialog.h"
#include "platform/win/dialog_act.h"
#include "platform/win/focus.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace {

using namespace win;

constexpr int kFirst = 10, kSecond = 11, kOther = 12, kAlone = 13, kList = 20, kEditA = 30,
              kEditB = 31, kOff = 40;

// The notifications the dialog got, as "id:code".
std::vector<std::string> notes;

INT_PTR Recorder(HWND, UINT msg, WPARAM wParam, LPARAM) {
    if (msg == WM_COMMAND) {
        notes.push_back(std::to_string(static_cast<short>(LOWORD(wParam))) + ":" +
                        std::to_string(HIWORD(wParam)));
    }
    return FALSE;
}

class ControlsTest : public ::testing::Test {
  protected:
    ControlsTest() {
        DialogTemplate t;
        t.caption = "Controls";
        auto radio = [](int id, bool groupStart) {
            DialogItemTemplate item{id, ControlKind::RadioButton, "r"};
            item.groupStart = groupStart;
            return item;
        };
        t.items = {
            radio(kFirst, true),
            radio(kSecond, false),
            radio(kOther, false),
            radio(kAlone, true),
            {kList, ControlKind::ComboBox, "", false, false, false, false, 0, {"a", "b", "c"}},
            {kEditA, ControlKind::Edit, "start"},
            {kEditB, ControlKind::Edit, ""},
            {kOff, ControlKind::CheckBox, "off", true}};
        notes.clear();
        dialog = CreateDialogIndirectParam(nullptr, t, nullptr, Recorder, 0);
        notes.clear();
    }
    ~ControlsTest() override { DestroyWindow(dialog); }

    LRESULT Send(int id, UINT msg, WPARAM w = 0, LPARAM l = 0) {
        return SendDlgItemMessage(dialog, id, msg, w, l);
    }
    LRESULT SendText(int id, UINT msg, WPARAM w, const char* text) {
        return Send(id, msg, w, reinterpret_cast<LPARAM>(text));
    }

    HWND dialog = nullptr;
};

TEST_F(ControlsTest, RadioButtonsChooseOneOfTheirGroupAndClicksNotify) {
    Send(kAlone, BM_CLICK);
    Send(kSecond, BM_CLICK);
    Send(kFirst, BM_CLICK);
    EXPECT_EQ(IsDlgButtonChecked(dialog, kFirst), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, kSecond), BST_UNCHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, kAlone), BST_CHECKED);  // a group of its own
    Send(kOff, BM_CLICK);                                        // disabled: nothing
    EXPECT_EQ(IsDlgButtonChecked(dialog, kOff), BST_UNCHECKED);
    EXPECT_EQ(notes, (std::vector<std::string>{"13:0", "11:0", "10:0"}));
}

TEST_F(ControlsTest, AComboBoxKeepsItsSelectionOnTheSameItem) {
    EXPECT_EQ(Send(kList, CB_SETCURSEL, 1), 1);
    EXPECT_EQ(SendText(kList, CB_INSERTSTRING, 0, "z"), 0);
    EXPECT_EQ(Send(kList, CB_GETCURSEL), 2);  // still "b"
    EXPECT_EQ(Send(kList, CB_DELETESTRING, 0), 3);
    EXPECT_EQ(Send(kList, CB_GETCURSEL), 1);
    EXPECT_EQ(Send(kList, CB_DELETESTRING, 1), 2);
    EXPECT_EQ(Send(kList, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(kList, CB_DELETESTRING, 7), CB_ERR);
    // Exact search ignores case and goes round from after the start.
    EXPECT_EQ(SendText(kList, CB_FINDSTRINGEXACT, 1, "A"), 0);
    EXPECT_EQ(SendText(kList, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "x"), CB_ERR);
    // A drop-down list shows its selection and takes no text of its own.
    EXPECT_EQ(Send(kList, CB_SETCURSEL, 1), 1);
    char text[8] = {};
    GetDlgItemText(dialog, kList, text, sizeof text);
    EXPECT_STREQ(text, "c");
    EXPECT_EQ(Send(kList, CB_SETCURSEL, 5), CB_ERR);
    GetDlgItemText(dialog, kList, text, sizeof text);
    EXPECT_STREQ(text, "");
    Send(kList, CB_SETCURSEL, 0);
    SetDlgItemText(dialog, kList, "typed");
    GetDlgItemText(dialog, kList, text, sizeof text);
    EXPECT_STREQ(text, "a");
}

TEST_F(ControlsTest, EditsTellOfChangesAndOfTheFocus) {
    SetFocus(GetDlgItem(dialog, kEditA));
    SetDlgItemText(dialog, kEditA, "changed");
    SetFocus(GetDlgItem(dialog, kEditB));
    EXPECT_EQ(notes, (std::vector<std::string>{"30:256", "30:768", "30:512", "31:256"}));
    Send(kEditA, EM_SETSEL, 0, -1);
    DWORD start = 9, end = 9;
    Send(kEditA, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 7u);
    DestroyWindow(GetDlgItem(dialog, kEditB));
    EXPECT_EQ(GetFocus(), nullptr);  // the holder is gone
}

TEST(DialogActTest, ReadsTheLineProtocol) {
    std::string error;
    std::optional<DialogAct> act = ParseDialogAct("  type 456  two  blanks\r", error);
    ASSERT_TRUE(act);
    EXPECT_EQ(act->kind, DialogAct::Kind::Type);
    EXPECT_EQ(act->id, 456);
    EXPECT_EQ(act->text, " two  blanks");
    EXPECT_EQ(FormatDialogAct(*act), "type 456  two  blanks");
    EXPECT_EQ(FormatDialogAct(*ParseDialogAct("ok", error)), "click 1");
    EXPECT_FALSE(ParseDialogAct("click", error));
    EXPECT_EQ(error, "'click' needs a control id, not ''");
    EXPECT_FALSE(ParseDialogAct("click 99999999999", error));
    EXPECT_FALSE(ParseDialogAct("", error));
}

}  // namespace
