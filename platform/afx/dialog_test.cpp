#include "platform/afx/dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/afx/controls.h"
#include "platform/testing/scripted_user.h"
#include "platform/win/dialog.h"
#include "platform/win/message_box.h"
#include "platform/win/messages.h"
#include "platform/win/resources.h"

namespace {

using win::BOOL;
using win::ControlKind;
using win::FALSE;
using win::ModalDialog;
using win::UINT;

const win::HINSTANCE kModule = win::HandleFromNumber<win::HINSTANCE>(0x7e57);
constexpr UINT kProjectDialog = 900;
constexpr int kName = 456, kTopLevel = 457, kSimulator = 458, kLocation = 459;
constexpr int kSkip = 470, kCopy = 480, kArchive = 481, kCloseTwice = 490, kSelfDestroy = 491,
              kNested = 492;

// A dialog resource in the manner of the project dialog.
win::DialogTemplate ProjectTemplate() {
    win::DialogTemplate t;
    t.caption = "New Project";
    auto add = [&](int id, ControlKind kind, std::string text) -> win::DialogItemTemplate& {
        win::DialogItemTemplate item;
        item.id = id;
        item.kind = kind;
        item.text = std::move(text);
        return t.items.emplace_back(std::move(item));
    };
    add(win::IDC_STATIC, ControlKind::Static, "&Project Name:");
    add(kName, ControlKind::Edit, "");
    add(kTopLevel, ControlKind::Edit, "");
    add(kSimulator, ControlKind::ComboBox, "").items = {"Quintaris", "Lumentra"};
    add(kLocation, ControlKind::Edit, "C:\\work");
    add(kSkip, ControlKind::CheckBox, "Skip this warning. ");
    add(kCopy, ControlKind::RadioButton, "Copy").checked = true;
    add(kArchive, ControlKind::RadioButton, "Archive");
    add(kCloseTwice, ControlKind::PushButton, "Twice");
    add(kSelfDestroy, ControlKind::PushButton, "Destroy");
    add(kNested, ControlKind::PushButton, "Nested");
    add(win::IDOK, ControlKind::PushButton, "&Create").defaultButton = true;
    add(win::IDCANCEL, ControlKind::PushButton, "Cancel");
    return t;
}

class CTestProjectDlg : public afx::CDialog {
  public:
    CTestProjectDlg() : CDialog(kProjectDialog) {}

    std::string chosenSimulator;
    bool topLevelTouched = false;
    int initCalls = 0;
    bool endInInit = false;
    bool disableLocation = false;
    bool boundFound = false;
    bool unknownIsNull = false;

  protected:
    void DoDataExchange(afx::CDataExchange* dx) override {
        afx::DDX_Control(dx, kName, nameEdit);
        afx::DDX_Control(dx, kTopLevel, topLevelEdit);
        afx::DDX_Control(dx, kSimulator, simulatorList);
    }

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        ++initCalls;
        simulatorList.SetCurSel(0);
        topLevelEdit.SetWindowText("filled.sch");  // the program's own filling
        if (disableLocation) {
            GetDlgItem(kLocation)->EnableWindow(FALSE);  // a control without an object
        }
        boundFound = GetDlgItem(kName) == &nameEdit;
        unknownIsNull = GetDlgItem(999) == nullptr;
        if (endInInit) {
            EndDialog(42);
        }
        nameEdit.SetFocus();
        return FALSE;
    }

    void OnNameChange() {
        std::string name;
        nameEdit.GetWindowText(name);
        if (!topLevelTouched) {
            topLevelEdit.SetWindowText(name.c_str());
        }
    }

    // Only typing by the user, which has the focus, counts.
    void OnTopLevelChange() {
        if (GetFocus() == &topLevelEdit) {
            topLevelTouched = true;
        }
    }

    void OnSimulatorChange() {
        simulatorList.GetLBText(simulatorList.GetCurSel(), chosenSimulator);
    }

    void OnOK() override {
        std::string name;
        nameEdit.GetWindowText(name);
        if (name.empty()) {
            win::MessageBox(m_hWnd, "Please specify a valid project name.\n\n", "Velorand",
                            win::MB_ICONEXCLAMATION);
            GotoDlgCtrl(&nameEdit);
            return;
        }
        CDialog::OnOK();
    }

