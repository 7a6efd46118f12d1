#pragma once

#include <cstddef>
#include <cstdint>

namespace tesselo {

// The sum of buffer[0] to buffer[length - 1] modulo 256; 0 for a length of 0.
// It guards the command headers and data packets of the link.
std::uint8_t checksum(const std::uint8_t* buffer, std::size_t length);

}  // namespace tesselo
