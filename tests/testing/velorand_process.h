// The velorand program as a child process of a test: its standard input, output and
// error are pipes, its environment is the test's (the sandbox's profile, registry, drives
// and temporary folder), and its current folder is the one given.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace velorand::testing {

struct Finished {
    int exitCode = -1;  // -1 when a signal ended it
    std::string out;
    std::string err;
};

class VelorandProcess {
  public:
    // Starts the program with the arguments in the folder.
    VelorandProcess(const std::vector<std::string>& arguments, const std::filesystem::path& folder);
    // Kills a process that still runs.
    ~VelorandProcess();
    VelorandProcess(const VelorandProcess&) = delete;
    VelorandProcess& operator=(const VelorandProcess&) = delete;

    // Writes to its standard input.
    void Write(const std::string& text);
    // Reads its standard output until a line after the last one found holds `text`; false
    // when the output ends or the time runs out before.
    bool WaitForLine(const std::string& text,
                     std::chrono::seconds timeout = std::chrono::seconds(60));
    // What it has written to its standard output so far.
    const std::string& Out() const { return out_; }

    // Sends SIGKILL and waits for the end.
    void Kill();
    // Closes its standard input, reads the rest of its output and waits for its end.
    Finished Finish();

  private:
    // Reads what is there from the output pipes, waiting at most `timeout`; false at the
    // end of both.
    bool ReadSome(std::chrono::milliseconds timeout);
    int Wait();

    pid_t pid_ = -1;
    int in_ = -1;
    int outPipe_ = -1;
    int errPipe_ = -1;
    std::string out_;
    std::string err_;
    std::size_t checked_ = 0;  // the output up to here has been looked at
};

// Runs the program to its end with the input.
Finished RunVelorand(const std::vector<std::string>& arguments, const std::filesystem::path& folder,
                     const std::string& input = "");

}  // namespace velorand::testing
