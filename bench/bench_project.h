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

// The reference host with the component linked into its frame, in a sandbox.
class BenchHost {
  public:
    BenchHost() {
        setenv("VELORAND_LIBRARY_PATH", VELORAND_SIBLINGS_DIR, 1);
        std::string error;
        if (!app.CreateMainFrame() || !app.LoadComponent("velorand_project", error)) {
            std::fprintf(stderr, "cannot link the component: %s\n", error.c_str());
            std::exit(1);
        }
        projectTemplate = dynamic_cast<CProjectDocTemplate*>(app.GetComponent().Template());
    }

    testing::Sandbox sandbox;
    host::CHostApp app;
    CProjectDocTemplate* projectTemplate = nullptr;
};

// A project document made by the template with its frame and tree view, as for an open,
// with nothing read into it.
class BenchProject : public BenchHost {
  public:
    BenchProject() {
        doc = dynamic_cast<CProjectDoc*>(projectTemplate->CreateNewDocument());
        afx::CFrameWnd* frame = projectTemplate->CreateNewFrame(doc, nullptr);
        projectTemplate->InitialUpdateFrame(frame, doc, win::FALSE);
        doc->treeView = dynamic_cast<CProjectView*>(CProjectDoc::GetFirstDocView(doc));
        doc->treeFrame = frame;
        doc->mainWnd = app.MainFrame();
        projectTemplate->currentDoc = doc;
    }

    CProjectDoc* doc = nullptr;
};

// A generated project in the folder C:\<id>\ of the sandbox: the top level sheet <id>.sch
// uses `blocks` block sheets, and these use the leaf sheets, `sheets` sheets in all with
// the top level. Each sheet holds `lines` element lines, one in eight of them a library
// part ("C_lib<n>"), and its two ports; the project file names the top level sheet and
// the simulator 1.
struct GeneratedProject {
    std::string projectFile;  // platform path
    std::string projectPosixPath;
    std::vector<std::string> names;
    std::vector<std::string> platformPaths;
    std::vector<std::string> posixPaths;
};

inline GeneratedProject GenerateProject(const testing::Sandbox& sandbox, const std::string& id,
                                        int sheets, int blocks, int lines) {
    GeneratedProject project;
    std::vector<std::vector<int>> uses(sheets);  // sheet 0 is the top level
    for (int n = 1; n < sheets; ++n)
        uses[n <= blocks ? 0 : 1 + (n - blocks - 1) % blocks].push_back(n);
    char line[160];
    for (int n = 0; n < sheets; ++n) {
        std::string name = n == 0 ? id : "sheet" + std::to_string(n);
        std::string text = "[schematic2]\nver 40\n\n[tools]\ngrid=25\n[detail]\nl 60 300 " + name +
                           " title\n[cell use]\n";
        if (n != 0)
            text += "use PORT P1 in Z=50\nuse PORT P2 out Z=50\n";
        for (int child : uses[n]) {
            std::snprintf(line, sizeof line, "use sheet%d X%d in out\n", child, child);
            text += line;
        }
        for (int i = 0; i < lines; ++i) {
            if (i % 8 == 0)
                std::snprintf(line, sizeof line, "use CAPQ C_lib%d n%d n%d C=10pF\n", i, i, i + 1);
            else
                std::snprintf(line, sizeof line, "use MLIN TL%d n%d n%d W=25mil L=%dmil\n", i, i,
                              i + 1, 100 + i);
            text += line;
        }
        text += "[comments]\nProjectName=" + id + "\n";
        std::string relative = id + "/" + name + ".sch";
        project.names.push_back(name);
        project.posixPaths.push_back(sandbox.Write(relative, text).string());
        project.platformPaths.push_back(sandbox.Platform(relative));
    }
    std::string folder = sandbox.Platform(id) + "\\";
    std::string relative = id + "/" + id + ".vpj";
    project.projectPosixPath =
        sandbox
            .Write(relative,
                   "[Project]\nProjectID=" + id +
                       "\nProjectRelease=4.0\nProjectVersion=40\nSimulator=1\nTopLevelSchematic=" +
                       folder + id + ".sch\nLocation=" + folder + "\n")
            .string();
    project.projectFile = sandbox.Platform(relative);
    return project;
}

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
