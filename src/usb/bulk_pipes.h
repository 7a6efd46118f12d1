#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "usb/usb_matching.h"

namespace tesselo::usb {

// The calls into libusb that a transfer on the remote's pipes makes; a test
// gives its own to stand in for the device.
struct BulkCalls {
    // libusb_bulk_transfer on the open device.
    std::function<int(std::uint8_t endpoint, std::uint8_t* data, int length, int* transferred, unsigned timeout_ms)>
        transfer;
    // libusb_clear_halt on the open device.
    std::function<int(std::uint8_t endpoint)> clear_halt;
};

// The remote's two bulk pipes while the device is open: reads and writes
// with the link's results.
class BulkPipes {
public:
    BulkPipes(const Pipes& pipes, BulkCalls calls) : pipes_(pipes), calls_(std::move(calls)) {}

    // The byte count, 0 for a transfer of nothing or a device that has gone,
    // -1 on a time-out, -2 on another failure.
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms);
    // 1 done, 0 a device that has gone, -1 time-out, -2 another failure.
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written, std::uint32_t timeout_ms);
    // Set once the device has left the bus: nothing is asked of it any more.
    bool gone() const { return gone_; }

private:
    // A failed call: a halted endpoint is cleared, a vanished device noted.
    void after_failure(int rc, std::uint8_t endpoint);

    Pipes pipes_;
    BulkCalls calls_;
    // What has come of a transfer and not been read yet.
    std::vector<std::uint8_t> rest_;
    // The last transfer filled its room, so the device's transfer may go on.
    bool more_may_follow_ = false;
    bool gone_ = false;
};

// The room a read asks the device for: what is asked, in whole packets. The
// remote sends no empty packet after a transfer of whole packets, so a read
// that asked for more would wait out its time-out.
std::size_t read_room(std::size_t to_read, std::uint16_t packet_size);

}  // namespace tesselo::usb
