// The component's fixture with the example project amp2 copied to C:\amp2 of the sandbox,
// as a suite with its tools and both simulators installed opens it: the netlist template
// is published, and the tools are on. Projects open through the template, as the host
// opens them. Header only: the examples' folder is known to the test program alone.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/testing/loaded_project.h"
#include "core/testing/netlist_template.h"
#include "core/testing/template_list.h"
#include "platform/afx/afx_messages.h"
#include "platform/win/app_profile.h"

namespace velorand::testing {

class ExampleProjectTest : public LoadedProjectTest {
  protected:
    static constexpr char kExample[] = "C:\\amp2\\amp2.vpj";

    void SetUp() override {
        std::filesystem::copy(std::string(VELORAND_EXAMPLES_DIR) + "/amp2", sandbox.Posix("amp2"),
                              std::filesystem::copy_options::recursive);
        InstallTemplateList("Simulator=Quintaris,Lumentra\n");
        win::WriteProfileInt("Project", "SkipNetlist", 0);
        LoadedProjectTest::SetUp();
        netlists = std::make_unique<NetlistTemplate>(mainWnd);
    }

    void TearDown() override {
        // The project closes first, with the netlist it opened.
        LoadedProjectTest::TearDown();
        netlists.reset();
    }

    // OpenDocumentFile of the project template; the document, or null.
    CProjectDoc* Open(const std::string& path) {
        return dynamic_cast<CProjectDoc*>(projectTemplate->OpenDocumentFile(path.c_str()));
    }

    // The commands posted to the main window, once the host has taken them.
    std::vector<win::UINT> PostedCommands() {
        mainWnd->ClearMessages();
        app.Run();
        return mainWnd->Commands();
    }

    // The texts of the message boxes shown so far.
    std::vector<std::string> Boxes() const {
        std::vector<std::string> texts;
        for (const win::SeatRecord& seen : user.Record()) {
            texts.push_back(seen.text);
        }
        return texts;
    }

    // The lines the component put on the status line so far.
    std::vector<std::string> StatusLines() const {
        std::vector<std::string> lines;
        for (const host::HostMessage& message : mainWnd->Messages()) {
            if (message.message == afx::WM_SETMESSAGESTRING) {
                lines.push_back(message.text);
            }
        }
        return lines;
    }

    // The project template's documents.
    bool HasDocument() const { return projectTemplate->GetFirstDocPosition() != nullptr; }

    std::unique_ptr<NetlistTemplate> netlists;
};

}  // namespace velorand::testing
