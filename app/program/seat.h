// The user's seat of a session: every message box and dialog is written to the
// transcript with the answer it got. The answer comes from the script's "answer" actions
// first, in order; else from the person at the terminal (the console agent), or, without
// one, from the answer rules of the command line (the batch agent). A box with an OK
// button alone is a notice and needs no answer. A question that nobody answers takes its
// safest way out and is marked unanswered.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/win/batch_agent.h"
#include "platform/win/console_agent.h"
#include "platform/win/user_agent.h"

namespace velorand::program {

class Transcript;

class Seat : public win::UserAgent {
  public:
    // Installs itself as the process's agent until it goes. With `console` the person at
    // the terminal answers what the script doesn't (asked on the standard error); else
    // the rules do.
    Seat(Transcript& transcript, std::vector<win::BatchAgent::Rule> rules, bool console);
    ~Seat() override;
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    // The answer to the next box ("yes", "no", "ok", "cancel", ...); false when the word
    // names no answer.
    bool QueueAnswer(const std::string& word);
    // Questions that went without an answer.
    int Unanswered() const { return unanswered_; }

    int AskMessageBox(win::HWND owner, const std::string& text, const std::string& caption,
                      win::UINT type) override;
    void RunDialog(win::ModalDialog& dialog) override;

  private:
    Transcript& transcript_;
    std::unique_ptr<win::ConsoleAgent> console_;
    win::BatchAgent batch_;
    std::deque<int> answers_;
    int unanswered_ = 0;
    win::UserAgent* before_ = nullptr;
};

}  // namespace velorand::program
