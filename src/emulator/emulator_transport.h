#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/link/transport.h"
#include "emulator/remote_emulator.h"

namespace tesselo {
class Clock;
}

namespace tesselo::emulator {

// One transfer on the wire, as the host saw it.
struct WireRecord {
    bool from_host = false;
    std::vector<std::uint8_t> bytes;
    std::uint32_t tick = 0;
    // A write that timed out, or a read that completed with nothing.
    bool failed = false;
};

// The remote emulator on the same bus as the editor, in the same process.
// Waiting goes through the Clock port, so that on a virtual clock a remote
// that never answers costs no real time.
class EmulatorTransport final : public Transport {
public:
    EmulatorTransport(std::shared_ptr<RemoteEmulator> remote, Clock& clock);

    std::vector<std::string> device_paths() override;
    bool open(const std::string& path) override;
    void close() override;
    int read_pipe() const override { return open_ ? in_endpoint : -1; }
    int write_pipe() const override { return open_ ? out_endpoint : -1; }
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms) override;
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
              std::uint32_t timeout_ms) override;

    RemoteEmulator& remote() { return *remote_; }
    // Every transfer since the start, in order.
    std::vector<WireRecord> wire;
    int opens = 0;

    static constexpr int in_endpoint = 0x81;
    static constexpr int out_endpoint = 0x01;
    // The path the emulated remote has on its bus.
    static inline const std::string device_path = "emulator\\vid_1d5c&pid_5100\\remote";

private:
    void wait_until(std::uint32_t start, std::uint32_t ms);

    std::shared_ptr<RemoteEmulator> remote_;
    Clock& clock_;
    bool open_ = false;
};

}  // namespace tesselo::emulator
