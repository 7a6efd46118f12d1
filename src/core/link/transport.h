#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

// What the link needs of the bus that the remote hangs on. The real remote
// is reached over USB; an emulator over tcp or in the same process. A read
// and a write each end on a time-out and give the results of the link:
// read: the byte count (more than 0), 0 when the transfer completed with
// nothing or nothing could be opened, -1 on a time-out, -2 on any other
// failure; write: 1 done, 0 nothing attempted, -1 time-out, -2 other failure.
class Transport {
public:
    virtual ~Transport() = default;

    // The device path of every interface on the bus, in the bus's order.
    virtual std::vector<std::string> device_paths() = 0;
    // Opens both pipes of the device at `path`. True when both are open.
    virtual bool open(const std::string& path) = 0;
    virtual void close() = 0;
    // The open pipes' handles, -1 while closed and once the device has gone.
    virtual int read_pipe() const = 0;
    virtual int write_pipe() const = 0;

    // One transfer from the remote: up to `to_read` bytes of its next message;
    // the rest of a longer message is returned by the next read.
    virtual int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms) = 0;
    // One transfer to the remote; `written` receives the bytes passed.
    virtual int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                      std::uint32_t timeout_ms) = 0;
};

}  // namespace tesselo
