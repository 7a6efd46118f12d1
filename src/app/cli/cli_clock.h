#pragma once

#include "core/document/clock.h"

namespace tesselo::cli {

// The command line's clock: the system's, except that with the emulator in
// the same process the waits cost no real time, as a remote that never
// answers should not hold up a script.
class CliClock final : public Clock {
public:
    std::uint32_t tick_count() override { return system_.tick_count() + skipped_; }
    void idle() override
    {
        if (skip_waits) ++skipped_;
        else system_.idle();
    }
    LocalTime local_time() override { return system_.local_time(); }

    bool skip_waits = false;

private:
    SystemClock system_;
    std::uint32_t skipped_ = 0;
};

}  // namespace tesselo::cli
