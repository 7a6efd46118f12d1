#include "platform/tcp_transport.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/socket.h>

#include "core/link/frames.h"

namespace tesselo {

namespace {

constexpr int connect_timeout_ms = 2000;

std::uint32_t now_ms()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace

std::vector<std::string> TcpTransport::device_paths()
{
    return {"TCP\\" + remote_vendor_text + "&" + remote_product_text + "\\" + endpoint_.host + ":" +
            std::to_string(endpoint_.port)};
}

bool TcpTransport::open(const std::string&)
{
    close();
    socket_ = connect_to(endpoint_, connect_timeout_ms);
    return socket_.valid();
}

void TcpTransport::close()
{
    socket_.reset();
    reader_ = MessageReader{};
    rest_.clear();
    has_rest_ = false;
}

int TcpTransport::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (!socket_.valid()) return 0;
    const std::uint32_t start = now_ms();
    for (;;) {
        if (!has_rest_) {
            if (auto message = reader_.next()) {
                rest_ = std::move(*message);
                has_rest_ = true;
            }
        }
        if (has_rest_) {
            // A message of no bytes is a transfer that completed with nothing.
            const std::size_t n = std::min(to_read, rest_.size());
            std::copy_n(rest_.begin(), n, buffer);
            rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(n));
            has_rest_ = !rest_.empty();
            return static_cast<int>(n);
        }
        const std::uint32_t elapsed = now_ms() - start;
        if (elapsed >= timeout_ms) return -1;
        pollfd p{socket_.fd(), POLLIN, 0};
        const int ready = poll(&p, 1, static_cast<int>(timeout_ms - elapsed));
        if (ready < 0 && errno == EINTR) continue;
        if (ready < 0) return -2;
        if (ready == 0) return -1;
        std::uint8_t chunk[8192];
        const ssize_t got = ::recv(socket_.fd(), chunk, sizeof chunk, 0);
        if (got < 0 && errno == EINTR) continue;
        // The other side has gone, as a remote pulled from the bus.
        if (got <= 0) return 0;
        reader_.feed(chunk, static_cast<std::size_t>(got));
    }
}

int TcpTransport::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                        std::uint32_t timeout_ms)
{
    written = 0;
    if (!socket_.valid()) return 0;
    const auto message = frame_message(buffer, to_write);
    std::size_t sent = 0;
    const SendResult result = send_within(socket_.fd(), message.data(), message.size(), timeout_ms, sent);
    // The caller's bytes that went out, without the two of the length.
    written = sent > 2 ? sent - 2 : 0;
    if (result == SendResult::done) return 1;
    // A message cut short would run into the next one: the connection goes,
    // as a remote that stopped in the middle of a transfer.
    if (sent > 0) close();
    return result == SendResult::timed_out ? -1 : -2;
}

}  // namespace tesselo
