#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "core/link/transport.h"
#include "platform/tcp_messages.h"

namespace tesselo {

// The link to a remote emulator in another process: one tcp connection
// stands for the open link, one message for each USB transfer. The remote
// answers each transfer of the host with its verdict, so that a write that
// would stall on a bus fails here as well.
class TcpTransport final : public Transport {
public:
    explicit TcpTransport(Endpoint endpoint) : endpoint_(std::move(endpoint)) {}

    // One interface, named like the remote on a bus; the connection is tried only by open.
    std::vector<std::string> device_paths() override;
    bool open(const std::string& path) override;
    void close() override;
    // -1 while closed, and once the other side has gone, as a remote pulled from the bus.
    int read_pipe() const override { return usable() ? socket_.fd() : -1; }
    int write_pipe() const override { return usable() ? socket_.fd() : -1; }
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms) override;
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
              std::uint32_t timeout_ms) override;

private:
    bool usable() const { return socket_.valid() && !gone_; }
    // Takes what arrives within `wait_ms` into the inbox and the verdict.
    // False when the other side has gone.
    bool receive(int wait_ms);
    // Waits out the rest of a time-out that began at `start`, unless the other side goes.
    void wait_out(std::uint32_t start, std::uint32_t timeout_ms);

    Endpoint endpoint_;
    Socket socket_;
    MessageReader reader_;
    // The transfers from the remote not yet read, oldest first.
    std::deque<std::vector<std::uint8_t>> inbox_;
    // What is left of a transfer longer than the last read asked for.
    std::vector<std::uint8_t> rest_;
    bool has_rest_ = false;
    // A transfer of no bytes came: reads complete with nothing until the host writes again.
    bool nothing_until_write_ = false;
    // The verdict on the host's last transfer, once it came.
    std::optional<Message::Kind> verdict_;
    bool gone_ = false;
};

}  // namespace tesselo
