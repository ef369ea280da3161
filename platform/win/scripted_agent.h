// The user of tests: answers boxes and works dialogs from a script, and records every
// question with its caption, text, flags and the answer it gave.
//
//   win::ScriptedAgent user;
//   win::SetUserAgent(&user);
//   user.AnswerWhen("does not exist", win::IDCANCEL);  // the first box that says so
//   user.Answer(win::IDYES);                            // any other box, in order
//   user.OnDialog("New Project").Type(456, "amp").Click(win::IDOK);
//   ... run the code under test ...
//   user.Record(), user.Failures(), user.Unused()
//
// A question with no answer left is never a hang: it is listed in Failures(), naming the
// box or dialog, and answered the safest way (Cancel, No or OK as the box allows; the
// cancel key for a dialog). A test helper turns those lists into test failures
// (platform/testing/scripted_user.h).
#pragma once

#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "platform/win/dialog_act.h"
#include "platform/win/user_agent.h"

namespace win {

class ScriptedAgent : public UserAgent {
  public:
    // The acts for one dialog, done in order through the dialog's own messages.
    class DialogScript {
      public:
        DialogScript& Focus(int id);
        DialogScript& Type(int id, std::string text);
        DialogScript& Click(int id);
        DialogScript& Choose(int id, std::string item);
        DialogScript& Cancel();
        // Looks at the dialog at this point of the script, e.g. to check a control's
        // text; runs also after the dialog has ended, while its controls still stand.
        DialogScript& Inspect(std::function<void(ModalDialog&)> look);

      private:
        friend class ScriptedAgent;
        struct Step {
            std::optional<DialogAct> act;  // an act, or else the look
            std::function<void(ModalDialog&)> look;
        };
        std::optional<std::string> captionPart;
        std::optional<int> resourceId;
        std::vector<Step> steps;
    };

    // The answer for the next box that no pattern takes.
    ScriptedAgent& Answer(int answer);
    // The answer for the first box whose caption or text holds `pattern`; used once.
    ScriptedAgent& AnswerWhen(std::string pattern, int answer);

    // The script for the next dialog that no other script takes.
    DialogScript& OnDialog();
    // The script for the first dialog whose caption holds `captionPart`.
    DialogScript& OnDialog(std::string captionPart);
    // The script for the first dialog made from this resource.
    DialogScript& OnDialog(int resourceId);

    // Every box and dialog, in the order they came up.
    const std::vector<SeatRecord>& Record() const { return record_; }
    // Questions without an answer, answers that do not fit their box, acts a dialog
    // refused, dialogs left open by their script or ended before it was done.
    const std::vector<std::string>& Failures() const { return failures_; }
    // Answers and scripts that no question took.
    std::vector<std::string> Unused() const;

    int AskMessageBox(HWND owner, const std::string& text, const std::string& caption,
                      UINT type) override;
    void RunDialog(ModalDialog& dialog) override;

  private:
    struct BoxAnswer {
        std::optional<std::string> pattern;
        int answer;
    };

    std::optional<int> TakeAnswer(const std::string& text, const std::string& caption);
    std::optional<DialogScript> TakeScript(const ModalDialog& dialog);
    // Runs the script's steps; false when it went wrong, with the failure recorded.
    bool Play(ModalDialog& dialog, const DialogScript& script, std::vector<std::string>& acts);

    std::list<BoxAnswer> answers_;
    std::list<DialogScript> scripts_;  // a list, so that the references handed out stay
    std::vector<SeatRecord> record_;
    std::vector<std::string> failures_;
};

}  // namespace win
