#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tesselo {

// One USB transfer travels over tcp as one message: two bytes of length,
// high byte first, then that many bytes.
std::vector<std::uint8_t> frame_message(const std::uint8_t* data, std::size_t count);

// The remote's verdict on each transfer of the host, sent as two bytes of a
// length that no transfer has, with nothing behind: the transfer was taken,
// or it stalled as on a bus, where the host's write then times out.
inline constexpr std::uint16_t verdict_taken = 0xFFFF;
inline constexpr std::uint16_t verdict_stalled = 0xFFFE;
std::vector<std::uint8_t> verdict_message(bool taken);

// A whole message: a transfer with its bytes, or a verdict.
struct Message {
    enum class Kind { transfer, taken, stalled };
    Kind kind = Kind::transfer;
    std::vector<std::uint8_t> bytes;
};

// Collects bytes as they arrive and gives back whole messages.
class MessageReader {
public:
    void feed(const std::uint8_t* data, std::size_t count);
    // The next whole message, or nothing while it is still incomplete.
    std::optional<Message> next();

private:
    std::vector<std::uint8_t> buffer_;
};

// "HOST:PORT" split; nothing when the text has no port or a bad one.
struct Endpoint {
    std::string host;
    std::uint16_t port = 0;
};
std::optional<Endpoint> parse_endpoint(const std::string& text);

// A socket file descriptor, closed when the owner goes.
class Socket {
public:
    Socket() = default;
    explicit Socket(int fd) : fd_(fd) {}
    ~Socket() { reset(); }
    Socket(Socket&& other) noexcept : fd_(other.release()) {}
    Socket& operator=(Socket&& other) noexcept
    {
        if (this != &other) reset(other.release());
        return *this;
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    int fd() const { return fd_; }
    bool valid() const { return fd_ >= 0; }
    int release()
    {
        const int fd = fd_;
        fd_ = -1;
        return fd;
    }
    void reset(int fd = -1);

private:
    int fd_ = -1;
};

// A connection to HOST:PORT, or an invalid socket when it was refused or
// did not come within `timeout_ms`.
Socket connect_to(const Endpoint& endpoint, int timeout_ms);
// A listening socket on HOST:PORT (port 0: any free one), and the port it got.
Socket listen_on(const Endpoint& endpoint, std::uint16_t& port, std::string& why);
// Sends all bytes; false when the connection is gone.
bool send_all(int fd, const std::uint8_t* data, std::size_t count);

// Sends all bytes unless `timeout_ms` passes first: a peer that stops reading
// fills the socket's buffers, and then the send waits for room no longer than
// that. `sent` counts the bytes that went out.
enum class SendResult { done, timed_out, failed };
SendResult send_within(int fd, const std::uint8_t* data, std::size_t count, std::uint32_t timeout_ms,
                       std::size_t& sent);

}  // namespace tesselo
