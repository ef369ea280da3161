#include "platform/win/batch_agent.h"

#include <algorithm>
#include <utility>

#include "platform/win/dialog_act.h"
#include "platform/win/message_box.h"

namespace win {

std::optional<BatchAgent::Rule> BatchAgent::ParseRule(const std::string& line, std::string& error) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) {
        error = "an answer rule needs the form pattern=answer: \"" + line + "\"";
        return std::nullopt;
    }
    return Rule{line.substr(0, equals), line.substr(equals + 1)};
}

BatchAgent::BatchAgent(std::vector<Rule> rules, std::FILE* err)
    : rules_(std::move(rules)), err_(err) {}

const BatchAgent::Rule* BatchAgent::FindRule(const std::string& caption,
                                             const std::string& text) const {
    for (const Rule& rule : rules_) {
        if (caption.find(rule.pattern) != std::string::npos ||
            text.find(rule.pattern) != std::string::npos) {
            return &rule;
        }
    }
    return nullptr;
}

void BatchAgent::Fail(std::string failure) {
    if (err_) {
        std::fprintf(err_, "%s\n", failure.c_str());
        std::fflush(err_);
    }
    failures_.push_back(std::move(failure));
}

int BatchAgent::AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                              UINT type) {
    SeatRecord record;
    record.owner = owner;
    record.caption = caption;
    record.text = text;
    record.flags = type;
    record.answered = false;
    record.answer = SafestAnswer(type);
    const std::vector<int> allowed = MessageBoxAnswers(type);
    if (const Rule* rule = FindRule(caption, text); !rule) {
        Fail("No answer was given for the " + DescribeBox(caption, text, type));
    } else if (int answer = AnswerFromName(rule->answer);
               std::find(allowed.begin(), allowed.end(), answer) == allowed.end()) {
        Fail("The answer \"" + rule->answer + "\" does not fit the " +
             DescribeBox(caption, text, type));
    } else {
        record.answered = true;
        record.answer = answer;
    }
    record_.push_back(std::move(record));
    return record_.back().answer;
}

void BatchAgent::RunDialog(ModalDialog& dialog) {
    const std::size_t place = record_.size();
    record_.emplace_back();
    std::vector<std::string> acts;
    bool answered = false;
    if (const Rule* rule = FindRule(dialog.Caption(), {}); !rule) {
        Fail("No answer was given for the " + DescribeDialog(dialog));
    } else if (Play(dialog, rule->answer, acts)) {
        answered = dialog.Ended();
        if (!answered) {
            Fail("The answer \"" + rule->answer + "\" leaves open the " + DescribeDialog(dialog));
        }
    }
    GiveUp(dialog);
    record_[place] = DialogRecord(dialog, std::move(acts), answered);
}

bool BatchAgent::Play(ModalDialog& dialog, const std::string& answer,
                      std::vector<std::string>& acts) {
    std::size_t start = 0;
    while (start <= answer.size() && !dialog.Ended()) {
        std::size_t end = answer.find(';', start);
        if (end == std::string::npos) {
            end = answer.size();
        }
        const std::string line = answer.substr(start, end - start);
        start = end + 1;
        if (line.find_first_not_of(" \t") == std::string::npos) {
            continue;
        }
        std::string error;
        std::optional<DialogAct> act = ParseDialogAct(line, error);
        if (!act) {
            Fail("In the answer to the " + DescribeDialog(dialog) + ": " + error);
            return false;
        }
        acts.push_back(FormatDialogAct(*act));
        if (!PerformDialogAct(dialog, *act)) {
            Fail("The " + DescribeDialog(dialog) + " refused \"" + acts.back() + "\"");
            return false;
        }
    }
    return true;
}

}  // namespace win
