#include "platform/win/library.h"

#include <stdlib.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

using ToolMain = int (*)(int, char**);

// The sample tool, built beside the platform library for these tests only.
fs::path SampleTool() {
    return fs::read_symlink("/proc/self/exe").parent_path() / "../lib" /
           "libvelorand_sample_tool.so";
}

// Calls a tool's main with the given arguments; the last one names the file it writes.
int CallMain(HMODULE module, std::vector<std::string> args) {
    auto toolMain = reinterpret_cast<ToolMain>(GetProcAddress(module, "main"));
    if (!toolMain)
        return -1;
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    return toolMain(static_cast<int>(argv.size()), argv.data());
}

using LibraryTest = SandboxTest;

TEST_F(LibraryTest, LoadsAToolBesideTheProgramAndCallsItsMain) {
    HMODULE tool = LoadLibrary("velorand_sample_tool");
    ASSERT_NE(tool, nullptr);
    std::string out = sandbox.Posix("out.txt").string();
    EXPECT_EQ(CallMain(tool, {"treescan", "-p C:\\a+", out}), 3);
    EXPECT_EQ(sandbox.Read("out.txt"), "treescan\n-p C:\\a+\n");

    EXPECT_EQ(GetProcAddress(tool, "NoSuchExport"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    EXPECT_TRUE(FreeLibrary(tool));
    EXPECT_FALSE(FreeLibrary(tool));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GetProcAddress(tool, "main"), nullptr);
}

TEST_F(LibraryTest, FollowsTheLibraryPathAndTheNameRule) {
    fs::create_directories(sandbox.Posix("libs"));
    fs::copy_file(SampleTool(), sandbox.Posix("libs/libBOMGEN.so"));
    setenv("VELORAND_LIBRARY_PATH", ("/nonexistent::" + sandbox.Posix("libs").string()).c_str(), 1);
    for (const char* name : {"BOMGEN.DLL", "BOMGEN.dll", "BOMGEN"}) {
        HMODULE module = LoadLibrary(name);
        ASSERT_NE(module, nullptr) << name;
        EXPECT_NE(GetProcAddress(module, "main"), nullptr);
        EXPECT_TRUE(FreeLibrary(module));
    }
    HMODULE byPath = LoadLibrary(sandbox.Posix("libs/libBOMGEN.so").c_str());
    ASSERT_NE(byPath, nullptr);
    // The same library loaded twice is one module, given back once for each load.
    HMODULE again = LoadLibrary("BOMGEN");
    EXPECT_EQ(again, byPath);
    EXPECT_TRUE(FreeLibrary(again));
    EXPECT_TRUE(FreeLibrary(byPath));
}

TEST_F(LibraryTest, MissingLibraryGivesModuleNotFound) {
    for (const char* name : {"nosuchtool", "NOSUCH.DLL", "/nowhere/libx.so", "libnothing.so", ""}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadLibrary(name), nullptr) << name;
        EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND) << name;
    }
    sandbox.Write("libs/libbroken.so", "not a library");
    setenv("VELORAND_LIBRARY_PATH", sandbox.Posix("libs").c_str(), 1);
    EXPECT_EQ(LoadLibrary("broken"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}

}  // namespace
}  // namespace win
