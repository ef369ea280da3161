#include "app/program/seat.h"

#include <algorithm>
#include <vector>

#include "app/program/transcript.h"
#include "platform/win/message_box.h"

namespace velorand::program {

namespace {

// How a box's answer is shown: its word, or its number when it has none.
std::string Shown(int answer) {
    std::string name = win::AnswerName(answer);
    return name.empty() ? std::to_string(answer) : name;
}

}  // namespace

Seat::Seat(Transcript& transcript, std::vector<win::BatchAgent::Rule> rules, bool console)
    : transcript_(transcript),
      console_(console ? std::make_unique<win::ConsoleAgent>(stdin, stderr) : nullptr),
      batch_(std::move(rules)) {
    before_ = win::SetUserAgent(this);
}

Seat::~Seat() {
    win::SetUserAgent(before_);
}

bool Seat::QueueAnswer(const std::string& word) {
    const int answer = win::AnswerFromName(word);
    if (answer == 0) {
        return false;
    }
    answers_.push_back(answer);
    return true;
}

int Seat::AskMessageBox(win::HWND owner, const std::string& text, const std::string& caption,
                        win::UINT type) {
    const std::vector<int> allowed = win::MessageBoxAnswers(type);
    int answer = 0;
    std::string note;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
        if (std::find(allowed.begin(), allowed.end(), answer) == allowed.end()) {
            note = " (the script's answer " + Shown(answer) + " does not fit)";
            answer = win::SafestAnswer(type);
            ++unanswered_;
        }
    } else if (console_) {
        answer = console_->AskMessageBox(owner, text, caption, type);
    } else if (allowed.size() == 1) {
        answer = allowed.front();
    } else {
        answer = batch_.AskMessageBox(owner, text, caption, type);
        if (!batch_.Record().back().answered) {
            note = " (unanswered)";
            ++unanswered_;
        }
    }
    transcript_.Write("box", transcript_.ShowText(caption) + " | " + transcript_.ShowText(text) +
                                 " -> " + Shown(answer) + note);
    return answer;
}

void Seat::RunDialog(win::ModalDialog& dialog) {
    std::string note;
    if (console_) {
        console_->RunDialog(dialog);
    } else {
        batch_.RunDialog(dialog);
        if (!batch_.Record().back().answered) {
            note = " (unanswered)";
            ++unanswered_;
        }
    }
    transcript_.Write(
        "dialog", transcript_.ShowText(dialog.Caption()) + " -> " + Shown(dialog.Result()) + note);
}

}  // namespace velorand::program
