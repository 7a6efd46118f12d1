#include "platform/posix_launcher.h"

#include "platform/executable_folder.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tesselo {

namespace fs = std::filesystem;

namespace {

bool on_path(const std::string& name)
{
    const char* path = std::getenv("PATH");
    if (!path) return false;
    std::string all(path);
    std::size_t start = 0;
    while (start <= all.size()) {
        const auto end = all.find(':', start);
        const std::string dir = all.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!dir.empty() && ::access((dir + "/" + name).c_str(), X_OK) == 0) return true;
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return false;
}

// Starts a program detached from us; true when exec succeeded. A pipe that
// closes on exec tells the parent whether the child got that far.
bool spawn(const std::vector<std::string>& argv, const std::string& working_folder)
{
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return false;
    const pid_t child = ::fork();
    if (child < 0) {
        ::close(fds[0]);
        ::close(fds[1]);
        return false;
    }
    if (child == 0) {
        // A grandchild does the work, so that no zombie is left behind.
        if (::fork() != 0) ::_exit(0);
        ::setsid();
        if (!working_folder.empty() && ::chdir(working_folder.c_str()) != 0) {
            const int err = errno;
            (void)!::write(fds[1], &err, sizeof err);
            ::_exit(127);
        }
        std::vector<char*> args;
        for (const auto& a : argv) args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        ::execvp(args[0], args.data());
        const int err = errno;
        (void)!::write(fds[1], &err, sizeof err);
        ::_exit(127);
    }
    ::close(fds[1]);
    int status = 0;
    ::waitpid(child, &status, 0);
    int err = 0;
    const auto got = ::read(fds[0], &err, sizeof err);
    ::close(fds[0]);
    return got == 0;
}

}  // namespace

std::vector<int> PosixLauncher::processes_of(const std::string& program)
{
    std::vector<int> pids;
    std::error_code ec;
    const fs::path wanted = fs::weakly_canonical(program, ec);
    for (const auto& entry : fs::directory_iterator("/proc", ec)) {
        const std::string name = entry.path().filename().string();
        if (name.empty() || name.find_first_not_of("0123456789") != std::string::npos) continue;
        std::error_code link_ec;
        const fs::path exe = fs::read_symlink(entry.path() / "exe", link_ec);
        if (!link_ec && exe == wanted) pids.push_back(std::atoi(name.c_str()));
    }
    return pids;
}

bool PosixLauncher::is_running(const std::string& program) { return !processes_of(program).empty(); }

void PosixLauncher::bring_forward(const std::string& program)
{
    // The desktop decides who may raise a window; xdotool asks it politely
    // where it is installed.
    if (!on_path("xdotool")) return;
    for (int pid : processes_of(program))
        spawn({"xdotool", "search", "--onlyvisible", "--pid", std::to_string(pid), "windowactivate"}, {});
}

std::string PosixLauncher::program_path(const std::string& name) { return (executable_folder() / name).string(); }

bool PosixLauncher::start(const std::string& program, const std::vector<std::string>& arguments,
                          const std::string& working_folder)
{
    std::vector<std::string> argv{program};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return spawn(argv, working_folder);
}

void PosixLauncher::end_process(const std::string& program)
{
    for (int pid : processes_of(program)) ::kill(pid, SIGTERM);
}

int PosixLauncher::open_document(const std::string& path)
{
    std::error_code ec;
    const fs::path file(path);
    if (!fs::exists(file.parent_path(), ec)) return 3;
    if (!fs::exists(file, ec)) return 2;
    if (::access(path.c_str(), R_OK) != 0) return 5;
    if (!on_path("xdg-open")) return 31;
    return spawn({"xdg-open", path}, {}) ? 33 : 31;
}

}  // namespace tesselo
