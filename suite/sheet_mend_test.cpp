#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "suite/loaded_tool.h"

namespace suite {
namespace {

using ::testing::HasSubstr;
using velorand::testing::SandboxTest;
using namespace suite::testing;

class SheetMendTest : public SandboxTest {
  protected:
    // The file update's call: SheetMend -p<paths> -f<schematic> <target>.
    int Mend(const std::string& file) {
        return CallTool("SheetMend", {R"(-pC:\p+)", "-f" + file, R"(C:\p\top.sch)"});
    }
    std::string Log() const { return sandbox.Read("p/top.log"); }
};

TEST_F(SheetMendTest, BringsAnOldFileToTheCurrentVersionKeepingItsLines) {
    sandbox.Write("p/old.sch",
                  "[schematic2]\nver 30\n\n[detail]\nl 0 0 a  label\n[cell use]\nuse RES R1 a b\n");
    ASSERT_EQ(Mend(R"(C:\p\old.sch)"), 0) << Log();
    EXPECT_EQ(sandbox.Read("p/old.sch"),
              "[schematic2]\nver 40\n\n[detail]\nl 0 0 a  label\n[cell use]\nuse RES R1 a b\n"
              "[tools]\n[comments]\n");
    EXPECT_THAT(Log(), HasSubstr("updated C:\\p\\old.sch to ver 40"));
    EXPECT_FALSE(ToolIsLoaded("SheetMend"));

    // Line ends stay as they were, and a last line without one gets one.
    sandbox.Write("p/crlf.sch", "[schematic2]\r\nver 7\r\n[tools]\r\n[detail]\r\n[cell use]");
    ASSERT_EQ(Mend(R"(C:\p\CRLF.SCH)"), 0) << Log();
    EXPECT_EQ(sandbox.Read("p/crlf.sch"),
              "[schematic2]\r\nver 40\r\n[tools]\r\n[detail]\r\n[cell use]\r\n[comments]\r\n");
}

TEST_F(SheetMendTest, LeavesCurrentFilesUntouched) {
    std::string text = "[schematic2]\nver 40\n[cell use]\n";
    sandbox.Write("p/new.sch", text);
    chmod(sandbox.Posix("p/new.sch").c_str(), 0444);
    EXPECT_EQ(Mend(R"(C:\p\new.sch)"), 0);
    EXPECT_EQ(sandbox.Read("p/new.sch"), text);
    EXPECT_THAT(Log(), HasSubstr("is up to date"));
}

TEST_F(SheetMendTest, RefusesWhatItCannotMendAndKeepsTheFile) {
    std::string malformed = "[schematic2]\nver 30\n[cell use]\nw sym\n";
    sandbox.Write("p/bad.sch", malformed);
    EXPECT_EQ(Mend(R"(C:\p\bad.sch)"), 12);
    EXPECT_EQ(sandbox.Read("p/bad.sch"), malformed);
    EXPECT_THAT(Log(), HasSubstr("line 4: a w line outside [detail]"));

    std::string old = "[schematic2]\nver 30\n";
    sandbox.Write("p/locked.sch", old);
    chmod(sandbox.Posix("p/locked.sch").c_str(), 0444);
    EXPECT_EQ(Mend(R"(C:\p\locked.sch)"), 14);
    EXPECT_EQ(sandbox.Read("p/locked.sch"), old);
    EXPECT_THAT(Log(), HasSubstr("read-only"));

    EXPECT_EQ(Mend(R"(C:\p\none.sch)"), 11);
    EXPECT_EQ(CallTool("SheetMend", {R"(-pC:\p+)", R"(C:\p\top.sch)"}), 10);
    EXPECT_THAT(Log(), HasSubstr("no file to update given (-f)"));
    EXPECT_EQ(CallTool("SheetMend", {"-l", R"(-fC:\p\old.sch)", R"(C:\p\top.sch)"}), 10);
}

}  // namespace
}  // namespace suite
