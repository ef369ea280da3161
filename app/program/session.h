// One run of the program: the transcript on the standard output, the user's seat, the
// reference host with the component, and the player of actions.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "app/program/player.h"
#include "app/program/program_host.h"
#include "app/program/script.h"
#include "app/program/seat.h"
#include "app/program/transcript.h"

namespace velorand::program {

class Session {
  public:
    // `baseFolder`: the folder that relative paths count from, and that the transcript
    // shows paths relative to. See Seat for `rules` and `console`, Player for `echo`.
    Session(const std::string& baseFolder, std::vector<win::BatchAgent::Rule> rules, bool console,
            bool echo);

    // Starts the host; false, with the reason in the transcript, when it can't.
    bool Start();
    // Plays the actions in order up to the first that fails or quits; false when one
    // failed.
    bool PlayAll(const std::vector<Action>& actions);
    // Plays the actions read from `in`, a line each, until its end or "quit"; a line that
    // is no action is reported and passed over. With `prompt` a prompt goes to the
    // standard error before each line. False when an action failed.
    bool PlayLines(std::FILE* in, bool prompt);
    // Ends the host in order: the project is closed, the component unloaded. False when
    // a question on the way went unanswered.
    bool End();

  private:
    // Plays one action; false when it failed. A host that crashed ends the process here,
    // as a host dies: nothing is closed, so that what the crash left stays.
    bool PlayOne(const Action& action, bool& quit);

    Transcript transcript_;
    Seat seat_;
    ProgramHost host_;
    Player player_;
};

}  // namespace velorand::program
