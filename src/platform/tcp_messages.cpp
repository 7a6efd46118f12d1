#include "platform/tcp_messages.h"

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tesselo {

std::vector<std::uint8_t> frame_message(const std::uint8_t* data, std::size_t count)
{
    std::vector<std::uint8_t> m{static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count & 0xFF)};
    m.insert(m.end(), data, data + count);
    return m;
}

std::vector<std::uint8_t> verdict_message(bool taken)
{
    const std::uint16_t v = taken ? verdict_taken : verdict_stalled;
    return {static_cast<std::uint8_t>(v >> 8), static_cast<std::uint8_t>(v & 0xFF)};
}

void MessageReader::feed(const std::uint8_t* data, std::size_t count) { buffer_.insert(buffer_.end(), data, data + count); }

std::optional<Message> MessageReader::next()
{
    if (buffer_.size() < 2) return std::nullopt;
    const std::size_t length = static_cast<std::size_t>(buffer_[0]) * 256 + buffer_[1];
    if (length == verdict_taken || length == verdict_stalled) {
        buffer_.erase(buffer_.begin(), buffer_.begin() + 2);
        return Message{length == verdict_taken ? Message::Kind::taken : Message::Kind::stalled, {}};
    }
    if (buffer_.size() < 2 + length) return std::nullopt;
    Message message{Message::Kind::transfer,
                    {buffer_.begin() + 2, buffer_.begin() + 2 + static_cast<std::ptrdiff_t>(length)}};
    buffer_.erase(buffer_.begin(), buffer_.begin() + 2 + static_cast<std::ptrdiff_t>(length));
    return message;
}

std::optional<Endpoint> parse_endpoint(const std::string& text)
{
    const auto colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 >= text.size()) return std::nullopt;
    const std::string digits = text.substr(colon + 1);
    if (digits.size() > 5 || digits.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    const long port = std::stol(digits);
    if (port > 65535) return std::nullopt;
    return Endpoint{text.substr(0, colon), static_cast<std::uint16_t>(port)};
}

void Socket::reset(int fd)
{
    if (fd_ >= 0) ::close(fd_);
    fd_ = fd;
}

namespace {

addrinfo* resolve(const Endpoint& endpoint, bool passive)
{
    addrinfo hints{};
    hints.ai_family = 0;  // any address family
    hints.ai_socktype = SOCK_STREAM;
    if (passive) hints.ai_flags = AI_PASSIVE;
    addrinfo* list = nullptr;
    const std::string port = std::to_string(endpoint.port);
    if (getaddrinfo(endpoint.host.c_str(), port.c_str(), &hints, &list) != 0) return nullptr;
    return list;
}

}  // namespace

Socket connect_to(const Endpoint& endpoint, int timeout_ms)
{
    addrinfo* list = resolve(endpoint, false);
    Socket result;
    for (addrinfo* a = list; a && !result.valid(); a = a->ai_next) {
        Socket s(::socket(a->ai_family, a->ai_socktype | SOCK_CLOEXEC, a->ai_protocol));
        if (!s.valid()) continue;
        const int flags = fcntl(s.fd(), F_GETFL, 0);
        fcntl(s.fd(), F_SETFL, flags | O_NONBLOCK);
        int rc = ::connect(s.fd(), a->ai_addr, a->ai_addrlen);
        if (rc != 0 && errno == EINPROGRESS) {
            pollfd p{s.fd(), POLLOUT, 0};
            if (poll(&p, 1, timeout_ms) == 1) {
                int error = 0;
                socklen_t len = sizeof error;
                getsockopt(s.fd(), SOL_SOCKET, SO_ERROR, &error, &len);
                rc = error == 0 ? 0 : -1;
            }
        }
        if (rc != 0) continue;
        fcntl(s.fd(), F_SETFL, flags);
        int one = 1;
        setsockopt(s.fd(), IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
        result = std::move(s);
    }
    if (list) freeaddrinfo(list);
    return result;
}

Socket listen_on(const Endpoint& endpoint, std::uint16_t& port, std::string& why)
{
    addrinfo* list = resolve(endpoint, true);
    if (!list) {
        why = "cannot resolve " + endpoint.host;
        return {};
    }
    Socket result;
    for (addrinfo* a = list; a && !result.valid(); a = a->ai_next) {
        Socket s(::socket(a->ai_family, a->ai_socktype | SOCK_CLOEXEC, a->ai_protocol));
        if (!s.valid()) continue;
        int one = 1;
        setsockopt(s.fd(), SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
        if (::bind(s.fd(), a->ai_addr, a->ai_addrlen) != 0 || ::listen(s.fd(), 4) != 0) {
            why = std::strerror(errno);
            continue;
        }
        sockaddr_storage bound{};
        socklen_t len = sizeof bound;
        getsockname(s.fd(), reinterpret_cast<sockaddr*>(&bound), &len);
        port = bound.ss_family == AF_INET6 ? ntohs(reinterpret_cast<sockaddr_in6*>(&bound)->sin6_port)
                                           : ntohs(reinterpret_cast<sockaddr_in*>(&bound)->sin_port);
        result = std::move(s);
    }
    freeaddrinfo(list);
    return result;
}

bool send_all(int fd, const std::uint8_t* data, std::size_t count)
{
    while (count > 0) {
        const ssize_t n = ::send(fd, data, count, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        count -= static_cast<std::size_t>(n);
    }
    return true;
}

SendResult send_within(int fd, const std::uint8_t* data, std::size_t count, std::uint32_t timeout_ms,
                       std::size_t& sent)
{
    using namespace std::chrono;
    const auto deadline = steady_clock::now() + milliseconds(timeout_ms);
    sent = 0;
    while (sent < count) {
        const ssize_t n = ::send(fd, data + sent, count - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (n > 0) {
            sent += static_cast<std::size_t>(n);
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) return SendResult::failed;
        // No room: wait for it, as long as the time-out leaves.
        const auto left = duration_cast<milliseconds>(deadline - steady_clock::now()).count();
        if (left <= 0) return SendResult::timed_out;
        pollfd p{fd, POLLOUT, 0};
        const int ready = ::poll(&p, 1, static_cast<int>(left));
        if (ready < 0 && errno != EINTR) return SendResult::failed;
        if (ready == 0) return SendResult::timed_out;
    }
    return SendResult::done;
}

}  // namespace tesselo
