// Plays the actions of a script on the host, one at a time, and writes what each did to
// the transcript. After each action the host's message loop runs until nothing is
// queued, as it would between two acts of a person.
#pragma once

#include <string>

#include "app/program/script.h"

namespace afx {
class CDocument;
}

namespace velorand::program {

class ProgramHost;
class Seat;
class Transcript;

class Player {
  public:
    enum class Outcome {
        Done,     // the action has been done
        Failed,   // it failed, or a question in it went unanswered: "error: ..." says why
        Quit,     // the script ends here
        Crashed,  // an exception ended the host's message loop: the host is dying
    };

    // With `echo` each action is written first, as "> <action>".
    Player(ProgramHost& host, Seat& seat, Transcript& transcript, bool echo);

    Outcome Play(const Action& action);

  private:
    // Each returns false with the reason in `error`.
    bool OpenProject(const Action& action, std::string& error);
    bool CloseProject(std::string& error);
    bool OpenDocument(const Action& action, std::string& error);
    bool CloseDocument(const Action& action, std::string& error);
    bool SaveDocument(const Action& action, std::string& error);
    bool Edit(const Action& action, std::string& error);
    bool Command(const Action& action, std::string& error);
    bool Notify(const Action& action, std::string& error);
    bool Answer(const Action& action, std::string& error);
    bool Tree(std::string& error);
    bool Show(const Action& action, std::string& error);
    bool Expect(const Action& action, std::string& error);

    // The platform path of a path of the script.
    std::string PlatformPath(const std::string& path) const;
    // The open host document of a path of the script; null with the reason in `error`.
    afx::CDocument* Document(const std::string& path, std::string& error) const;

    ProgramHost& host_;
    Seat& seat_;
    Transcript& transcript_;
    bool echo_;
};

}  // namespace velorand::program
