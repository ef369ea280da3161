// velorand demo plays the whole life of the example project in a folder of its own.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

namespace fs = std::filesystem;

class DemoTest : public ProgramTest {
  protected:
    // The demo's folders left in the temporary folder.
    int DemoFolders() const {
        int count = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(sandbox.Root() / "tmp")) {
            count += entry.path().filename().string().starts_with("velorand-demo-");
        }
        return count;
    }
};

// The index of the first line from `from` on that holds the text; lines.size() if none.
std::size_t Find(const std::vector<std::string>& lines, const std::string& text, std::size_t from) {
    for (std::size_t i = from; i < lines.size(); ++i) {
        if (lines[i].find(text) != std::string::npos) {
            return i;
        }
    }
    return lines.size();
}

TEST_F(DemoTest, TheDemoShowsTheWholeLifeOfTheExampleInOrder) {
    // The person's own settings have no simulators: the demo brings its own.
    WriteFile(sandbox.Root() / "config" / "registry.ini", "");
    Finished demo = Run({"demo"});
    ASSERT_EQ(demo.exitCode, 0) << demo.out << demo.err;

    const std::vector<std::string> lines = Lines(demo.out);
    std::size_t at = 0;
    for (const char* step : {
             "> open-project amp2/amp2.vpj",
             "status: Building Schematic Tree...",
             "command: 26477",
             "tree:",
             "      stage  [X1]",
             "    design_notes - [Info]",
             "> edit amp2/amp2.sch",
             "> notify amp2/amp2.sch 105 303",
             "status: Netlisting...",
             "file: amp2/amp2.~PT/amp2.sch",
             "  use dcfeed S1 vcc V=5.0",
             "file: amp2/amp2.ckt",
             "  * Schematic: amp2/amp2.sch",
             "  dcfeed:S1 vcc V=5.0",
             "> notify amp2/amp2.ckt 145 237",
             "result: 1",
             "status: Analyzing started ...",
             "view: amp2/amp2.sch: notify 216 from 145 option 1",
             "status: Analyzing ended ...",
             "view: amp2/amp2.sch: notify 216 from 145 option 0",
             "> close-project",
             "box: Velorand | Save changes to amp2 - amp2/amp2.sch? -> yes",
             "command: 26479 to the application",
         }) {
        at = Find(lines, step, at);
        ASSERT_LT(at, lines.size()) << "missing in order: " << step << "\n" << demo.out;
    }
    EXPECT_EQ(Find(lines, "error:", 0), lines.size()) << demo.out;
    EXPECT_EQ(Find(lines, "(unanswered)", 0), lines.size()) << demo.out;
    // The person's files are not touched, and the demo's folder is gone.
    EXPECT_EQ(ReadFile(sandbox.Root() / "config" / "registry.ini"), "");
    EXPECT_EQ(DemoFolders(), 0);
}

TEST_F(DemoTest, KeepLeavesTheDemosFolderAndSaysWhere) {
    Finished demo = Run({"demo", "--keep"});
    ASSERT_EQ(demo.exitCode, 0) << demo.out << demo.err;
    EXPECT_EQ(DemoFolders(), 1);
    const std::string folder = (sandbox.Root() / "tmp").string() + "/velorand-demo-";
    EXPECT_NE(demo.err.find("the demo's files stay in " + folder), std::string::npos) << demo.err;
    for (const fs::directory_entry& entry : fs::directory_iterator(sandbox.Root() / "tmp")) {
        // The close saved the changed schematic into the copy.
        EXPECT_NE(ReadFile(entry.path() / "amp2" / "amp2.sch").find("use dcfeed S1 vcc V=5.0"),
                  std::string::npos);
    }
}

}  // namespace
}  // namespace velorand::testing
