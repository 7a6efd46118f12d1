#include "usb/bulk_pipes.h"

#include <algorithm>

namespace tesselo::usb {

std::size_t read_room(std::size_t to_read, std::uint16_t packet_size)
{
    // Whole packets, so that a device never overflows the room.
    const std::size_t p = packet_size == 0 ? 64 : packet_size;
    return ((std::max<std::size_t>(to_read, 1) + p - 1) / p) * p;
}

void BulkPipes::after_failure(int rc, std::uint8_t endpoint)
{
    // A stalled endpoint stays halted until it is cleared, or the remote replugged.
    if (rc == LIBUSB_ERROR_PIPE) calls_.clear_halt(endpoint);
    if (rc == LIBUSB_ERROR_NO_DEVICE) gone_ = true;
}

int BulkPipes::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (gone_) return 0;
    if (rest_.empty() || (rest_.size() < to_read && more_may_follow_)) {
        const std::size_t wanted = to_read - std::min(to_read, rest_.size());
        std::vector<std::uint8_t> room(read_room(wanted, pipes_.in_packet_size));
        int transferred = 0;
        const int rc = calls_.transfer(pipes_.pipe01, room.data(), static_cast<int>(room.size()), &transferred, timeout_ms);
        const int result = read_result(rc, transferred);
        if (result < 0 || (result == 0 && rc != LIBUSB_SUCCESS)) after_failure(rc, pipes_.pipe01);
        more_may_follow_ = result == static_cast<int>(room.size());
        if (result > 0) rest_.insert(rest_.end(), room.begin(), room.begin() + result);
        if (rest_.empty()) return result;
    }
    const std::size_t n = std::min(to_read, rest_.size());
    std::copy_n(rest_.begin(), n, buffer);
    rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(n));
    return static_cast<int>(n);
}

int BulkPipes::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written, std::uint32_t timeout_ms)
{
    written = 0;
    if (gone_) return 0;
    int transferred = 0;
    const int rc = calls_.transfer(pipes_.pipe00, const_cast<std::uint8_t*>(buffer), static_cast<int>(to_write),
                                   &transferred, timeout_ms);
    written = static_cast<std::size_t>(std::max(transferred, 0));
    if (rc != LIBUSB_SUCCESS) after_failure(rc, pipes_.pipe00);
    return write_result(rc);
}

}  // namespace tesselo::usb
