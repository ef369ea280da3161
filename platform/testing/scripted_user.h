// A scripted user for the length of one test: installed when made, removed when gone.
// Every question it could not answer, every act a dialog refused and every answer or
// script that no question took is then a failure of the test, naming the box or dialog.
#pragma once

#include "platform/win/scripted_agent.h"

namespace velorand::testing {

class ScriptedUser : public win::ScriptedAgent {
  public:
    ScriptedUser();
    ~ScriptedUser() override;
    ScriptedUser(const ScriptedUser&) = delete;
    ScriptedUser& operator=(const ScriptedUser&) = delete;

  private:
    win::UserAgent* before_;
};

}  // namespace velorand::testing
