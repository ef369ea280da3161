#include "app/program/command_line.h"

#include "app/program/script.h"

namespace velorand::program {

namespace {

// The commands and how many targets each takes.
struct CommandSyntax {
    const char* name;
    const char* target;  // null: none
    const char* purpose;
};

constexpr CommandSyntax kCommands[] = {
    {"open", "PROJECT.vpj", "open a project, print its tree, close it"},
    {"shell", "PROJECT.vpj", "open a project and play the actions typed on the terminal"},
    {"run", "SCRIPT", "play a script of host actions and print the transcript"},
    {"demo", nullptr, "play the whole life of the example project amp2 in a temporary folder"},
};

const CommandSyntax* FindCommand(const std::string& name) {
    for (const CommandSyntax& command : kCommands) {
        if (name == command.name) {
            return &command;
        }
    }
    return nullptr;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& words,
                                            std::string& error) {
    CommandLine line;
    std::vector<std::string> positional;
    std::optional<win::BatchAgent::Rule> catchAll;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--help" || word == "-h") {
            return CommandLine{"help", {}, {}, false};
        }
        if (word == "--version") {
            return CommandLine{"version", {}, {}, false};
        }
        if (word == "--yes" || word == "--no") {
            if (catchAll && catchAll->answer != word.substr(2)) {
                error = "--yes and --no exclude each other";
                return std::nullopt;
            }
            catchAll = win::BatchAgent::Rule{"", word.substr(2)};
        } else if (word == "--answer") {
            if (i + 1 == words.size()) {
                error = "--answer needs PATTERN=ANSWER";
                return std::nullopt;
            }
            std::optional<win::BatchAgent::Rule> rule =
                win::BatchAgent::ParseRule(words[++i], error);
            if (!rule) {
                return std::nullopt;
            }
            line.rules.push_back(std::move(*rule));
        } else if (word == "--keep") {
            line.keep = true;
        } else if (word.size() > 1 && word.front() == '-') {
            error = "unknown option " + word;
            return std::nullopt;
        } else {
            positional.push_back(word);
        }
    }
    if (positional.empty()) {
        error = "a command is missing";
        return std::nullopt;
    }
    const CommandSyntax* command = FindCommand(positional.front());
    if (command == nullptr) {
        error = "unknown command " + positional.front();
        return std::nullopt;
    }
    const std::size_t wanted = command->target != nullptr ? 2 : 1;
    if (positional.size() != wanted) {
        error = std::string(command->name) + " takes " +
                (command->target != nullptr ? std::string(command->target) : "no arguments");
        return std::nullopt;
    }
    line.command = command->name;
    if (command->target != nullptr) {
        line.target = positional[1];
    }
    if (catchAll) {
        line.rules.push_back(std::move(*catchAll));
    }
    return line;
}

std::string UsageText() {
    return "usage: velorand [OPTION]... open PROJECT.vpj | shell PROJECT.vpj | run SCRIPT | demo\n"
           "       velorand --help | --version\n";
}

std::string HelpText() {
    std::string text = UsageText() + "\nThe Velorand Project Manager in its reference host.\n\n";
    text += "commands:\n";
    for (const CommandSyntax& command : kCommands) {
        std::string head = std::string(command.name) + " " + (command.target ? command.target : "");
        text += "  " + head + std::string(head.size() < 20 ? 20 - head.size() : 1, ' ') +
                command.purpose + "\n";
    }
    text +=
        "\noptions:\n"
        "  --yes                answer yes to each question that nothing else answers\n"
        "  --no                 answer no to each question that nothing else answers\n"
        "  --answer PAT=ANSWER  answer questions whose caption or text hold PAT; a dialog's\n"
        "                       answer is its acts, separated by ';'\n"
        "  --keep               demo: keep the demo's folder and tell where it is\n"
        "  --help, --version\n"
        "\nQuestions are put to the person at the terminal; without one the options answer\n"
        "them, and a question nobody answers takes its safest answer and fails the run.\n"
        "\nactions of a script (docs/script.md):\n";
    for (const ActionSyntax& action : Actions()) {
        std::string head = std::string(action.name) + (*action.usage ? " " : "") + action.usage;
        text += "  " + head + "\n      " + action.purpose + "\n";
    }
    text +=
        "\nexit codes: 0 success, 1 an action was refused or failed, 2 a malformed command line"
        " or script\n";
    return text;
}

}  // namespace velorand::program
