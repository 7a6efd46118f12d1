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

    // The byte count, 0 for a transfer of nothing, -1 on a time-out, -2 on another failure.
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms);
    // 1 done, -1 time-out, -2 another failure.
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written, std::uint32_t timeout_ms);

private:
    Pipes pipes_;
    BulkCalls calls_;
    // What is left of a transfer longer than the last read asked for.
    std::vector<std::uint8_t> rest_;
};

// The room a read asks the device for, in whole packets.
std::size_t read_room(std::size_t to_read, std::uint16_t packet_size);

}  // namespace tesselo::usb
