#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/link/transport.h"

namespace tesselo {

class Clock;

// The byte link to the remote, one for the whole program. Closed while
// `usb_device_path` is empty and both pipes are -1. Every exchange opens it
// at its start and closes it at each of its exits.
class Link {
public:
    explicit Link(Clock& clock) : clock_(clock) {}
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    // The bus to reach the remote on; without one no remote is ever found.
    void set_transport(std::unique_ptr<Transport> transport);
    Transport* transport() { return transport_.get(); }

    std::string usb_device_path;
    int read_pipe = -1;
    int write_pipe = -1;

    // The remote's device path, upper case, or an empty text.
    std::string find_usb_device();
    // 1 when both pipes are open, 0 otherwise.
    int open_usb();
    // May be called at any time, also twice.
    void close_usb();
    // The byte count, 0 when nothing is open or nothing was read, -1 on a
    // time-out, -2 on any other failure.
    int read_usb(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms);
    // 1 done, -1 time-out, -2 another failure, 0 nothing attempted.
    int write_usb(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                  std::uint32_t timeout_ms);

    Clock& clock() { return clock_; }

    // The transfer buffer of the blocks, sized once for the longest data
    // frame. It is not cleared between uses.
    std::vector<std::uint8_t> block = std::vector<std::uint8_t>(4105);

private:
    Clock& clock_;
    std::unique_ptr<Transport> transport_;
};

// The flags that keep a second exchange from starting while one runs.
struct ExchangeFlags {
    bool upload_in_progress = false;
    bool learn_in_progress = false;
};

}  // namespace tesselo
