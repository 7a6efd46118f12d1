#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace tesselo::testing {

struct CliResult {
    int status = -1;
    std::string out;
};

// Runs tesselo-cli with `args` (already quoted for the shell) and its
// standard input from `input`, and collects standard output. `prefix` stands
// before the program on the shell's line (limits, `timeout`).
inline CliResult run_cli(const std::string& args, const std::string& input = {}, const std::string& prefix = {})
{
    std::string command = prefix + std::string(TESSELO_CLI) + " " + args;
    std::string in_file;
    if (!input.empty()) {
        char name[] = "/tmp/tesselo-cli-inXXXXXX";
        const int fd = mkstemp(name);
        if (fd >= 0) {
            FILE* f = fdopen(fd, "w");
            std::fputs(input.c_str(), f);
            std::fclose(f);
            in_file = name;
            command += " < '" + in_file + "'";
        }
    } else {
        command += " < /dev/null";
    }
    CliResult result;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 4096> buffer{};
    std::size_t n;
    while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) result.out.append(buffer.data(), n);
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (!in_file.empty()) std::remove(in_file.c_str());
    return result;
}

inline std::string shell_quote(const std::string& text)
{
    std::string q = "'";
    for (char c : text) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

}  // namespace tesselo::testing
