// The user of a batch run: answers from rules given beforehand, and turns down, clearly,
// every question that no rule answers.
//
// A rule is "pattern=answer". The first rule whose pattern occurs in a box's caption or
// text, case counted, answers it with a word: ok, cancel, yes, no, abort, retry, ignore,
// tryagain, continue. The first rule whose pattern occurs in a dialog's caption works it
// with acts (dialog_act.h) separated by ';', e.g. "New Project=type 456 amp;ok". An empty
// pattern matches every question. Rules are kept, not used up.
//
// A question without a rule, an answer that does not fit, or a dialog the acts leave open
// is a failure: it is recorded, written to the error stream when there is one, and the
// question takes its safest way out. The program ends with exit code 1 when Failed().
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "platform/win/user_agent.h"

namespace win {

class BatchAgent : public UserAgent {
  public:
    struct Rule {
        std::string pattern;
        std::string answer;
    };

    // Reads "pattern=answer", split at the first '='; nothing, with the reason in
    // `error`, for a line without one.
    static std::optional<Rule> ParseRule(const std::string& line, std::string& error);

    // `err`, when not null, is where failures are written as they happen; it stays the
    // caller's.
    explicit BatchAgent(std::vector<Rule> rules, std::FILE* err = nullptr);

    const std::vector<SeatRecord>& Record() const { return record_; }
    const std::vector<std::string>& Failures() const { return failures_; }
    bool Failed() const { return !failures_.empty(); }

    int AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                      UINT type) override;
    void RunDialog(ModalDialog& dialog) override;

  private:
    const Rule* FindRule(const std::string& caption, const std::string& text) const;
    void Fail(std::string failure);
    // Does the rule's acts; false when one is not an act or the dialog refused it.
    bool Play(ModalDialog& dialog, const std::string& answer, std::vector<std::string>& acts);

    std::vector<Rule> rules_;
    std::FILE* err_;
    std::vector<SeatRecord> record_;
    std::vector<std::string> failures_;
};

}  // namespace win
