#include "platform/win/user_name.h"

#include <pwd.h>
#include <unistd.h>

#include <string>

#include "platform/testing/sandbox.h"

#include "platform/win/last_error.h"

namespace win {
namespace {

using UserNameTest = velorand::testing::SandboxTest;

TEST_F(UserNameTest, FollowsThePlatformsBufferRules) {
    char name[257];
    DWORD size = sizeof name;
    ASSERT_TRUE(GetUserName(name, &size));
    EXPECT_EQ(size, std::string(name).size() + 1);
    if (passwd* entry = getpwuid(geteuid())) {
        EXPECT_EQ(std::string(name), entry->pw_name);
    }

    DWORD needed = size;
    char small[1] = {'x'};
    size = needed - 1;
    EXPECT_FALSE(GetUserName(small, &size));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(size, needed);
    EXPECT_EQ(small[0], 'x');
    EXPECT_FALSE(GetUserName(name, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace win
