#include "app/program/session.h"

#include <cstdlib>

#include "app/program/command_line.h"

namespace velorand::program {

Session::Session(const std::string& baseFolder, std::vector<win::BatchAgent::Rule> rules,
                 bool console, bool echo)
    : transcript_(stdout, baseFolder),
      seat_(transcript_, std::move(rules), console),
      host_(transcript_),
      player_(host_, seat_, transcript_, echo) {}

bool Session::Start() {
    std::string error;
    if (!host_.Start(error)) {
        transcript_.Write("error", error);
        return false;
    }
    host_.Pump();
    return true;
}

bool Session::PlayOne(const Action& action, bool& quit) {
    switch (player_.Play(action)) {
        case Player::Outcome::Done:
            return true;
        case Player::Outcome::Failed:
            return false;
        case Player::Outcome::Quit:
            quit = true;
            return true;
        case Player::Outcome::Crashed:
            break;
    }
    transcript_.Write("error",
                      "line " + std::to_string(action.line) + ": the host ended by an exception");
    std::fflush(stdout);
    std::fflush(stderr);
    std::_Exit(kExitFailure);
}

bool Session::PlayAll(const std::vector<Action>& actions) {
    bool quit = false;
    for (const Action& action : actions) {
        if (!PlayOne(action, quit)) {
            return false;
        }
        if (quit) {
            break;
        }
    }
    return true;
}

bool Session::PlayLines(std::FILE* in, bool prompt) {
    bool allDone = true;
    bool quit = false;
    char* buffer = nullptr;
    std::size_t capacity = 0;
    for (int line = 1; !quit; ++line) {
        if (prompt) {
            std::fputs("velorand> ", stderr);
            std::fflush(stderr);
        }
        const ssize_t length = getline(&buffer, &capacity, in);
        if (length < 0) {
            break;
        }
        std::string text(buffer, static_cast<std::size_t>(length));
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
            text.pop_back();
        }
        std::string error;
        std::optional<Action> action = ParseAction(text, line, error);
        if (!error.empty()) {
            transcript_.Write("error", "line " + std::to_string(line) + ": " + error);
            allDone = false;
        } else if (action && !PlayOne(*action, quit)) {
            allDone = false;
        }
    }
    std::free(buffer);
    return allDone;
}

bool Session::End() {
    const int unanswered = seat_.Unanswered();
    host_.End();
    return seat_.Unanswered() == unanswered;
}

}  // namespace velorand::program
