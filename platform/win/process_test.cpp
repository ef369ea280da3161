#include "platform/win/process.h"

#include <sys/wait.h>

#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

using velorand::testing::SandboxTest;
using Args = std::vector<std::string>;
using CommandLineTest = SandboxTest;

TEST_F(CommandLineTest, SplitsByThePlatformsQuotingRules) {
    EXPECT_EQ(SplitCommandLine("acad.exe /c layout.arx"), (Args{"acad.exe", "/c", "layout.arx"}));
    EXPECT_EQ(SplitCommandLine("  \"C:\\Program Files\\acad.exe\"  /c \t x "),
              (Args{"C:\\Program Files\\acad.exe", "/c", "x"}));
    EXPECT_EQ(SplitCommandLine("p \"a b\" c\"d e\"f"), (Args{"p", "a b", "cd ef"}));
    EXPECT_EQ(SplitCommandLine("p a\\\\b \\\"q\\\" a\\\\\\\"b"),
              (Args{"p", "a\\\\b", "\"q\"", "a\\\"b"}));
    EXPECT_EQ(SplitCommandLine("p \"a\\\\\" b"), (Args{"p", "a\\", "b"}));
    EXPECT_EQ(SplitCommandLine("p \"\" \"say \"\"hi\"\"\""), (Args{"p", "", "say \"hi\""}));
    // The program name keeps its backslashes, even before a quote.
    EXPECT_EQ(SplitCommandLine("C:\\dir\\\\prog x"), (Args{"C:\\dir\\\\prog", "x"}));
    EXPECT_EQ(SplitCommandLine(""), Args{});
}

using ProcessTest = SandboxTest;

int WaitFor(const PROCESS_INFORMATION& info) {
    int status = 0;
    waitpid(static_cast<pid_t>(info.dwProcessId), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ProcessTest, StartsAProgramNamedByAPlatformPath) {
    std::string command =
        "\"Z:\\bin\\sh.exe\" -c \"printf '%s|' \\\"$0\\\" \\\"$1\\\" > out.txt\" "
        "\"a b\" c\\d";
    STARTUPINFO startup = {sizeof(STARTUPINFO)};
    PROCESS_INFORMATION info{};
    ASSERT_TRUE(CreateProcess(nullptr, command.data(), nullptr, nullptr, FALSE,
                              CREATE_NEW_CONSOLE | NORMAL_PRIORITY_CLASS, nullptr, "C:\\", &startup,
                              &info));
    EXPECT_NE(info.hProcess, nullptr);
    EXPECT_NE(info.hThread, info.hProcess);
    EXPECT_EQ(WaitFor(info), 0);
    EXPECT_EQ(sandbox.Read("out.txt"), "a b|c\\d|");
    EXPECT_TRUE(CloseHandle(info.hThread));
    EXPECT_TRUE(CloseHandle(info.hProcess));
    EXPECT_FALSE(CloseHandle(info.hProcess));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(ProcessTest, GivesTheEnvironmentBlockAndSearchesPath) {
    std::string command = "sh -c \"echo $ONLY > env.txt\"";
    char environment[] = "ONLY=given\0PATH=/usr/bin:/bin\0";
    STARTUPINFO startup = {sizeof(STARTUPINFO)};
    PROCESS_INFORMATION info{};
    ASSERT_TRUE(CreateProcess(nullptr, command.data(), nullptr, nullptr, FALSE, 0, environment,
                              sandbox.Platform("").c_str(), &startup, &info));
    EXPECT_EQ(WaitFor(info), 0);
    EXPECT_EQ(sandbox.Read("env.txt"), "given\n");
    CloseHandle(info.hProcess);
    CloseHandle(info.hThread);
}

TEST_F(ProcessTest, MissingProgramOrFolderFails) {
    STARTUPINFO startup = {sizeof(STARTUPINFO)};
    PROCESS_INFORMATION info{};
    std::string missing = "C:\\acad\\acad.exe /c layout";
    EXPECT_FALSE(CreateProcess(nullptr, missing.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &info));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    std::string unknown = "no-such-program-anywhere";
    EXPECT_FALSE(CreateProcess(nullptr, unknown.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &info));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    sandbox.Write("plain.txt", "not a program");
    EXPECT_FALSE(CreateProcess("C:\\plain.txt", nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &info));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    std::string sh = "Z:\\bin\\sh -c true";
    EXPECT_FALSE(CreateProcess(nullptr, sh.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               "C:\\nowhere", &startup, &info));
    EXPECT_EQ(GetLastError(), ERROR_DIRECTORY);
}

}  // namespace
}  // namespace win
