#include "platform/win/dialog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/win/batch_agent.h"
#include "platform/win/console_agent.h"
#include "platform/win/controls.h"
#include "platform/win/message_box.h"
#include "platform/win/message_queue.h"
#include "platform/win/messages.h"

namespace {

using namespace win;

constexpr int kSkip = 25650, kText = 25651, kName = 456, kMode = 460;

DialogTemplate WarningTemplate() {
    DialogTemplate t;
    t.caption = "Adding Project Search Path";
    t.items = {
        {IDC_STATIC, ControlKind::GroupBox, "Warning"},
        {kSkip, ControlKind::CheckBox, "Skip this warning. "},
        {kText, ControlKind::Static, "The symbol selected, amp, ..."},
        {kName, ControlKind::Edit, ""},
        {kMode, ControlKind::ComboBox, "", false, false, false, false, CBS_DROPDOWN, {"a", "b"}},
        {IDOK, ControlKind::PushButton, "Close"},
    };
    return t;
}

// The whole dialog procedure: the focus goes to the first control, the buttons end the
// dialog with their id.
INT_PTR WarningProc(HWND dialog, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_INITDIALOG) {
        return TRUE;
    }
    if (msg == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

// Runs the warning with the installed agent; the dialog's state at the end goes to
// `skip` and `name`.
INT_PTR RunWarning(UserAgent& agent, bool* skip = nullptr, std::string* name = nullptr) {
    UserAgent* before = SetUserAgent(&agent);
    HWND dialog = CreateDialogIndirectParam(nullptr, WarningTemplate(), nullptr, WarningProc, 0);
    EXPECT_NE(dialog, nullptr);
    const INT_PTR result = RunModalDialog(dialog);
    if (skip)
        *skip = IsDlgButtonChecked(dialog, kSkip) == BST_CHECKED;
    if (name) {
        char buffer[64] = {};
        GetDlgItemText(dialog, kName, buffer, sizeof buffer);
        *name = buffer;
    }
    DestroyWindow(dialog);
    SetUserAgent(before);
    return result;
}

// A console whose input is a pipe holding the given text.
struct Console {
    explicit Console(const std::string& input) {
        int fds[2];
        EXPECT_EQ(pipe(fds), 0);
        EXPECT_EQ(write(fds[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
        close(fds[1]);
        in = fdopen(fds[0], "r");
        out = open_memstream(&output, &size);
    }
    ~Console() {
        std::fclose(in);
        std::fclose(out);
        std::free(output);
    }
    std::string Output() {
        std::fflush(out);
        return std::string(output, size);
    }
    std::FILE* in;
    std::FILE* out;
    char* output = nullptr;
    std::size_t size = 0;
};

TEST(DialogAgentsTest, TheConsoleListsTheControlsAndTakesActsLineByLine) {
    Console console("show\nfrobnicate\nclick 999\ntype 456 amp  \nchoose 460 B\nclick 25650\nok\n");
    ConsoleAgent agent(console.in, console.out);
    bool skip = false;
    std::string name;
    EXPECT_EQ(RunWarning(agent, &skip, &name), IDOK);
    EXPECT_TRUE(skip);
    EXPECT_EQ(name, "amp  ");  // the text is the rest of the line, blanks and all
    const std::string out = console.Output();
    EXPECT_NE(out.find("[Adding Project Search Path]\n"
                       "  -1 group \"Warning\"\n"
                       "* 25650 check [ ] \"Skip this warning. \"\n"
                       "  25651 static \"The symbol selected, amp, ...\"\n"
                       "  456 edit \"\"\n"
                       "  460 combo \"\" (a | b)\n"
                       "  1 button \"Close\"\n"),
              std::string::npos)
        << out;
    EXPECT_NE(out.find("unknown command 'frobnicate'"), std::string::npos);
    EXPECT_NE(out.find("Control 999 cannot take \"click 999\"."), std::string::npos);
}

TEST(DialogAgentsTest, TheEndOfTheConsoleInputCancelsTheDialog) {
    Console console("type 456 half\n");
    ConsoleAgent agent(console.in, console.out);
    // The dialog has no Cancel button: the cancel key asks the procedure all the same.
    EXPECT_EQ(RunWarning(agent), IDCANCEL);
}

TEST(DialogAgentsTest, ABatchRuleWorksTheDialogWithActs) {
    std::string error;
    BatchAgent agent({*BatchAgent::ParseRule("Search Path=type 456 a=b; click 25650;ok", error)});
    bool skip = false;
    std::string name;
    EXPECT_EQ(RunWarning(agent, &skip, &name), IDOK);
    EXPECT_TRUE(skip);
    EXPECT_EQ(name, "a=b");
    EXPECT_FALSE(agent.Failed());
    ASSERT_EQ(agent.Record().size(), 1u);
    EXPECT_EQ(agent.Record()[0].acts,
              (std::vector<std::string>{"type 456 a=b", "click 25650", "click 1"}));
}

TEST(DialogAgentsTest, ABatchRuleThatCannotEndTheDialogFailsAndCancels) {
    const char* rules[] = {"Search Path=type 456 a", "Search Path=choose 460 c",
                           "Search Path=frob 1", "Other dialog=ok"};
    const char* failures[] = {
        "The answer \"type 456 a\" leaves open the dialog \"Adding Project Search Path\" "
        "(resource 0)",
        "The dialog \"Adding Project Search Path\" (resource 0) refused \"choose 460 c\"",
        "In the answer to the dialog \"Adding Project Search Path\" (resource 0): unknown "
        "command 'frob'",
        "No answer was given for the dialog \"Adding Project Search Path\" (resource 0)",
    };
    for (int i = 0; i < 4; ++i) {
        std::string error;
        BatchAgent agent({*BatchAgent::ParseRule(rules[i], error)});
        EXPECT_EQ(RunWarning(agent), IDCANCEL);
        ASSERT_EQ(agent.Failures().size(), 1u);
        EXPECT_EQ(agent.Failures()[0], failures[i]);
    }
}

TEST(DialogAgentsTest, CloseAndEndDialogOnDeadOrEndedDialogs) {
    HWND dialog = CreateDialogIndirectParam(nullptr, WarningTemplate(), nullptr, WarningProc, 0);
    ASSERT_NE(dialog, nullptr);
    SendMessage(dialog, WM_CLOSE, 0, 0);  // presses Cancel
    EXPECT_EQ(EndDialog(dialog, IDOK), FALSE);
    EXPECT_EQ(RunModalDialog(dialog), IDCANCEL);  // ended before: not shown
    DestroyWindow(dialog);
    EXPECT_EQ(EndDialog(dialog, IDOK), FALSE);
    EXPECT_EQ(RunModalDialog(dialog), -1);
    EXPECT_EQ(DialogBoxParam(nullptr, 31999, nullptr, WarningProc, 0), -1);
}

}  // namespace
