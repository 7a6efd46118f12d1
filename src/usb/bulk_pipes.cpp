#include "usb/bulk_pipes.h"

#include <algorithm>

namespace tesselo::usb {

std::size_t read_room(std::size_t to_read, std::uint16_t packet_size)
{
    // Room for the longest transfer, in whole packets, so that a device never overflows it.
    const std::size_t p = packet_size == 0 ? 64 : packet_size;
    return ((std::max<std::size_t>(to_read, 4105) + p - 1) / p) * p;
}

int BulkPipes::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (rest_.empty()) {
        std::vector<std::uint8_t> room(read_room(to_read, pipes_.in_packet_size));
        int transferred = 0;
        const int rc = calls_.transfer(pipes_.pipe01, room.data(), static_cast<int>(room.size()), &transferred, timeout_ms);
        const int result = read_result(rc, transferred);
        if (result <= 0) return result;
        rest_.assign(room.begin(), room.begin() + result);
    }
    const std::size_t n = std::min(to_read, rest_.size());
    std::copy_n(rest_.begin(), n, buffer);
    rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(n));
    return static_cast<int>(n);
}

int BulkPipes::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written, std::uint32_t timeout_ms)
{
    written = 0;
    int transferred = 0;
    const int rc = calls_.transfer(pipes_.pipe00, const_cast<std::uint8_t*>(buffer), static_cast<int>(to_write),
                                   &transferred, timeout_ms);
    written = static_cast<std::size_t>(std::max(transferred, 0));
    return write_result(rc);
}

}  // namespace tesselo::usb
