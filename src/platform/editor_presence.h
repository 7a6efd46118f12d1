#pragma once

#include <filesystem>

namespace tesselo {

// Tells a starting editor whether another editor runs on the same home
// folder. Every editor holds a lock on the file "recovery.lock" there for
// its whole run (the system lets go of it when the process ends, however it
// ends); the first to start alone takes it whole for a moment, and only that
// editor may offer the copies of recovery/: the copies of an editor that
// runs are its own, not lost work.
class EditorPresence {
public:
    explicit EditorPresence(const std::filesystem::path& home);
    ~EditorPresence();
    EditorPresence(const EditorPresence&) = delete;
    EditorPresence& operator=(const EditorPresence&) = delete;

    // True when no other editor held the home folder at start.
    bool alone() const { return alone_; }

private:
    int fd_ = -1;
    bool alone_ = false;
};

inline const char* const editor_lock_name = "recovery.lock";

}  // namespace tesselo
