// The user's seat. Every message box and every modal dialog of the process is put to one
// agent, which answers as a user would: a scripted agent in tests, a console agent on a
// terminal, a batch agent from rules given on the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win/types.h"

namespace win {

// The kinds of dialog control that a user can see and work.
enum class ControlKind {
    PushButton,
    CheckBox,
    RadioButton,
    Edit,
    Static,
    ComboBox,
    GroupBox,
    Other,  // a control of another class, which an agent can only look at
};

// One control of a dialog as the user sees it.
struct ControlView {
    int id = 0;
    ControlKind kind = ControlKind::Static;
    std::string text;  // caption, or the edit's or combo box's text
    bool enabled = true;
    bool checked = false;            // check boxes and radio buttons
    std::vector<std::string> items;  // combo boxes: the list, in order
    int selection = -1;              // combo boxes: the selected item, -1 for none
};

// The word of a kind ("button", "check", "radio", "edit", "static", "combo", "group",
// "control").
const char* ControlKindName(ControlKind kind);

// A modal dialog while it runs, as the agent works it. Each act goes through the
// dialog's messages, so that the dialog's own handlers run as they would for a person.
// An act on an unknown, disabled or unfit control does nothing and answers false.
class ModalDialog {
  public:
    virtual ~ModalDialog() = default;

    virtual int ResourceId() const = 0;
    virtual std::string Caption() const = 0;
    virtual std::vector<ControlView> Controls() const = 0;
    // The id of the control with the keyboard focus, 0 when no control has it.
    virtual int FocusId() const = 0;
    virtual bool Ended() const = 0;
    // The code the dialog ended with; meaningful once Ended().
    virtual int Result() const = 0;

    // Moves the keyboard focus to an enabled control.
    virtual bool Focus(int id) = 0;
    // Focuses an edit or combo box and replaces its text, which notifies the dialog.
    virtual bool Type(int id, const std::string& text) = 0;
    // Clicks a button: a check box toggles, a radio button is chosen, then the dialog
    // is told.
    virtual bool Click(int id) = 0;
    // Picks the item with this text in a combo box's list, case ignored.
    virtual bool Choose(int id, const std::string& item) = 0;
    // The cancel key.
    virtual void Escape() = 0;
    // Ends the dialog from outside, when its own ways out refuse.
    virtual void End(int result) = 0;

    // The control with this id, if the dialog has one.
    std::optional<ControlView> Control(int id) const;
    // The text of a control; empty for an unknown id.
    std::string Text(int id) const;
};

// One question put to the agent and what became of it.
struct SeatRecord {
    enum class Kind { MessageBox, Dialog };
    Kind kind = Kind::MessageBox;
    HWND owner = nullptr;  // boxes
    std::string caption;
    std::string text;               // boxes
    UINT flags = 0;                 // boxes: the type as given
    int resourceId = 0;             // dialogs
    int answer = 0;                 // the box's answer, or the code the dialog ended with
    bool answered = true;           // false: the agent had no answer and took the safest way out
    std::vector<std::string> acts;  // dialogs: the user's acts, in the console's words
    std::vector<ControlView> controls;  // dialogs: the controls as they stood at the end
};

class UserAgent {
  public:
    virtual ~UserAgent() = default;
    // Answers a box with one of MessageBoxAnswers(type).
    virtual int AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                              UINT type) = 0;
    // Works a dialog that has been set up; returns when it has ended, or when the agent
    // gives up (GiveUp below), so that a dialog never hangs the process.
    virtual void RunDialog(ModalDialog& dialog) = 0;
};

// The process's agent. Until one is installed it is a batch agent without rules, which
// turns every question down and reports it on the standard error.
UserAgent& GetUserAgent();
// Installs an agent, which the caller keeps alive while it is installed; null restores
// the default. Returns the agent that was installed before, null for the default.
UserAgent* SetUserAgent(UserAgent* agent);

// The safest way out of a dialog: the cancel key, and if the dialog refuses to close,
// an end with IDCANCEL.
void GiveUp(ModalDialog& dialog);

// A box or a dialog in one line, for reports of questions that went wrong: the caption and
// text quoted, line ends shown as \n.
std::string DescribeBox(const std::string& caption, const std::string& text, UINT type);
std::string DescribeDialog(const ModalDialog& dialog);

// A dialog's record as it stands at its end: caption, id, result and controls.
SeatRecord DialogRecord(const ModalDialog& dialog, std::vector<std::string> acts, bool answered);

}  // namespace win
