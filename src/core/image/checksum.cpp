#include "core/image/checksum.h"

namespace tesselo {

std::uint8_t checksum(const std::uint8_t* buffer, std::size_t length)
{
    unsigned sum = 0;
    for (std::size_t i = 0; i < length; ++i) sum += buffer[i];
    return static_cast<std::uint8_t>(sum % 256);
}

}  // namespace tesselo
