#include "emulator/emulator_transport.h"

#include <algorithm>

#include "core/document/clock.h"

namespace tesselo::emulator {

EmulatorTransport::EmulatorTransport(std::shared_ptr<RemoteEmulator> remote, Clock& clock)
    : remote_(std::move(remote)), clock_(clock)
{
}

std::vector<std::string> EmulatorTransport::device_paths()
{
    if (!remote_->present()) return {};
    return {device_path};
}

bool EmulatorTransport::open(const std::string& path)
{
    if (!remote_->present() || path.empty()) return false;
    remote_->connect();
    open_ = true;
    ++opens;
    return true;
}

void EmulatorTransport::close()
{
    if (open_) remote_->disconnect();
    open_ = false;
}

void EmulatorTransport::wait_until(std::uint32_t start, std::uint32_t ms)
{
    while (clock_.tick_count() - start < ms) clock_.idle();
}

int EmulatorTransport::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (!open_) return 0;
    const std::uint32_t start = clock_.tick_count();
    auto& pending = remote_->pending();
    for (;;) {
        const std::uint32_t now = clock_.tick_count();
        if (!pending.empty() && static_cast<std::int32_t>(now - pending.front().ready_at) >= 0) {
            Outgoing& next = pending.front();
            if (next.empty) {
                // The transfer completes, again and again, with nothing.
                wait_until(start, timeout_ms);
                wire.push_back({false, {}, clock_.tick_count(), true});
                return 0;
            }
            const std::size_t n = std::min(to_read, next.bytes.size());
            std::copy(next.bytes.begin(), next.bytes.begin() + static_cast<std::ptrdiff_t>(n), buffer);
            wire.push_back({false, {next.bytes.begin(), next.bytes.begin() + static_cast<std::ptrdiff_t>(n)}, now});
            // The rest of a longer transfer is there for the next read.
            if (n == next.bytes.size()) pending.pop_front();
            else next.bytes.erase(next.bytes.begin(), next.bytes.begin() + static_cast<std::ptrdiff_t>(n));
            return static_cast<int>(n);
        }
        if (now - start >= timeout_ms) return -1;
        clock_.idle();
    }
}

int EmulatorTransport::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                             std::uint32_t timeout_ms)
{
    written = 0;
    if (!open_) return 0;
    const std::uint32_t start = clock_.tick_count();
    if (remote_->receive(buffer, to_write, start) == RemoteEmulator::Take::stalled) {
        wire.push_back({true, {buffer, buffer + to_write}, start, true});
        wait_until(start, timeout_ms);
        return -1;
    }
    wire.push_back({true, {buffer, buffer + to_write}, start});
    written = to_write;
    return 1;
}

}  // namespace tesselo::emulator
