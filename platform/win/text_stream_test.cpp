#include "platform/win/text_stream.h"

#include <filesystem>
#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

using TextStreamTest = SandboxTest;

TEST_F(TextStreamTest, ReadsCrLfAndLfLinesWithEveryByte) {
    sandbox.Write("a.vpj", "[Project]\r\nName=caf\xe9\n\r\nlast");
    std::ifstream in;
    ASSERT_TRUE(OpenTextStream(in, "C:\\A.VPJ"));
    std::vector<std::string> lines;
    for (std::string line; ReadTextLine(in, line);)
        lines.push_back(line);
    EXPECT_EQ(lines, (std::vector<std::string>{"[Project]", "Name=caf\xe9", "", "last"}));
}

TEST_F(TextStreamTest, WritesLfAndAppends) {
    {
        std::ofstream out;
        ASSERT_TRUE(OpenTextStream(out, "C:\\n.ckt"));
        out << "* one\n";
    }
    {
        std::ofstream out;
        ASSERT_TRUE(OpenTextStream(out, "C:\\N.CKT", std::ios::app));
        out << "* two\n";
    }
    EXPECT_EQ(sandbox.Read("n.ckt"), "* one\n* two\n");
    std::ofstream out;
    ASSERT_TRUE(OpenTextStream(out, "C:\\n.ckt"));
    out.close();
    EXPECT_EQ(sandbox.Read("n.ckt"), "");
}

TEST_F(TextStreamTest, RefusesWhatCannotBeReadOrWritten) {
    sandbox.Write("ro.ckt", "keep");
    fs::permissions(sandbox.Posix("ro.ckt"), fs::perms::owner_read, fs::perm_options::replace);
    fs::create_directories(sandbox.Posix("dir"));

    std::ifstream in;
    EXPECT_FALSE(OpenTextStream(in, "C:\\missing.vpj"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(OpenTextStream(in, "C:\\missing\\a.vpj"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(OpenTextStream(in, "C:\\dir"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(OpenTextStream(in, "C:\\ro.ckt"));

    std::ofstream out;
    EXPECT_FALSE(OpenTextStream(out, "C:\\ro.ckt"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(sandbox.Read("ro.ckt"), "keep");
    EXPECT_FALSE(OpenTextStream(out, "C:\\dir"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(OpenTextStream(out, "C:\\missing\\a.ckt"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(OpenTextStream(out, "C:\\a>b.ckt"));
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
    fs::permissions(sandbox.Posix("dir"), fs::perms::owner_read | fs::perms::owner_exec,
                    fs::perm_options::replace);
    EXPECT_FALSE(OpenTextStream(out, "C:\\dir\\new.ckt"));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(fs::exists(sandbox.Posix("dir/new.ckt")));
}

}  // namespace
}  // namespace win
