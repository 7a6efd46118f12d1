#pragma once

#include <array>
#include <cstdint>

namespace tesselo {

class Application;
struct LocalTime;

// Sets the remote's clock to the computer's local time of day. True when it
// ended in "Send Complete!".
bool clock_sync(Application& app);

// The 12-byte data frame of Clock Sync: hours, minutes and seconds in
// binary-coded decimal behind a frame of length 3 and sequence 1.
std::array<std::uint8_t, 12> clock_frame(const LocalTime& now);

}  // namespace tesselo