    void OnCloseTwice() {
        EndDialog(5);
        EndDialog(6);
    }

    void OnSelfDestroy() { DestroyWindow(); }

    // Closes the dialog through another handler while this one runs, then goes on.
    void OnNested() {
        SendMessage(win::WM_COMMAND, win::IDCANCEL, 0);
        EndDialog(7);
        GetDlgItem(kName)->EnableWindow(FALSE);
    }

    afx::CEdit nameEdit;
    afx::CEdit topLevelEdit;
    afx::CComboBox simulatorList;

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestProjectDlg, afx::CDialog)
ON_EN_CHANGE(kName, OnNameChange)
ON_EN_CHANGE(kTopLevel, OnTopLevelChange)
ON_CBN_SELCHANGE(kSimulator, OnSimulatorChange)
ON_BN_CLICKED(kCloseTwice, OnCloseTwice)
ON_BN_CLICKED(kSelfDestroy, OnSelfDestroy)
ON_BN_CLICKED(kNested, OnNested)
END_MESSAGE_MAP()

class DialogTest : public ::testing::Test {
  protected:
    DialogTest() { win::RegisterDialogResource(kModule, kProjectDialog, ProjectTemplate()); }
    ~DialogTest() override { win::UnregisterResources(kModule); }
};

TEST_F(DialogTest, TheUserWorksTheDialogThroughItsOwnHandlers) {
    velorand::testing::ScriptedUser user;
    user.OnDialog("New Project")
        .Inspect([](ModalDialog& d) {
            EXPECT_EQ(d.FocusId(), kName);
            EXPECT_EQ(d.Text(kTopLevel), "filled.sch");
            EXPECT_EQ(d.Text(kSimulator), "Quintaris");
        })
        .Type(kName, "amp")
        .Inspect([](ModalDialog& d) { EXPECT_EQ(d.Text(kTopLevel), "amp"); })
        .Type(kName, "")
        .Click(win::IDOK)  // refused: the name is empty
        .Inspect([](ModalDialog& d) {
            EXPECT_FALSE(d.Ended());
            EXPECT_EQ(d.FocusId(), kName);
        })
        .Type(kTopLevel, "top.sch")
        .Type(kName, "lna")
        .Choose(kSimulator, "lumentra")
        .Click(kSkip)
        .Click(kArchive)
        .Click(win::IDOK);
    user.AnswerWhen("valid project name", win::IDOK);

    CTestProjectDlg dialog;
    EXPECT_EQ(dialog.DoModal(), win::IDOK);
    EXPECT_EQ(dialog.initCalls, 1);
    EXPECT_TRUE(dialog.topLevelTouched);
    EXPECT_EQ(dialog.chosenSimulator, "Lumentra");
    EXPECT_EQ(dialog.m_hWnd, nullptr);

    ASSERT_EQ(user.Record().size(), 2u);
    const win::SeatRecord& record = user.Record()[0];
    EXPECT_EQ(record.kind, win::SeatRecord::Kind::Dialog);
    EXPECT_EQ(record.caption, "New Project");
    EXPECT_EQ(record.resourceId, static_cast<int>(kProjectDialog));
    EXPECT_EQ(record.answer, win::IDOK);
    EXPECT_EQ(record.acts.front(), "type 456 amp");
    EXPECT_EQ(record.acts.back(), "click 1");
    // The controls as they stood at the end: the name typed last, the top level kept
    // after the user typed in it, one radio button of the group.
    auto control = [&](int id) {
        for (const win::ControlView& c : record.controls)
            if (c.id == id)
                return c;
        return win::ControlView{};
    };
    EXPECT_EQ(control(kName).text, "lna");
    EXPECT_EQ(control(kTopLevel).text, "top.sch");
    EXPECT_TRUE(control(kSkip).checked);
    EXPECT_FALSE(control(kCopy).checked);
    EXPECT_TRUE(control(kArchive).checked);
    EXPECT_EQ(control(kSimulator).selection, 1);
    EXPECT_EQ(user.Record()[1].text, "Please specify a valid project name.\n\n");
}

