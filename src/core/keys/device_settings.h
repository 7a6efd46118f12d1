#pragma once

#include <cstdint>
#include <optional>

namespace tesselo {

class Application;

// A device's radio settings in device_extra. option_a is the IRRF choice,
// 0 IR and 1 RF. option_b keeps the blaster in its top bit and the RF
// channel and group in its low bits: bits 0 and 1 the channel less 1
// (channels 1 to 4), bit 2 the group less 1 (groups 1 and 2). Bits 3 to 6
// are left as they are. A new device takes the low four bits of the device
// before it, so it starts on the same channel and group.
inline constexpr std::uint8_t option_ir = 0;
inline constexpr std::uint8_t option_rf = 1;
inline constexpr std::uint8_t blaster_bit = 128;
inline constexpr std::uint8_t channel_bits = 0x03;
inline constexpr std::uint8_t group_bit = 0x04;

int rf_channel(std::uint8_t option_b);
int rf_group(std::uint8_t option_b);
bool blaster_enabled(std::uint8_t option_b);

// The device whose settings the selected tree node shows: its row, 0 for
// HOME (which has the blaster alone), nothing for another node.
std::optional<int> settings_device(Application& app);

// The controls' clicks. Each writes at once with a journal entry first and
// one log line; a click that changes nothing writes nothing. IRRF, Combo1
// and Combo2 are for devices, not HOME.
bool IRRF_Click(Application& app, std::uint8_t choice);
bool Option1_Click(Application& app, bool enable);
bool Combo1_Click(Application& app, int channel);
bool Combo2_Click(Application& app, int group);

}  // namespace tesselo
