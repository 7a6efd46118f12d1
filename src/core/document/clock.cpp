#include "core/document/clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace tesselo {

void TIMEDELAY(Clock& clock, std::uint32_t ms)
{
    // Until more than `ms` milliseconds have passed, not merely as many.
    const std::uint32_t start = clock.tick_count();
    while (clock.tick_count() - start <= ms) clock.idle();
}

std::uint32_t SystemClock::tick_count()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

void SystemClock::idle()
{
    std::this_thread::sleep_for(std::chrono::microseconds(200));
}

LocalTime SystemClock::local_time()
{
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_wday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

}  // namespace tesselo
