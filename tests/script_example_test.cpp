// The worked example of docs/script.md, played as the page says, gives the page's
// transcript to the byte.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/testing/program_fixture.h"

namespace velorand::testing {
namespace {

// The fenced block that follows the marker line in the text; empty when there is none.
std::string BlockAfter(const std::string& text, const std::string& marker) {
    std::size_t at = text.find(marker);
    if (at == std::string::npos || (at = text.find("```\n", at)) == std::string::npos) {
        return {};
    }
    at += 4;
    const std::size_t end = text.find("```\n", at);
    return end == std::string::npos ? std::string() : text.substr(at, end - at);
}

using ScriptExampleTest = ProgramTest;

TEST_F(ScriptExampleTest, TheWorkedExamplePlaysAsThePageSays) {
    const std::string page = ReadFile(std::string(VELORAND_DOCS_DIR) + "/script.md");
    const std::string script = BlockAfter(page, "<!-- worked example: script -->");
    const std::string transcript = BlockAfter(page, "<!-- worked example: transcript -->");
    ASSERT_NE(script, "");
    ASSERT_NE(transcript, "");

    // The page's example plays where the project's old drive C: is unknown.
    setenv("VELORAND_DRIVES", "", 1);
    Finished run = RunScript("example.script", script);
    EXPECT_EQ(run.out, transcript);
    EXPECT_EQ(run.exitCode, 0) << run.err;
}

}  // namespace
}  // namespace velorand::testing
