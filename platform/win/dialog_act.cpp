#include "platform/win/dialog_act.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include "platform/win/message_box.h"

namespace win {

namespace {

struct Word {
    const char* name;
    DialogAct::Kind kind;
    bool takesId;
    bool takesText;
};

constexpr Word kWords[] = {
    {"focus", DialogAct::Kind::Focus, true, false},
    {"type", DialogAct::Kind::Type, true, true},
    {"click", DialogAct::Kind::Click, true, false},
    {"choose", DialogAct::Kind::Choose, true, true},
    {"cancel", DialogAct::Kind::Cancel, false, false},
};

// Splits the next blank-separated word off `rest`, leaving one blank eaten behind it so
// that a text argument keeps its own leading blanks past the first.
std::string NextWord(std::string& rest) {
    std::size_t start = rest.find_first_not_of(" \t");
    if (start == std::string::npos) {
        rest.clear();
        return {};
    }
    std::size_t end = rest.find_first_of(" \t", start);
    std::string word = rest.substr(start, end - start);
    rest = end == std::string::npos ? std::string() : rest.substr(end + 1);
    return word;
}

std::optional<int> ParseId(const std::string& word) {
    if (word.empty()) {
        return std::nullopt;
    }
    errno = 0;
    char* end = nullptr;
    long value = std::strtol(word.c_str(), &end, 10);
    if (*end != '\0' || errno == ERANGE || value < INT_MIN || value > INT_MAX) {
        return std::nullopt;
    }
    return static_cast<int>(value);
}

}  // namespace

std::optional<DialogAct> ParseDialogAct(const std::string& line, std::string& error) {
    std::string rest = line;
    if (!rest.empty() && rest.back() == '\r') {
        rest.pop_back();
    }
    const std::string name = NextWord(rest);
    if (name == "ok") {
        return DialogAct{DialogAct::Kind::Click, IDOK, {}};
    }
    for (const Word& word : kWords) {
        if (name != word.name) {
            continue;
        }
        DialogAct act{word.kind, 0, {}};
        if (word.takesId) {
            const std::string idWord = NextWord(rest);
            std::optional<int> id = ParseId(idWord);
            if (!id) {
                error = "'" + name + "' needs a control id, not '" + idWord + "'";
                return std::nullopt;
            }
            act.id = *id;
        }
        if (word.takesText) {
            act.text = rest;
        }
        return act;
    }
    error = "unknown command '" + name + "'";
    return std::nullopt;
}

std::string FormatDialogAct(const DialogAct& act) {
    for (const Word& word : kWords) {
        if (word.kind != act.kind) {
            continue;
        }
        std::string line = word.name;
        if (word.takesId) {
            line += ' ' + std::to_string(act.id);
        }
        if (word.takesText) {
            line += ' ' + act.text;
        }
        return line;
    }
    return {};
}

bool PerformDialogAct(ModalDialog& dialog, const DialogAct& act) {
    switch (act.kind) {
        case DialogAct::Kind::Focus:
            return dialog.Focus(act.id);
        case DialogAct::Kind::Type:
            return dialog.Type(act.id, act.text);
        case DialogAct::Kind::Click:
            return dialog.Click(act.id);
        case DialogAct::Kind::Choose:
            return dialog.Choose(act.id, act.text);
        case DialogAct::Kind::Cancel:
            dialog.Escape();
            return true;
    }
    return false;
}

}  // namespace win
