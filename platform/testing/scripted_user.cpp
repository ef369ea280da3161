#include "platform/testing/scripted_user.h"

#include <gtest/gtest.h>

#include <string>

namespace velorand::testing {

ScriptedUser::ScriptedUser() : before_(win::SetUserAgent(this)) {}

ScriptedUser::~ScriptedUser() {
    win::SetUserAgent(before_);
    for (const std::string& failure : Failures()) {
        ADD_FAILURE() << "The scripted user: " << failure;
    }
    for (const std::string& unused : Unused()) {
        ADD_FAILURE() << "Nothing asked for the scripted user's " << unused;
    }
}

}  // namespace velorand::testing
