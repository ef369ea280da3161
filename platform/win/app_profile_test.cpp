#include "platform/win/app_profile.h"

#include <stdlib.h>

#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"

namespace win {
namespace {

using velorand::testing::ReadFile;
using velorand::testing::SandboxTest;

using AppProfileTest = SandboxTest;

TEST_F(AppProfileTest, NumbersAndStringsRoundTrip) {
    EXPECT_EQ(GetProfileInt("Project", "SkipNetlist", 1), 1u);
    EXPECT_TRUE(WriteProfileInt("Project", "SkipNetlist", 0));
    EXPECT_TRUE(WriteProfileInt("Pane", "DockID", -59419));
    EXPECT_TRUE(WriteProfileString("Pane", "FloatAt", "10,20"));
    EXPECT_EQ(GetProfileInt("project", "skipnetlist", 1), 0u);
    EXPECT_EQ(static_cast<int>(GetProfileInt("Pane", "DockID", 0)), -59419);

    char buffer[32];
    EXPECT_EQ(GetProfileString("Pane", "FloatAt", "", buffer, sizeof buffer), 5u);
    EXPECT_EQ(std::string(buffer), "10,20");
    EXPECT_EQ(GetProfileString("Pane", "Missing", "none", buffer, sizeof buffer), 4u);
    EXPECT_EQ(ReadFile(AppProfilePath()),
              "[Project]\nSkipNetlist=0\n[Pane]\nDockID=-59419\nFloatAt=10,20\n");
}

TEST_F(AppProfileTest, ProfileLivesWhereTheEnvironmentSays) {
    EXPECT_EQ(AppProfilePath(), (sandbox.Root() / "config" / "velorand.ini").string());

    // Without VELORAND_PROFILE it lies in the configuration folder, made at the first write.
    std::string home = (sandbox.Root() / "home").string();
    std::string xdg = (sandbox.Root() / "xdg").string();
    unsetenv("VELORAND_PROFILE");
    unsetenv("VELORAND_REGISTRY");
    setenv("XDG_CONFIG_HOME", xdg.c_str(), 1);
    EXPECT_EQ(AppProfilePath(), xdg + "/velorand/velorand.ini");
    EXPECT_TRUE(WriteProfileString("Settings", "ShowCmd", "3"));
    EXPECT_EQ(ReadFile(xdg + "/velorand/velorand.ini"), "[Settings]\nShowCmd=3\n");

    const char* oldHome = getenv("HOME");
    std::string savedHome = oldHome ? oldHome : "";
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", home.c_str(), 1);
    EXPECT_EQ(AppProfilePath(), home + "/.config/velorand/velorand.ini");
    EXPECT_EQ(RegistryPath(), home + "/.config/velorand/registry.ini");
    if (oldHome)
        setenv("HOME", savedHome.c_str(), 1);
    else
        unsetenv("HOME");
}

}  // namespace
}  // namespace win
