// A project document for the benchmarks, as the reference host has it made: the component
// linked into the host's frame, the document with its frame and tree view, in a sandbox.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/host_app.h"
#include "core/project_doc.h"
#include "core/project_doc_template.h"
#include "platform/afx/frame_wnd.h"
#include "platform/testing/sandbox.h"
#include "views/project_view.h"

extern char** environ;

namespace velorand::bench {

class BenchProject {
  public:
    BenchProject() {
        setenv("VELORAND_LIBRARY_PATH", VELORAND_SIBLINGS_DIR, 1);
        std::string error;
        if (!app.CreateMainFrame() || !app.LoadComponent("velorand_project", error)) {
            std::fprintf(stderr, "cannot link the component: %s\n", error.c_str());
            std::exit(1);
        }
        auto* tmpl = dynamic_cast<CProjectDocTemplate*>(app.GetComponent().Template());
        doc = dynamic_cast<CProjectDoc*>(tmpl->CreateNewDocument());
        afx::CFrameWnd* frame = tmpl->CreateNewFrame(doc, nullptr);
        tmpl->InitialUpdateFrame(frame, doc, win::FALSE);
        doc->treeView = dynamic_cast<CProjectView*>(CProjectDoc::GetFirstDocView(doc));
        doc->treeFrame = frame;
        doc->mainWnd = app.MainFrame();
        tmpl->currentDoc = doc;
    }

    testing::Sandbox sandbox;
    host::CHostApp app;
    CProjectDoc* doc = nullptr;
};

// Seconds that a program takes, run as a process with its output thrown away.
inline double ProcessSeconds(const std::vector<std::string>& command) {
    std::vector<char*> argv;
    for (const std::string& arg : command)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    auto start = std::chrono::steady_clock::now();
    pid_t pid;
    int status = 0;
    if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ) == 0)
        waitpid(pid, &status, 0);
    double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    posix_spawn_file_actions_destroy(&actions);
    return seconds;
}

}  // namespace velorand::bench
