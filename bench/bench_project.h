// A project document for the benchmarks, as the reference host has it made: the component
// linked into the host's frame, the document with its frame and tree view, in a sandbox.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>

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

// The time that a piece of work takes, on the clock and in processor time (user and
// system). The machine is shared: while other jobs run, the clock counts their turns too,
// and the processor time is the steadier measure of the work itself.
struct Times {
    double wall = 0;
    double cpu = 0;
    Times& operator+=(const Times& other) {
        wall += other.wall;
        cpu += other.cpu;
        return *this;
    }
};

inline double ThreadCpuSeconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The times of work done in this process, on this thread.
template <class Work>
Times InProcessTimes(Work&& work) {
    double cpu = ThreadCpuSeconds();
    auto start = std::chrono::steady_clock::now();
    work();
    Times times;
    times.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    times.cpu = ThreadCpuSeconds() - cpu;
    return times;
}

// The times of a program, run as a process with its output thrown away, from its start
// to its end.
inline Times ProcessTimes(const std::vector<std::string>& command) {
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
    rusage usage{};
    if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ) == 0)
        wait4(pid, &status, 0, &usage);
    Times times;
    times.wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    times.cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    posix_spawn_file_actions_destroy(&actions);
    return times;
}

}  // namespace velorand::bench
