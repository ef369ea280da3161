#include "platform/win/console_agent.h"

#include <cctype>
#include <cstdlib>
#include <vector>

#include "platform/win/dialog_act.h"
#include "platform/win/message_box.h"
#include "platform/win/strings.h"

namespace win {

namespace {

constexpr const char* kDialogHelp =
    "acts: focus <id> | type <id> <text> | click <id> | choose <id> <item> | ok | cancel"
    " | show\n";

std::string Trimmed(const std::string& text) {
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string::npos) {
        return {};
    }
    return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

// The allowed answer that `word` names in full or by a beginning that no other allowed
// answer shares, case ignored; 0 for none.
int PickAnswer(const std::vector<int>& allowed, const std::string& word) {
    std::string lower = ToLower(word);
    if (lower.empty()) {
        return 0;
    }
    int picked = 0;
    int matches = 0;
    for (int answer : allowed) {
        const std::string name = AnswerName(answer);
        if (name == lower) {
            return answer;
        }
        if (name.compare(0, lower.size(), lower) == 0) {
            picked = answer;
            ++matches;
        }
    }
    return matches == 1 ? picked : 0;
}

}  // namespace

ConsoleAgent::ConsoleAgent(std::FILE* in, std::FILE* out) : in_(in), out_(out) {}

std::optional<std::string> ConsoleAgent::ReadLine() {
    char* buffer = nullptr;
    std::size_t capacity = 0;
    const ssize_t length = getline(&buffer, &capacity, in_);
    std::optional<std::string> line;
    if (length >= 0) {
        line.emplace(buffer, static_cast<std::size_t>(length));
        while (!line->empty() && (line->back() == '\n' || line->back() == '\r')) {
            line->pop_back();
        }
    }
    std::free(buffer);
    return line;
}

void ConsoleAgent::Write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), out_);
    std::fflush(out_);
}

int ConsoleAgent::AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                                UINT type) {
    const std::vector<int> allowed = MessageBoxAnswers(type);
    std::string choices;
    for (int answer : allowed) {
        choices += (choices.empty() ? "" : "/") + AnswerName(answer);
    }
    Write("[" + caption + "]\n" + text + (text.empty() || text.back() != '\n' ? "\n" : ""));
    for (;;) {
        Write("(" + choices + ")? ");
        std::optional<std::string> line = ReadLine();
        if (!line) {
            Write("\n");
            return SafestAnswer(type);
        }
        if (int answer = PickAnswer(allowed, Trimmed(*line)); answer != 0) {
            return answer;
        }
        Write("Please answer " + choices + ".\n");
    }
}

void ConsoleAgent::ShowDialog(const ModalDialog& dialog) {
    std::string listing = "[" + dialog.Caption() + "]\n";
    const int focus = dialog.FocusId();
    for (const ControlView& control : dialog.Controls()) {
        std::string line = control.id == focus ? "* " : "  ";
        line += std::to_string(control.id) + " " + ControlKindName(control.kind);
        if (control.kind == ControlKind::CheckBox || control.kind == ControlKind::RadioButton) {
            line += control.checked ? " [x]" : " [ ]";
        }
        line += " \"" + control.text + "\"";
        if (control.kind == ControlKind::ComboBox) {
            std::string items;
            for (const std::string& item : control.items) {
                items += (items.empty() ? "" : " | ") + item;
            }
            line += " (" + items + ")";
        }
        if (!control.enabled) {
            line += " disabled";
        }
        listing += line + "\n";
    }
    Write(listing);
}

void ConsoleAgent::RunDialog(ModalDialog& dialog) {
    ShowDialog(dialog);
    Write(kDialogHelp);
    while (!dialog.Ended()) {
        Write("> ");
        std::optional<std::string> line = ReadLine();
        if (!line) {
            Write("\n");
            break;
        }
        const std::string trimmed = Trimmed(*line);
        if (trimmed.empty()) {
            continue;
        }
        if (trimmed == "show") {
            ShowDialog(dialog);
            continue;
        }
        std::string error;
        std::optional<DialogAct> act = ParseDialogAct(*line, error);
        if (!act) {
            Write(error + "\n" + kDialogHelp);
        } else if (!PerformDialogAct(dialog, *act)) {
            Write("Control " + std::to_string(act->id) + " cannot take \"" + FormatDialogAct(*act) +
                  "\".\n");
        }
    }
    GiveUp(dialog);
}

}  // namespace win
