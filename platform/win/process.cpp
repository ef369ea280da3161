#include "platform/win/process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/win/last_error.h"
#include "platform/win/paths.h"
#include "platform/win/strings.h"

extern char** environ;

namespace win {

namespace {

// Each handle names the process it was made for; a process whose handles are all closed is
// reaped as soon as it has ended, since nobody else waits for it.
std::mutex processesMutex;
std::map<std::uintptr_t, pid_t> handles;
std::uintptr_t lastHandle = 0;
std::vector<pid_t> unwatched;

void ReapEnded() {
    std::erase_if(unwatched, [](pid_t pid) { return waitpid(pid, nullptr, WNOHANG) != 0; });
}

bool IsPlatformPath(std::string_view program) {
    return program.find('\\') != std::string_view::npos ||
           (program.size() >= 2 && std::isalpha(static_cast<unsigned char>(program[0])) &&
            program[1] == ':');
}

std::optional<std::string> WithoutExe(std::string_view program) {
    if (program.size() <= 4 || !EndsWithNoCase(program, ".exe"))
        return std::nullopt;
    return std::string(program.substr(0, program.size() - 4));
}

// Starts one program file, the POSIX path or a name for the PATH search; an errno value.
int Spawn(pid_t& pid, const std::string& program, bool searchPath,
          const posix_spawn_file_actions_t& actions, const posix_spawnattr_t& attributes,
          const std::vector<char*>& argv, char* const* envp) {
    if (searchPath)
        return posix_spawnp(&pid, program.c_str(), &actions, &attributes, argv.data(), envp);
    return posix_spawn(&pid, program.c_str(), &actions, &attributes, argv.data(), envp);
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
    std::vector<std::string> args;
    std::size_t i = 0;
    auto blank = [&](std::size_t at) { return line[at] == ' ' || line[at] == '\t'; };
    while (i < line.size() && blank(i))
        ++i;
    if (i < line.size()) {
        std::string program;
        if (line[i] == '"') {
            for (++i; i < line.size() && line[i] != '"'; ++i)
                program += line[i];
            if (i < line.size())
                ++i;
        }
        for (; i < line.size() && !blank(i); ++i)
            program += line[i];
        args.push_back(std::move(program));
    }
    for (;;) {
        while (i < line.size() && blank(i))
            ++i;
        if (i >= line.size())
            break;
        std::string arg;
        bool quoted = false;
        while (i < line.size() && (quoted || !blank(i))) {
            std::size_t backslashes = 0;
            while (i < line.size() && line[i] == '\\') {
                ++backslashes;
                ++i;
            }
            if (i < line.size() && line[i] == '"') {
                arg.append(backslashes / 2, '\\');
                if (backslashes % 2 == 1) {
                    arg += '"';
                } else if (quoted && i + 1 < line.size() && line[i + 1] == '"') {
                    arg += '"';
                    ++i;
                } else {
                    quoted = !quoted;
                }
                ++i;
            } else {
                arg.append(backslashes, '\\');
                if (i < line.size() && (quoted || !blank(i)))
                    arg += line[i++];
            }
        }
        args.push_back(std::move(arg));
    }
    return args;
}

BOOL CreateProcess(LPCSTR applicationName, LPSTR commandLine, LPVOID processAttributes,
                   LPVOID threadAttributes, BOOL inheritHandles, DWORD creationFlags,
                   LPVOID environment, LPCSTR currentDirectory, LPSTARTUPINFO startupInfo,
                   LPPROCESS_INFORMATION processInformation) {
    std::vector<std::string> args = SplitCommandLine(commandLine ? commandLine : "");
    if (processInformation == nullptr || (applicationName == nullptr && args.empty())) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::string program = applicationName ? applicationName : args[0];
    if (args.empty())
        args.push_back(program);

    // The program file and, when it is missing, the same name without ".exe".
    std::vector<std::string> files;
    bool searchPath = !IsPlatformPath(program) && program.find('/') == std::string::npos;
    for (std::optional<std::string> name = program; name; name = WithoutExe(*name)) {
        if (!IsPlatformPath(*name)) {
            files.push_back(*name);
            continue;
        }
        std::optional<std::string> posix = PosixPath(*name);
        if (!posix)
            return FALSE;
        files.push_back(*posix);
    }

    std::optional<std::string> folder;
    if (currentDirectory) {
        folder = PosixPath(currentDirectory);
        struct stat info;
        if (!folder || stat(folder->c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
            SetLastError(ERROR_DIRECTORY);
            return FALSE;
        }
    }

    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    std::vector<char*> envp;
    if (environment) {
        for (char* entry = static_cast<char*>(environment); *entry; entry += strlen(entry) + 1)
            envp.push_back(entry);
        envp.push_back(nullptr);
    }

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (!inheritHandles)
        posix_spawn_file_actions_addclosefrom_np(&actions, 3);
    if (folder)
        posix_spawn_file_actions_addchdir_np(&actions, folder->c_str());
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    short spawnFlags = POSIX_SPAWN_SETSIGMASK;
    if (creationFlags & (CREATE_NEW_CONSOLE | DETACHED_PROCESS))
        spawnFlags |= POSIX_SPAWN_SETSID;
    posix_spawnattr_setflags(&attributes, spawnFlags);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);

    pid_t pid = 0;
    int err = ENOENT;
    for (const std::string& file : files) {
        err = Spawn(pid, file, searchPath, actions, attributes, argv,
                    environment ? envp.data() : environ);
        if (err != ENOENT)
            break;
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (err != 0) {
        SetLastError(ErrorFromErrno(err));
        return FALSE;
    }

    std::lock_guard lock(processesMutex);
    ReapEnded();
    handles[++lastHandle] = pid;
    processInformation->hProcess = HandleFromNumber<HANDLE>(lastHandle);
    handles[++lastHandle] = pid;
    processInformation->hThread = HandleFromNumber<HANDLE>(lastHandle);
    processInformation->dwProcessId = static_cast<DWORD>(pid);
    processInformation->dwThreadId = static_cast<DWORD>(pid);
    return TRUE;
}

BOOL CloseHandle(HANDLE object) {
    std::lock_guard lock(processesMutex);
    auto handle = handles.find(NumberFromHandle(object));
    if (handle == handles.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    pid_t pid = handle->second;
    handles.erase(handle);
    bool watched = false;
    for (const auto& [number, other] : handles)
        watched = watched || other == pid;
    if (!watched)
        unwatched.push_back(pid);
    ReapEnded();
    return TRUE;
}

}  // namespace win
