#include "platform/editor_presence.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace tesselo {

EditorPresence::EditorPresence(const std::filesystem::path& home)
{
    fd_ = ::open((home / editor_lock_name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd_ < 0) return;
    if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) {
        alone_ = true;
        // From now on shared, so that the next editor sees this one.
        ::flock(fd_, LOCK_SH);
        return;
    }
    // Another editor holds it, shared for its run or whole while it starts.
    for (int attempt = 0; attempt < 50; ++attempt) {
        if (::flock(fd_, LOCK_SH | LOCK_NB) == 0) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

EditorPresence::~EditorPresence()
{
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace tesselo
