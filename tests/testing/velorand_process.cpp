#include "tests/testing/velorand_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

extern char** environ;

namespace velorand::testing {

namespace {

void ClosePipe(int& fd) {
    if (fd >= 0) {
        close(fd);
        fd = -1;
    }
}

}  // namespace

VelorandProcess::VelorandProcess(const std::vector<std::string>& arguments,
                                 const std::filesystem::path& folder) {
    int in[2], out[2], err[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) {
        throw std::runtime_error("pipe failed");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());

    std::vector<std::string> words{VELORAND_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);
    const int failure =
        posix_spawn(&pid_, VELORAND_PROGRAM, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    close(err[1]);
    in_ = in[1];
    outPipe_ = out[0];
    errPipe_ = err[0];
    if (failure != 0) {
        pid_ = -1;
        throw std::runtime_error("the program could not be started");
    }
    // A child that ends early must not end the test with SIGPIPE.
    signal(SIGPIPE, SIG_IGN);
}

VelorandProcess::~VelorandProcess() {
    if (pid_ > 0) {
        Kill();
    }
    ClosePipe(in_);
    ClosePipe(outPipe_);
    ClosePipe(errPipe_);
}

void VelorandProcess::Write(const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(in_, text.data() + done, text.size() - done);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return;
        }
        done += static_cast<std::size_t>(written);
    }
}

bool VelorandProcess::ReadSome(std::chrono::milliseconds timeout) {
    pollfd fds[2] = {{outPipe_, POLLIN, 0}, {errPipe_, POLLIN, 0}};
    if (outPipe_ < 0 && errPipe_ < 0) {
        return false;
    }
    if (poll(fds, 2, static_cast<int>(timeout.count())) <= 0) {
        return true;
    }
    char buffer[4096];
    int* pipes[2] = {&outPipe_, &errPipe_};
    std::string* texts[2] = {&out_, &err_};
    for (int i = 0; i < 2; ++i) {
        if (fds[i].revents == 0) {
            continue;
        }
        const ssize_t got = read(*pipes[i], buffer, sizeof buffer);
        if (got > 0) {
            texts[i]->append(buffer, static_cast<std::size_t>(got));
        } else if (got == 0 || errno != EINTR) {
            ClosePipe(*pipes[i]);
        }
    }
    return true;
}

bool VelorandProcess::WaitForLine(const std::string& text, std::chrono::seconds timeout) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    for (;;) {
        for (std::size_t lineEnd; (lineEnd = out_.find('\n', checked_)) != std::string::npos;) {
            const bool found = out_.find(text, checked_) < lineEnd;
            checked_ = lineEnd + 1;
            if (found) {
                return true;
            }
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0 || !ReadSome(left)) {
            return false;
        }
    }
}

int VelorandProcess::Wait() {
    if (pid_ <= 0) {
        return -1;
    }
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void VelorandProcess::Kill() {
    if (pid_ <= 0) {
        return;  // never kill(-1): that would reach every process of the user
    }
    kill(pid_, SIGKILL);
    Wait();
}

Finished VelorandProcess::Finish() {
    ClosePipe(in_);
    while (ReadSome(std::chrono::milliseconds(1000))) {
    }
    Finished finished;
    finished.exitCode = Wait();
    finished.out = out_;
    finished.err = err_;
    return finished;
}

Finished RunVelorand(const std::vector<std::string>& arguments, const std::filesystem::path& folder,
                     const std::string& input) {
    VelorandProcess process(arguments, folder);
    process.Write(input);
    return process.Finish();
}

}  // namespace velorand::testing
