#pragma once

#include <cstdint>

namespace tesselo {

struct LocalTime {
    int year = 0;
    int month = 0;    // 1..12
    int day = 0;      // 1..31
    int weekday = 0;  // 0 Sunday .. 6 Saturday
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// The millisecond tick count and the local clock. Tests use a virtual clock,
// so that a remote that never answers costs no real time.
class Clock {
public:
    virtual ~Clock() = default;
    virtual std::uint32_t tick_count() = 0;
    // Called by waiting loops: lets a little time pass.
    virtual void idle() = 0;
    virtual LocalTime local_time() = 0;
};

// A spin on the millisecond clock until more than `ms` milliseconds have passed.
void TIMEDELAY(Clock& clock, std::uint32_t ms);

class SystemClock final : public Clock {
public:
    std::uint32_t tick_count() override;
    void idle() override;
    LocalTime local_time() override;
};

// Time passes only when asked: idle() moves the clock one millisecond on.
class VirtualClock final : public Clock {
public:
    explicit VirtualClock(LocalTime now = {2026, 11, 15, 0, 12, 0, 0}) : now_(now) {}
    std::uint32_t tick_count() override { return ticks_; }
    void idle() override { ++ticks_; }
    LocalTime local_time() override { return now_; }
    void advance(std::uint32_t ms) { ticks_ += ms; }
    void set_local_time(const LocalTime& now) { now_ = now; }

private:
    std::uint32_t ticks_ = 0;
    LocalTime now_;
};

}  // namespace tesselo
