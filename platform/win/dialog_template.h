// A dialog resource made in code: the dialog's caption and its controls, each with its
// id, kind, text and first state. The module that owns a dialog registers it with its
// other resources (RegisterDialogResource in resources.h); the dialog layer makes the
// window and its controls from it.
#pragma once

#include <string>
#include <vector>

#include "platform/win/types.h"
#include "platform/win/user_agent.h"

namespace win {

// Id of a control that the program never addresses (labels, group boxes).
inline constexpr int IDC_STATIC = -1;

struct DialogItemTemplate {
    int id = IDC_STATIC;
    ControlKind kind = ControlKind::Static;
    std::string text;
    bool disabled = false;
    bool checked = false;  // check boxes and radio buttons
    // Radio buttons that stand one after the other form a group, in which one is chosen
    // at a time; a radio button with groupStart begins a new group.
    bool groupStart = false;
    bool defaultButton = false;
    // Style bits added to the kind's own, e.g. CBS_DROPDOWN for a combo box with an edit
    // of its own (the default is a drop-down list) or ES_READONLY.
    DWORD style = 0;
    std::vector<std::string> items;  // combo boxes
    std::string className;           // ControlKind::Other: the window class to make
};

struct DialogTemplate {
    std::string caption;
    std::vector<DialogItemTemplate> items;
};

}  // namespace win
