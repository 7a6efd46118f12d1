#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tesselo::testing {

// Runs `work` in a child process as a user without special rights: the
// suites may run as root, who may read and write any file, and a file that
// its user may not read or write is checked as that user meets it. The
// child's exit status is `work`'s answer; -1 when it did not end by itself.
template <typename Work>
int as_other_user(Work&& work)
{
    const pid_t child = ::fork();
    if (child < 0) return -1;
    if (child == 0) {
        if (::geteuid() == 0) {
            const gid_t nogroup = 65534;
            if (::setgroups(0, nullptr) != 0 || ::setgid(nogroup) != 0 || ::setuid(65534) != 0) ::_exit(100);
        }
        ::_exit(work());
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

}  // namespace tesselo::testing
