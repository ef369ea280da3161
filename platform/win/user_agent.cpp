#include "platform/win/user_agent.h"

#include <cstdio>

#include "platform/win/batch_agent.h"
#include "platform/win/message_box.h"

namespace win {

namespace {

UserAgent* installed = nullptr;

UserAgent& DefaultAgent() {
    static BatchAgent agent({}, stderr);
    return agent;
}

std::string Quoted(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else {
            out += c;
        }
    }
    return out + '"';
}

}  // namespace

const char* ControlKindName(ControlKind kind) {
    switch (kind) {
        case ControlKind::PushButton:
            return "button";
        case ControlKind::CheckBox:
            return "check";
        case ControlKind::RadioButton:
            return "radio";
        case ControlKind::Edit:
            return "edit";
        case ControlKind::Static:
            return "static";
        case ControlKind::ComboBox:
            return "combo";
        case ControlKind::GroupBox:
            return "group";
        case ControlKind::Other:
            break;
    }
    return "control";
}

std::optional<ControlView> ModalDialog::Control(int id) const {
    for (ControlView& control : Controls()) {
        if (control.id == id) {
            return std::move(control);
        }
    }
    return std::nullopt;
}

std::string ModalDialog::Text(int id) const {
    std::optional<ControlView> control = Control(id);
    return control ? control->text : std::string();
}

UserAgent& GetUserAgent() {
    return installed ? *installed : DefaultAgent();
}

UserAgent* SetUserAgent(UserAgent* agent) {
    UserAgent* before = installed;
    installed = agent;
    return before;
}

void GiveUp(ModalDialog& dialog) {
    if (!dialog.Ended()) {
        dialog.Escape();
    }
    if (!dialog.Ended()) {
        dialog.End(IDCANCEL);
    }
}

std::string DescribeBox(const std::string& caption, const std::string& text, UINT type) {
    char flags[16];
    std::snprintf(flags, sizeof flags, "0x%X", type);
    return "message box " + Quoted(caption) + " " + Quoted(text) + " (flags " + flags + ")";
}

std::string DescribeDialog(const ModalDialog& dialog) {
    return "dialog " + Quoted(dialog.Caption()) + " (resource " +
           std::to_string(dialog.ResourceId()) + ")";
}

SeatRecord DialogRecord(const ModalDialog& dialog, std::vector<std::string> acts, bool answered) {
    SeatRecord record;
    record.kind = SeatRecord::Kind::Dialog;
    record.caption = dialog.Caption();
    record.resourceId = dialog.ResourceId();
    record.answer = dialog.Ended() ? dialog.Result() : 0;
    record.answered = answered;
    record.acts = std::move(acts);
    record.controls = dialog.Controls();
    return record;
}

}  // namespace win
