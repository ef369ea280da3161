#include "platform/win/scripted_agent.h"

#include <algorithm>
#include <utility>

#include "platform/win/message_box.h"

namespace win {

namespace {

// Takes the first entry that `matches`, else the first entry without a match rule.
template <class Entry, class Specific, class Matches>
std::optional<Entry> TakeFirst(std::list<Entry>& entries, Specific specific, Matches matches) {
    auto found = std::find_if(entries.begin(), entries.end(),
                              [&](const Entry& e) { return specific(e) && matches(e); });
    if (found == entries.end()) {
        found = std::find_if(entries.begin(), entries.end(),
                             [&](const Entry& e) { return !specific(e); });
    }
    if (found == entries.end()) {
        return std::nullopt;
    }
    Entry entry = std::move(*found);
    entries.erase(found);
    return entry;
}

}  // namespace

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Focus(int id) {
    steps.push_back({DialogAct{DialogAct::Kind::Focus, id, {}}, {}});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Type(int id, std::string text) {
    steps.push_back({DialogAct{DialogAct::Kind::Type, id, std::move(text)}, {}});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Click(int id) {
    steps.push_back({DialogAct{DialogAct::Kind::Click, id, {}}, {}});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Choose(int id, std::string item) {
    steps.push_back({DialogAct{DialogAct::Kind::Choose, id, std::move(item)}, {}});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Cancel() {
    steps.push_back({DialogAct{DialogAct::Kind::Cancel, 0, {}}, {}});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::DialogScript::Inspect(
    std::function<void(ModalDialog&)> look) {
    steps.push_back({std::nullopt, std::move(look)});
    return *this;
}

ScriptedAgent& ScriptedAgent::Answer(int answer) {
    answers_.push_back({std::nullopt, answer});
    return *this;
}

ScriptedAgent& ScriptedAgent::AnswerWhen(std::string pattern, int answer) {
    answers_.push_back({std::move(pattern), answer});
    return *this;
}

ScriptedAgent::DialogScript& ScriptedAgent::OnDialog() {
    return scripts_.emplace_back();
}

ScriptedAgent::DialogScript& ScriptedAgent::OnDialog(std::string captionPart) {
    DialogScript& script = scripts_.emplace_back();
    script.captionPart = std::move(captionPart);
    return script;
}

ScriptedAgent::DialogScript& ScriptedAgent::OnDialog(int resourceId) {
    DialogScript& script = scripts_.emplace_back();
    script.resourceId = resourceId;
    return script;
}

std::vector<std::string> ScriptedAgent::Unused() const {
    std::vector<std::string> unused;
    for (const BoxAnswer& a : answers_) {
        unused.push_back("answer " + AnswerName(a.answer) +
                         (a.pattern ? " for a box holding \"" + *a.pattern + "\"" : ""));
    }
    for (const DialogScript& s : scripts_) {
        std::string which = "the next dialog";
        if (s.captionPart) {
            which = "a dialog titled \"" + *s.captionPart + "\"";
        } else if (s.resourceId) {
            which = "dialog resource " + std::to_string(*s.resourceId);
        }
        unused.push_back("script for " + which);
    }
    return unused;
}

std::optional<int> ScriptedAgent::TakeAnswer(const std::string& text, const std::string& caption) {
    std::optional<BoxAnswer> taken = TakeFirst(
        answers_, [](const BoxAnswer& a) { return a.pattern.has_value(); },
        [&](const BoxAnswer& a) {
            return caption.find(*a.pattern) != std::string::npos ||
                   text.find(*a.pattern) != std::string::npos;
        });
    if (!taken) {
        return std::nullopt;
    }
    return taken->answer;
}

std::optional<ScriptedAgent::DialogScript> ScriptedAgent::TakeScript(const ModalDialog& dialog) {
    const std::string caption = dialog.Caption();
    const int resourceId = dialog.ResourceId();
    return TakeFirst(
        scripts_, [](const DialogScript& s) { return s.captionPart || s.resourceId; },
        [&](const DialogScript& s) {
            return s.captionPart ? caption.find(*s.captionPart) != std::string::npos
                                 : *s.resourceId == resourceId;
        });
}

int ScriptedAgent::AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                                 UINT type) {
    SeatRecord record;
    record.owner = owner;
    record.caption = caption;
    record.text = text;
    record.flags = type;
    const std::vector<int> allowed = MessageBoxAnswers(type);
    std::optional<int> answer = TakeAnswer(text, caption);
    if (!answer) {
        failures_.push_back(DescribeBox(caption, text, type) + ": no answer left");
    } else if (std::find(allowed.begin(), allowed.end(), *answer) == allowed.end()) {
        failures_.push_back(DescribeBox(caption, text, type) + ": the answer " +
                            AnswerName(*answer) + " is not one of its buttons");
        answer.reset();
    }
    record.answered = answer.has_value();
    record.answer = answer ? *answer : SafestAnswer(type);
    record_.push_back(std::move(record));
    return record_.back().answer;
}

void ScriptedAgent::RunDialog(ModalDialog& dialog) {
    // The place in the record is taken now, so that boxes the dialog shows come after it.
    const std::size_t place = record_.size();
    record_.emplace_back();
    std::vector<std::string> acts;
    std::optional<DialogScript> script = TakeScript(dialog);
    bool answered = false;
    if (!script) {
        failures_.push_back(DescribeDialog(dialog) + ": no script left");
    } else {
        answered = Play(dialog, *script, acts);
    }
    GiveUp(dialog);
    record_[place] = DialogRecord(dialog, std::move(acts), answered);
}

bool ScriptedAgent::Play(ModalDialog& dialog, const DialogScript& script,
                         std::vector<std::string>& acts) {
    for (const DialogScript::Step& step : script.steps) {
        if (!step.act) {
            step.look(dialog);
            continue;
        }
        const std::string line = FormatDialogAct(*step.act);
        if (dialog.Ended()) {
            failures_.push_back(DescribeDialog(dialog) + ": ended before \"" + line + "\"");
            return false;
        }
        acts.push_back(line);
        if (!PerformDialogAct(dialog, *step.act)) {
            failures_.push_back(DescribeDialog(dialog) + ": refused \"" + line + "\"");
            return false;
        }
    }
    if (!dialog.Ended()) {
        failures_.push_back(DescribeDialog(dialog) + ": still open at the end of its script");
        return false;
    }
    return true;
}

}  // namespace win
