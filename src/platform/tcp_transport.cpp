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

int left_of(std::uint32_t start, std::uint32_t timeout_ms)
{
    const std::uint32_t elapsed = now_ms() - start;
    return elapsed >= timeout_ms ? 0 : static_cast<int>(timeout_ms - elapsed);
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
    inbox_.clear();
    rest_.clear();
    has_rest_ = false;
    nothing_until_write_ = false;
    verdict_.reset();
    gone_ = false;
}

bool TcpTransport::receive(int wait_ms)
{
    pollfd p{socket_.fd(), POLLIN, 0};
    const int ready = poll(&p, 1, wait_ms);
    if (ready < 0 && errno != EINTR) gone_ = true;
    if (ready > 0) {
        std::uint8_t chunk[8192];
        const ssize_t got = ::recv(socket_.fd(), chunk, sizeof chunk, 0);
        // The other side has gone, as a remote pulled from the bus.
        if (got == 0 || (got < 0 && errno != EINTR && errno != EAGAIN)) gone_ = true;
        if (got > 0) reader_.feed(chunk, static_cast<std::size_t>(got));
    }
    while (auto message = reader_.next()) {
        if (message->kind == Message::Kind::transfer) inbox_.push_back(std::move(message->bytes));
        else verdict_ = message->kind;
    }
    return !gone_;
}

void TcpTransport::wait_out(std::uint32_t start, std::uint32_t timeout_ms)
{
    for (int left = left_of(start, timeout_ms); left > 0 && !gone_; left = left_of(start, timeout_ms)) {
        pollfd p{socket_.fd(), POLLIN, 0};
        if (poll(&p, 1, left) > 0 && !receive(0)) return;
    }
}

int TcpTransport::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (!usable()) return 0;
    const std::uint32_t start = now_ms();
    for (;;) {
        if (!has_rest_ && !nothing_until_write_ && !inbox_.empty()) {
            rest_ = std::move(inbox_.front());
            inbox_.pop_front();
            // A message of no bytes is a transfer that completed with nothing.
            if (rest_.empty()) nothing_until_write_ = true;
            else has_rest_ = true;
        }
        if (nothing_until_write_) {
            // As on the bus, such a read takes its whole time-out.
            wait_out(start, timeout_ms);
            return 0;
        }
        if (has_rest_) {
            const std::size_t n = std::min(to_read, rest_.size());
            std::copy_n(rest_.begin(), n, buffer);
            rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(n));
            has_rest_ = !rest_.empty();
            return static_cast<int>(n);
        }
        const int left = left_of(start, timeout_ms);
        if (left == 0) return -1;
        if (!receive(left)) return 0;
    }
}

int TcpTransport::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                        std::uint32_t timeout_ms)
{
    written = 0;
    if (!usable()) return 0;
    const std::uint32_t start = now_ms();
    // A write ends the reads that complete with nothing.
    nothing_until_write_ = false;
    inbox_.erase(std::remove_if(inbox_.begin(), inbox_.end(), [](const auto& m) { return m.empty(); }), inbox_.end());
    verdict_.reset();
    const auto message = frame_message(buffer, to_write);
    std::size_t sent = 0;
    const SendResult result = send_within(socket_.fd(), message.data(), message.size(), timeout_ms, sent);
    if (result != SendResult::done) {
        // The caller's bytes that went out, without the two of the length.
        written = sent > 2 ? sent - 2 : 0;
        // A message cut short would run into the next one: the connection goes,
        // as a remote that stopped in the middle of a transfer.
        if (sent > 0) close();
        if (result == SendResult::failed) gone_ = true;
        return result == SendResult::timed_out ? -1 : -2;
    }
    // The transfer is out; the remote's verdict says whether it was taken,
    // within what is left of the time-out.
    while (!verdict_) {
        const int left = left_of(start, timeout_ms);
        if (left == 0) return -1;
        // The remote went before it answered: the transfer failed.
        if (!receive(left)) return -2;
    }
    if (*verdict_ == Message::Kind::stalled) {
        // The remote did not take it: the write times out, as on the bus.
        wait_out(start, timeout_ms);
        return -1;
    }
    written = to_write;
    return 1;
}

}  // namespace tesselo
