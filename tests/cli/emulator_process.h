#pragma once

#include <csignal>
#include <cstdio>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tesselo::testing {

// tesselo-remote-emu run as a process of its own on 127.0.0.1, on a free
// port. It stops by itself after a minute at most; the test ends it sooner.
class EmulatorProcess {
public:
    explicit EmulatorProcess(std::vector<std::string> extra = {})
    {
        int out[2];
        if (pipe(out) != 0) return;
        std::vector<std::string> args = {TESSELO_EMU, "--listen", "127.0.0.1:0", "--stop-after", "60"};
        args.insert(args.end(), extra.begin(), extra.end());
        pid_ = fork();
        if (pid_ == 0) {
            dup2(out[1], 1);
            ::close(out[0]);
            ::close(out[1]);
            std::vector<char*> argv;
            for (auto& a : args) argv.push_back(a.data());
            argv.push_back(nullptr);
            execv(TESSELO_EMU, argv.data());
            _exit(127);
        }
        ::close(out[1]);
        FILE* in = fdopen(out[0], "r");
        char line[256] = {};
        if (in && std::fgets(line, sizeof line, in)) {
            const std::string text = line;
            const auto colon = text.rfind(':');
            if (text.rfind("listening on ", 0) == 0 && colon != std::string::npos) port_ = std::stoi(text.substr(colon + 1));
        }
        if (in) std::fclose(in);
    }
    ~EmulatorProcess()
    {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            int status = 0;
            waitpid(pid_, &status, 0);
        }
    }
    EmulatorProcess(const EmulatorProcess&) = delete;
    EmulatorProcess& operator=(const EmulatorProcess&) = delete;

    int port() const { return port_; }
    std::string link() const { return "tcp:127.0.0.1:" + std::to_string(port_); }

private:
    pid_t pid_ = -1;
    int port_ = 0;
};

}  // namespace tesselo::testing