TEST_F(DialogTest, TheCancelKeyRunsOnCancelAndTheDialogCanRunAgain) {
    velorand::testing::ScriptedUser user;
    user.OnDialog(kProjectDialog).Type(kName, "x").Cancel();
    user.OnDialog().Click(win::IDCANCEL);
    CTestProjectDlg dialog;
    EXPECT_EQ(dialog.DoModal(), win::IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), win::IDCANCEL);
    EXPECT_EQ(dialog.initCalls, 2);
}

TEST_F(DialogTest, TheFirstEndDecidesAndAHandlerMayCloseTheDialogUnderAnother) {
    velorand::testing::ScriptedUser user;
    user.OnDialog().Click(kCloseTwice);
    user.OnDialog().Click(kNested);
    CTestProjectDlg first;
    EXPECT_EQ(first.DoModal(), 5);
    CTestProjectDlg second;
    EXPECT_EQ(second.DoModal(), win::IDCANCEL);
}

TEST_F(DialogTest, ADialogDestroyedByItsHandlerEndsWithMinusOne) {
    velorand::testing::ScriptedUser user;
    user.OnDialog().Click(kSelfDestroy);
    CTestProjectDlg dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(user.Record()[0].caption, "New Project");
}

TEST_F(DialogTest, ADialogEndedDuringItsSetUpIsNeverShown) {
    velorand::testing::ScriptedUser user;
    CTestProjectDlg dialog;
    dialog.endInInit = true;
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(user.Record().empty());
}

TEST_F(DialogTest, WhatTheScriptCannotDoIsAFailureThatNamesTheDialog) {
    win::ScriptedAgent user;
    win::UserAgent* before = win::SetUserAgent(&user);
    user.OnDialog().Click(999);                         // no such control
    user.OnDialog().Choose(kSimulator, "Spectre");      // no such item
    user.OnDialog().Type(kName, "amp");                 // left open
    user.OnDialog().Click(win::IDCANCEL).Click(kName);  // ended before the last act
    for (int run = 0; run < 5; ++run) {                 // the last has no script at all
        CTestProjectDlg dialog;
        EXPECT_EQ(dialog.DoModal(), win::IDCANCEL) << run;
    }
    win::SetUserAgent(before);
    ASSERT_EQ(user.Failures().size(), 5u);
    EXPECT_EQ(user.Failures()[0], "dialog \"New Project\" (resource 900): refused \"click 999\"");
    EXPECT_EQ(user.Failures()[1],
              "dialog \"New Project\" (resource 900): refused \"choose 458 Spectre\"");
    EXPECT_EQ(user.Failures()[2],
              "dialog \"New Project\" (resource 900): still open at the end of its script");
    EXPECT_EQ(user.Failures()[3],
              "dialog \"New Project\" (resource 900): ended before \"click 456\"");
    EXPECT_EQ(user.Failures()[4], "dialog \"New Project\" (resource 900): no script left");
    for (const win::SeatRecord& record : user.Record()) {
        EXPECT_FALSE(record.answered);
    }
}

TEST_F(DialogTest, ControlsByIdWithOrWithoutAnObject) {
    velorand::testing::ScriptedUser user;
    user.OnDialog()
        .Inspect([](ModalDialog& d) {
            EXPECT_FALSE(d.Control(kLocation)->enabled);
            EXPECT_FALSE(d.Type(kLocation, "D:\\"));
            EXPECT_EQ(d.Text(kLocation), "C:\\work");
        })
        .Cancel();
    CTestProjectDlg dialog;
    dialog.disableLocation = true;
    dialog.DoModal();
    EXPECT_TRUE(dialog.boundFound);
    EXPECT_TRUE(dialog.unknownIsNull);
    EXPECT_EQ(dialog.GetDlgItem(kName), nullptr);  // the window is gone
}

TEST_F(DialogTest, AMissingResourceCannotRun) {
    velorand::testing::ScriptedUser user;
    afx::CDialog dialog(12345);
    EXPECT_EQ(dialog.DoModal(), -1);
}

}  // namespace
