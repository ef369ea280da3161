#include "app/program/transcript.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "platform/testing/sandbox.h"

namespace velorand::program {
namespace {

// A transcript into memory, with its base folder at C:\work of the sandbox.
class TranscriptTest : public testing::SandboxTest {
  protected:
    TranscriptTest()
        : out(open_memstream(&buffer, &size)), transcript(out, sandbox.Posix("work/").string()) {}
    ~TranscriptTest() override {
        std::fclose(out);
        std::free(buffer);
    }
    std::string Written() {
        std::fflush(out);
        return std::string(buffer, size);
    }

    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* out;
    Transcript transcript;
};

TEST_F(TranscriptTest, LinesAreWrittenAtOnceWithTheirKindAndLineEndsShown) {
    transcript.Write("box", "Velorand | Unable to open\r\nPlease check");
    EXPECT_EQ(Written(), "box: Velorand | Unable to open\\nPlease check\n");
    transcript.Write("tree", "");
    transcript.WriteRaw("  amp2");
    EXPECT_EQ(Written(), "box: Velorand | Unable to open\\nPlease check\ntree:\n  amp2\n");
    EXPECT_EQ(transcript.TakeRecent(),
              (std::vector<std::string>{"box: Velorand | Unable to open\\nPlease check",
                                        "tree:", "  amp2"}));
    EXPECT_TRUE(transcript.TakeRecent().empty());
}

TEST_F(TranscriptTest, PathsBelowTheBaseFolderAreShownRelativeToIt) {
    const std::string base = sandbox.Posix("work").string();
    EXPECT_EQ(transcript.BaseFolder(), base);
    EXPECT_EQ(transcript.FullPath("amp2/amp2.vpj"), base + "/amp2/amp2.vpj");
    EXPECT_EQ(transcript.FullPath("/etc/x.vpj"), "/etc/x.vpj");
    EXPECT_EQ(transcript.ShowPosix(base + "/amp2/amp2.vpj"), "amp2/amp2.vpj");
    EXPECT_EQ(transcript.ShowPosix(base), ".");
    EXPECT_EQ(transcript.ShowPosix(base + "x/a.sch"), base + "x/a.sch");
    EXPECT_EQ(transcript.ShowPath("C:\\work\\amp2\\amp2.sch"), "amp2/amp2.sch");
    EXPECT_EQ(transcript.ShowPath("C:\\other\\a.sch"), sandbox.Posix("other/a.sch").string());
    // A drive that the table doesn't know stays as it is written.
    EXPECT_EQ(transcript.ShowPath("Q:\\a.sch"), "Q:\\a.sch");
}

TEST_F(TranscriptTest, PlatformPathsInsideATextAreShownAsPaths) {
    EXPECT_EQ(transcript.ShowText("Project location is changed from C:\\examples\\amp2\\ to "
                                  "C:\\work\\amp2\\"),
              "Project location is changed from " + sandbox.Posix("examples/amp2/").string() +
                  " to amp2/");
    EXPECT_EQ(transcript.ShowText("notify 240 \"C:\\work\\a.sch+b\" (X1 <-> C:\\work\\b.sch)"),
              "notify 240 \"a.sch+b\" (X1 <-> b.sch)");
    // Letters before a colon that belong to a word are no drive.
    EXPECT_EQ(transcript.ShowText("ABC:\\x and C:\\work\\a.sch"), "ABC:\\x and a.sch");
    EXPECT_EQ(transcript.ShowText("Save changes to amp2 - C:\\work\\a.sch?"),
              "Save changes to amp2 - a.sch?");
    EXPECT_EQ(transcript.ShowText(""), "");
}

}  // namespace
}  // namespace velorand::program
