#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/link/transport.h"
#include "platform/tcp_messages.h"

namespace tesselo {

// The link to a remote emulator in another process: one tcp connection
// stands for the open link, one message for each USB transfer.
class TcpTransport final : public Transport {
public:
    explicit TcpTransport(Endpoint endpoint) : endpoint_(std::move(endpoint)) {}

    // One interface, named like the remote on a bus; the connection is tried only by open.
    std::vector<std::string> device_paths() override;
    bool open(const std::string& path) override;
    void close() override;
    int read_pipe() const override { return socket_.valid() ? socket_.fd() : -1; }
    int write_pipe() const override { return socket_.valid() ? socket_.fd() : -1; }
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms) override;
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
              std::uint32_t timeout_ms) override;

private:
    Endpoint endpoint_;
    Socket socket_;
    MessageReader reader_;
    // What is left of a message longer than the last read asked for.
    std::vector<std::uint8_t> rest_;
    bool has_rest_ = false;
};

}  // namespace tesselo
