#include "app/program/script.h"

#include <fstream>

namespace velorand::program {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

// Splits the line into words; false with the reason for an unclosed quote.
bool SplitWords(const std::string& text, std::vector<std::string>& words, std::string& error) {
    std::size_t at = 0;
    for (;;) {
        while (at < text.size() && IsBlank(text[at])) {
            ++at;
        }
        if (at == text.size() || text[at] == '#') {
            return true;
        }
        std::string word;
        if (text[at] == '"') {
            for (++at;; ++at) {
                if (at == text.size()) {
                    error = "a quote is not closed";
                    return false;
                }
                if (text[at] == '"') {
                    if (at + 1 < text.size() && text[at + 1] == '"') {
                        word += '"';
                        ++at;
                        continue;
                    }
                    ++at;
                    break;
                }
                word += text[at];
            }
            if (at < text.size() && !IsBlank(text[at]) && text[at] != '#') {
                error = "a quoted word must end at a blank";
                return false;
            }
        } else {
            while (at < text.size() && !IsBlank(text[at])) {
                word += text[at++];
            }
        }
        words.push_back(std::move(word));
    }
}

const ActionSyntax* FindSyntax(const std::string& name) {
    for (const ActionSyntax& syntax : Actions()) {
        if (name == syntax.name) {
            return &syntax;
        }
    }
    return nullptr;
}

}  // namespace

const std::vector<ActionSyntax>& Actions() {
    static const std::vector<ActionSyntax> actions = {
        {"open-project", 1, 1, "PROJECT.vpj", "open a project, closing the one that is open"},
        {"close-project", 0, 0, "", "close the open project"},
        {"open", 1, 1, "FILE", "open a schematic, symbol or netlist in the host"},
        {"close", 1, 1, "FILE", "close a host document as its window's close box does"},
        {"save", 1, 2, "FILE [NEW-FILE]", "save a host document, or save it under a new name"},
        {"edit", 2, 2, "FILE LINE", "run a line of editor commands in a document's view"},
        {"command", 1, 2, "ID [tree]", "send a command to the main window, or to the tree view"},
        {"notify", 3, 5, "FILE|- FROM CODE [OPTION [ARGUMENT]]",
         "send the project a notification from a document's view (- the main window)"},
        {"answer", 1, 1, "yes|no|ok|cancel|...", "the answer to the next question"},
        {"tree", 0, 0, "", "show the project's tree"},
        {"status", 0, 0, "", "show the status line"},
        {"show", 1, 1, "FILE", "show the lines of a file"},
        {"expect", 1, 1, "TEXT", "fail unless a line since the last expect holds the text"},
        {"crash", 0, 1, "[TEXT]", "raise an exception in the host's message loop"},
        {"quit", 0, 0, "", "end the script or the shell here"},
    };
    return actions;
}

std::optional<Action> ParseAction(const std::string& text, int line, std::string& error) {
    error.clear();
    std::vector<std::string> words;
    if (!SplitWords(text, words, error) || words.empty()) {
        return std::nullopt;
    }
    const ActionSyntax* syntax = FindSyntax(words.front());
    if (syntax == nullptr) {
        error = "unknown action \"" + words.front() + "\"";
        return std::nullopt;
    }
    const int count = static_cast<int>(words.size()) - 1;
    if (count < syntax->minArguments || count > syntax->maxArguments) {
        error = std::string("usage: ") + syntax->name + (*syntax->usage ? " " : "") + syntax->usage;
        return std::nullopt;
    }
    Action action{line, words.front(), {words.begin() + 1, words.end()}};
    return action;
}

bool ReadScript(const std::string& path, std::vector<Action>& actions, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "can't read the script " + path;
        return false;
    }
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        std::optional<Action> action = ParseAction(text, line, error);
        if (!error.empty()) {
            error = path + ":" + std::to_string(line) + ": " + error;
            return false;
        }
        if (action) {
            actions.push_back(std::move(*action));
        }
    }
    if (in.bad()) {
        error = "can't read the script " + path;
        return false;
    }
    return true;
}

std::string FormatAction(const Action& action) {
    std::string text = action.name;
    for (const std::string& word : action.arguments) {
        const bool quote = word.empty() || word.find_first_of(" \t\"#") != std::string::npos;
        text += ' ';
        if (!quote) {
            text += word;
            continue;
        }
        text += '"';
        for (char c : word) {
            text += c == '"' ? std::string("\"\"") : std::string(1, c);
        }
        text += '"';
    }
    return text;
}

}  // namespace velorand::program
