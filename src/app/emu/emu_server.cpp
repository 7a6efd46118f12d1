#include "app/emu/emu_server.h"

#include <cerrno>
#include <chrono>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace tesselo::emulator {

namespace {

std::uint32_t now_ms()
{
    using namespace std::chrono;
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

int wait_ms(std::uint32_t start, std::uint32_t stop_after_ms, int wanted)
{
    if (stop_after_ms == 0) return wanted;
    const std::uint32_t elapsed = now_ms() - start;
    if (elapsed >= stop_after_ms) return 0;
    const int left = static_cast<int>(stop_after_ms - elapsed);
    return wanted < 0 || wanted > left ? left : wanted;
}

// Sends what is due; false when the host has gone.
bool send_due(RemoteEmulator& remote, int fd)
{
    auto& pending = remote.pending();
    while (!pending.empty() && static_cast<std::int32_t>(now_ms() - pending.front().ready_at) >= 0) {
        const Outgoing next = pending.front();
        pending.pop_front();
        const auto message = frame_message(next.bytes.data(), next.bytes.size());
        if (!send_all(fd, message.data(), message.size())) return false;
    }
    return true;
}

// One connection, until the host closes it or the time is up.
void serve_connection(RemoteEmulator& remote, Socket connection, std::uint32_t start, std::uint32_t stop_after_ms)
{
    remote.connect();
    MessageReader reader;
    for (;;) {
        int wanted = -1;
        if (!remote.pending().empty()) {
            const auto due = static_cast<std::int32_t>(remote.pending().front().ready_at - now_ms());
            wanted = due < 0 ? 0 : due;
        }
        const int timeout = wait_ms(start, stop_after_ms, wanted);
        if (stop_after_ms != 0 && timeout == 0 && now_ms() - start >= stop_after_ms) break;
        pollfd p{connection.fd(), POLLIN, 0};
        const int ready = poll(&p, 1, timeout);
        if (ready < 0 && errno != EINTR) break;
        if (ready > 0) {
            std::uint8_t chunk[8192];
            const ssize_t got = ::recv(connection.fd(), chunk, sizeof chunk, 0);
            if (got <= 0) break;
            reader.feed(chunk, static_cast<std::size_t>(got));
            // Each transfer gets its verdict at once: one that would stall on
            // a bus is not taken up, and the host's write times out.
            bool gone = false;
            while (auto message = reader.next()) {
                if (message->kind != Message::Kind::transfer) continue;
                const auto take = remote.receive(message->bytes.data(), message->bytes.size(), now_ms());
                const auto verdict = verdict_message(take == RemoteEmulator::Take::accepted);
                if (!send_all(connection.fd(), verdict.data(), verdict.size())) gone = true;
            }
            if (gone) break;
        }
        if (!send_due(remote, connection.fd())) break;
    }
    remote.disconnect();
}

}  // namespace

int serve(RemoteEmulator& remote, Socket& listener, std::uint32_t stop_after_ms, std::ostream& log)
{
    const std::uint32_t start = now_ms();
    for (;;) {
        const int timeout = wait_ms(start, stop_after_ms, -1);
        if (stop_after_ms != 0 && timeout == 0) break;
        pollfd p{listener.fd(), POLLIN, 0};
        const int ready = poll(&p, 1, timeout);
        if (ready < 0 && errno == EINTR) continue;
        if (ready < 0) {
            log << "tesselo-remote-emu: the listening socket failed\n";
            return 1;
        }
        if (ready == 0) continue;
        Socket connection(::accept4(listener.fd(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!connection.valid()) continue;
        // A verdict and an answer follow each other closely: neither may wait for the other's ack.
        int one = 1;
        setsockopt(connection.fd(), IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
        if (!remote.present()) continue;  // no remote on the bus: the link does not open
        serve_connection(remote, std::move(connection), start, stop_after_ms);
    }
    return 0;
}

}  // namespace tesselo::emulator
