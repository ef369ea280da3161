#include "app/rule_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/host_messages.h"
#include "app/testing/host_fixture.h"
#include "app/text_document.h"
#include "platform/win/current_directory.h"
#include "platform/win/paths.h"

namespace velorand::host {
namespace {

using RuleCheckTest = testing::HostTest;

TEST(RuleCheckRulesTest, FindsLooseNodesTwiceUsedNamesAndNamelessElements) {
    std::vector<std::string> lines = {"[cell use]",
                                      "use PORT P1 in Z=50",
                                      "use RES R1 in mid R=50",
                                      "use RES r1 mid 0 R=50",
                                      "use CAP C1 Mid dangling C=1pF",
                                      "use CAP C=1pF",
                                      "w titleblk 0 0 0"};
    EXPECT_EQ(CheckRules(lines),
              (std::vector<std::string>{"Element r1: the instance name is used twice.",
                                        "Line 6: the element has no instance name.",
                                        "Node dangling: connected to C1 only."}));
    EXPECT_EQ(RuleCheckReport("C:\\a\\amp.sch", {"Node x: connected to R1 only."}),
              "Electrical rule check of C:\\a\\amp.sch\nQC/ERC\n1 errors\n"
              "Node x: connected to R1 only.\n");
}

TEST(RuleCheckRulesTest, TheExampleProjectsSchematicsAreClean) {
    const std::filesystem::path examples = std::filesystem::path(VELORAND_EXAMPLES_DIR) / "amp2";
    int checked = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(examples)) {
        if (entry.path().extension() != ".sch") {
            continue;
        }
        std::vector<std::string> lines;
        std::string error;
        ASSERT_TRUE(
            CTextDocument::ReadLines(win::PlatformPath(entry.path().string()), lines, error))
            << error;
        EXPECT_EQ(CheckRules(lines), std::vector<std::string>{}) << entry.path();
        ++checked;
    }
    EXPECT_GE(checked, 5);
}

TEST_F(RuleCheckTest, TheViewWritesItsReportIntoTheCurrentFolder) {
    sandbox.Write("amp/v1.0/amp.x.sch",
                  "[schematic2]\nver 40\n[cell use]\nuse PORT P1 in Z=50\nuse RES R1 in out\n");
    std::filesystem::create_directories(sandbox.Posix("work"));
    ASSERT_EQ(win::SetCurrentDirectory(sandbox.Platform("work").c_str()), win::TRUE);
    afx::CDocument* doc = Open("amp/v1.0/amp.x.sch");
    ASSERT_NE(doc, nullptr);
    CHostView* view = ViewOf(doc);

    EXPECT_EQ(view->SendMessage(PM_RULE_CHECK, 0, 0), 1);
    EXPECT_EQ(sandbox.Read("work/amp.erc"),
              "Electrical rule check of " + sandbox.Platform("amp/v1.0/amp.x.sch") +
                  "\nQC/ERC\n1 errors\nNode out: connected to R1 only.\n");
    EXPECT_EQ(view->Events().back(), "rule check report " + sandbox.Platform("work/amp.erc"));

    // The active view is asked first; it refuses while the project is changing it.
    char buffer[kRuleCheckBufferSize] = "";
    EXPECT_EQ(view->SendMessage(PM_RULE_CHECK, 1, reinterpret_cast<win::LPARAM>(buffer)), 1);
    EXPECT_STREQ(buffer, "");
    ProjectNotify lock;
    lock.idFrom = 100;
    lock.code = 304;
    view->SendMessage(win::WM_NOTIFY, 0, reinterpret_cast<win::LPARAM>(&lock));
    EXPECT_EQ(view->SendMessage(PM_RULE_CHECK, 1, reinterpret_cast<win::LPARAM>(buffer)), 0);

    // The run's mode reaches the view through its frame.
    view->GetParentFrame()->SendMessage(PM_RULE_CHECK_MODE, 1, 0);
    view->GetParentFrame()->SendMessage(PM_RULE_CHECK_MODE, 0, 0);
    EXPECT_EQ(view->Events()[view->Events().size() - 2], "rule check mode on");
    EXPECT_EQ(view->Events().back(), "rule check mode off");
}

TEST_F(RuleCheckTest, AReportThatCannotBeWrittenFailsWithItsReason) {
    sandbox.Write("amp/amp.sch", "[schematic2]\nver 40\n");
    sandbox.Write("ro/amp.erc", "old\n");
    std::filesystem::permissions(sandbox.Posix("ro/amp.erc"), std::filesystem::perms::owner_read);
    ASSERT_EQ(win::SetCurrentDirectory(sandbox.Platform("ro").c_str()), win::TRUE);
    afx::CDocument* doc = Open("amp/amp.sch");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(ViewOf(doc)->SendMessage(PM_RULE_CHECK, 0, 0), 0);
    EXPECT_EQ(sandbox.Read("ro/amp.erc"), "old\n");
    EXPECT_EQ(frame->StatusText(),
              "Unable to write the rule check report " + sandbox.Platform("ro/amp.erc") + ".");
}

}  // namespace
}  // namespace velorand::host
