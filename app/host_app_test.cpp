#include "app/host_app.h"

#include <gtest/gtest.h>

#include "platform/testing/sandbox.h"
#include "platform/testing/scripted_user.h"
#include "platform/win/message_box.h"
#include "platform/win/messages.h"

namespace velorand::host {
namespace {

// Each test has its own library path and profile.
using HostAppTest = testing::SandboxTest;

TEST_F(HostAppTest, LoadsAComponentShowsItsStatusAndRecordsWhatItSends) {
    CHostApp app;
    ASSERT_TRUE(app.CreateMainFrame());
    CMainFrame* frame = app.MainFrame();
    EXPECT_EQ(frame->StatusText(), "Ready");

    std::string error;
    ASSERT_TRUE(app.LoadComponent("velorand_test_component", error)) << error;
    EXPECT_TRUE(app.GetComponent().Loaded());
    EXPECT_EQ(app.GetComponent().Template(), nullptr);
    EXPECT_EQ(frame->StatusText(), "Building Schematic Tree...");
    app.Run();  // the posted command comes now

    const std::vector<HostMessage>& got = frame->Messages();
    ASSERT_EQ(got.size(), 5u);
    EXPECT_EQ(got[0].message, afx::WM_SETMESSAGESTRING);
    EXPECT_EQ(got[0].text, "Building Schematic Tree...");
    EXPECT_EQ(got[2].message, CMainFrame::kShowToolLog);
    EXPECT_EQ(got[2].text, "C:\\amp\\treescan.log");
    EXPECT_EQ(got[3].message, win::WM_MDINEXT);
    EXPECT_TRUE(got[3].toMdiClient);
    EXPECT_EQ(frame->Commands(), (std::vector<win::UINT>{26467, 26454}));
    // Only the command given to the application itself, not those routed to it.
    EXPECT_EQ(app.AppCommands(), std::vector<win::UINT>{26478});

    frame->ClearMessages();
    app.UnloadComponent();
    EXPECT_FALSE(app.GetComponent().Loaded());
    EXPECT_EQ(frame->StatusText(), "Ready");
    EXPECT_EQ(frame->Messages().size(), 1u);
}

TEST_F(HostAppTest, ALibraryThatIsNoComponentIsRefusedAndNothingStaysLoaded) {
    CHostApp app;
    ASSERT_TRUE(app.CreateMainFrame());
    std::string error;
    EXPECT_FALSE(app.LoadComponent("velorand_no_such_component", error));
    EXPECT_EQ(error, "Unable to load the component 'velorand_no_such_component' (error code 7e).");
    EXPECT_FALSE(app.LoadComponent("velorand_sample_tool", error));
    EXPECT_EQ(error,
              "The library 'velorand_sample_tool' is no component: it lacks LinkProjectDll.");
    EXPECT_FALSE(app.GetComponent().Loaded());

    ASSERT_TRUE(app.LoadComponent("velorand_test_component", error));
    EXPECT_FALSE(app.LoadComponent("velorand_test_component", error));
    EXPECT_EQ(error, "A component is loaded already.");
}

TEST_F(HostAppTest, TheFrameworksQuestionsGoToTheUsersSeat) {
    testing::ScriptedUser user;
    user.Answer(win::IDNO);
    CHostApp app;
    ASSERT_TRUE(app.CreateMainFrame());
    EXPECT_EQ(app.DoMessageBox("Save changes to amp.sch?", win::MB_YESNOCANCEL, 0), win::IDNO);
    ASSERT_EQ(user.Record().size(), 1u);
    EXPECT_EQ(user.Record()[0].caption, "Velorand");
    EXPECT_EQ(user.Record()[0].owner, app.MainFrame()->m_hWnd);
}

}  // namespace
}  // namespace velorand::host
