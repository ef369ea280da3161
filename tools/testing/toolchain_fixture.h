// The fixture of the tool chain's tests: the example project amp2 copied to C:\amp2 of the
// sandbox, the tools switched on in the profile, and a project document holding what a
// load of amp2.vpj leaves in it, with the project's folder as the current one. The real
// tools are found beside the test program; a test may put a folder of stand-ins first.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/simulator_info.h"
#include "core/testing/project_fixture.h"
#include "platform/win/app_profile.h"
#include "platform/win/current_directory.h"
#include "platform/win/tree_control.h"
#include "views/project_view.h"

namespace velorand::testing {

class ToolchainTest : public ProjectTest {
  protected:
    void SetUp() override {
        std::filesystem::copy(std::string(VELORAND_EXAMPLES_DIR) + "/amp2", sandbox.Posix("amp2"),
                              std::filesystem::copy_options::recursive);
        sandbox.Write("../config/registry.ini",
                      "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\vel85\\Template "
                      "List]\nSimulator=Quintaris,Lumentra\n");
        win::WriteProfileString("Project", "SkipNetlist", "0");
        PrepareProfile();
        ProjectTest::SetUp();
        startFolder = std::filesystem::current_path();
        doc = MakeDocument();
        ASSERT_NE(doc, nullptr);
        doc->SetPathName("C:\\amp2\\amp2.vpj", win::FALSE);
        doc->projectID = "amp2";
        doc->location = "C:\\amp2\\";
        doc->topLevelSchematic = "C:\\amp2\\amp2.sch";
        doc->simulator = 0;
        doc->simulatorInfo = std::make_unique<SimulatorInfo>(0);
        ASSERT_TRUE(win::SetCurrentDirectory("C:\\amp2"));
    }

    void TearDown() override {
        for (const char* name : {"VELORAND_FAKE_TOOL_RECORD", "VELORAND_FAKE_TOOL_RESULT",
                                 "VELORAND_FAKE_TOOL_OUTPUT", "VELORAND_FAKE_TOOL_TEXT"})
            unsetenv(name);
        std::filesystem::current_path(startFolder);
        ProjectTest::TearDown();
    }

    // Profile values a test wants the document to read at its construction.
    virtual void PrepareProfile() {}

    // The stand-ins of a folder come before the real tools. The recording ones note each
    // call in a file of the sandbox, and return `result`.
    void UseStandIns(const char* folder, int result = 0) {
        setenv("VELORAND_LIBRARY_PATH", (std::string(folder) + ":" + VELORAND_SIBLINGS_DIR).c_str(),
               1);
        setenv("VELORAND_FAKE_TOOL_RECORD", (sandbox.Root() / "calls.txt").c_str(), 1);
        setenv("VELORAND_FAKE_TOOL_RESULT", std::to_string(result).c_str(), 1);
    }
    // The stand-in treescan writes this text as the listing of amp2.
    void StandInListing(const std::string& text) {
        UseStandIns(VELORAND_FAKE_TOOLS_DIR);
        setenv("VELORAND_FAKE_TOOL_OUTPUT", sandbox.Posix("amp2/amp2.st%").c_str(), 1);
        setenv("VELORAND_FAKE_TOOL_TEXT", text.c_str(), 1);
    }
    // The argument vectors the stand-ins were called with, in order.
    std::vector<std::vector<std::string>> Calls() const {
        std::vector<std::vector<std::string>> calls(1);
        std::string all = ReadFile(sandbox.Root() / "calls.txt");
        for (std::size_t at = 0, end; (end = all.find('\n', at)) != std::string::npos;
             at = end + 1) {
            std::string arg = all.substr(at, end - at);
            if (arg == "--")
                calls.emplace_back();
            else
                calls.back().push_back(arg);
        }
        calls.pop_back();
        return calls;
    }

    // The tree as text: an item a line, indented by its depth, with its image.
    std::string Tree() const {
        afx::CTreeCtrl& tree = doc->treeView->GetTreeCtrl();
        std::string text;
        auto walk = [&](auto&& self, win::HTREEITEM item, int depth) -> void {
            for (; item != nullptr; item = tree.GetNextSiblingItem(item)) {
                int image = 0, selected = 0;
                tree.GetItemImage(item, image, selected);
                text += std::string(2 * depth, ' ') + tree.GetItemText(item) + " (" +
                        std::to_string(image) + ")\n";
                self(self, tree.GetChildItem(item), depth + 1);
            }
        };
        walk(walk, tree.GetRootItem(), 0);
        return text;
    }

    // The texts of the message boxes shown so far.
    std::vector<std::string> Boxes() const {
        std::vector<std::string> texts;
        for (const win::SeatRecord& seen : user.Record())
            texts.push_back(seen.text);
        return texts;
    }

    CProjectDoc* doc = nullptr;
    std::filesystem::path startFolder;
};

}  // namespace velorand::testing
