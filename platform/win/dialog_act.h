// One act of a user on a dialog, and the line in which a person or a batch rule writes
// it. The words of a line:
//   focus <id>            put the keyboard focus on a control
//   type <id> <text>      replace the text of an edit or combo box (the rest of the line)
//   click <id>            press a button, toggle a check box, choose a radio button
//   choose <id> <item>    pick an item of a combo box's list by its text
//   cancel                the cancel key
// "ok" stands for "click 1". Every agent records what it did in these words.
#pragma once

#include <optional>
#include <string>

#include "platform/win/user_agent.h"

namespace win {

struct DialogAct {
    enum class Kind { Focus, Type, Click, Choose, Cancel };
    Kind kind = Kind::Cancel;
    int id = 0;
    std::string text;
};

// Reads one line; nothing, with the reason in `error`, when it is not an act.
std::optional<DialogAct> ParseDialogAct(const std::string& line, std::string& error);

// The line of an act.
std::string FormatDialogAct(const DialogAct& act);

// Does the act on the dialog; false when the dialog refused it (an unknown, disabled or
// unfit control).
bool PerformDialogAct(ModalDialog& dialog, const DialogAct& act);

}  // namespace win
