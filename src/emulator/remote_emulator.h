#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "core/link/frames.h"
#include "emulator/faults.h"

namespace tesselo::emulator {

// One transfer from the remote to the host, due at `ready_at` (milliseconds
// of the host's clock). An empty one stands for reads that complete with
// nothing, until the host writes again.
struct Outgoing {
    std::vector<std::uint8_t> bytes;
    std::uint32_t ready_at = 0;
    bool empty = false;
};

// The remote's side of the link in PC Link mode: it stores what Download
// sends in its flash, serves it to Upload in blocks, takes the clock, learns
// a code and sends one as a test. Each fault makes it misbehave in one way.
class RemoteEmulator {
public:
    explicit RemoteEmulator(std::filesystem::path flash_file = {});

    void add_fault(Fault fault) { faults_.insert(fault); }
    bool has(Fault fault) const { return faults_.count(fault) != 0; }
    // Every answer this much later (on top of the slow fault).
    std::uint32_t latency_ms = 0;

    // Whether the remote is on the bus at all.
    bool present() const { return !has(Fault::absent); }
    // The host opened or closed the link: what was not read is gone.
    void connect();
    void disconnect();

    enum class Take { accepted, stalled };
    // One transfer from the host at tick `now`. A stalled one is not taken:
    // the host's write times out.
    Take receive(const std::uint8_t* data, std::size_t count, std::uint32_t now);
    // What the remote has to say, oldest first.
    std::deque<Outgoing>& pending() { return pending_; }

    // The image in the flash, as the last complete download left it.
    const std::vector<std::uint8_t>& flash() const { return flash_; }
    void set_flash(std::vector<std::uint8_t> image);
    int downloads_completed = 0;

    // The four bytes that the information reply carries in bytes 8 to 11.
    std::array<std::uint8_t, 4> remote_value{0x51, 0x00, 0x03, 0x01};

    // The clock as the last Clock Sync set it: hours, minutes, seconds in BCD.
    std::array<std::uint8_t, 3> clock_bcd{};
    int clock_syncs = 0;

    // The code the remote captures when it learns, and how long that takes.
    std::array<std::uint8_t, 64> learned_code{};
    std::uint32_t learn_capture_ms = 2000;
    // The last test frame, and whether the remote is sending its code now.
    std::vector<std::uint8_t> test_frame;
    bool sending_code = false;

private:
    enum class Mode { none, download, upload, clock, learn, test, test_stop };
    struct PendingBlock {
        std::vector<std::uint8_t> header;
        std::size_t start = 0;
        std::size_t count = 0;
        unsigned sequence = 0;
    };

    void answer(std::vector<std::uint8_t> bytes, std::uint32_t now);
    void answer_nothing_at_all(std::uint32_t now);
    void information_reply(Tag tag, std::uint32_t now);
    void acknowledge(Tag tag, unsigned sequence, std::uint32_t now);
    void frame_received(const std::uint8_t* data, std::size_t count, std::uint32_t now);
    void download_block(const std::uint8_t* data, std::size_t count, unsigned sequence, std::uint32_t now);
    void block_request(unsigned sequence, std::uint32_t now);
    void go_ahead(std::uint32_t now);
    void end_of_download();
    void end_of_learn(std::uint32_t now);

    std::filesystem::path flash_file_;
    std::set<Fault> faults_;
    std::deque<Outgoing> pending_;
    Mode mode_ = Mode::none;
    std::vector<std::uint8_t> flash_;
    std::vector<std::uint8_t> incoming_;
    std::map<unsigned, int> ack_attempts_;
    std::optional<PendingBlock> block_;
};

}  // namespace tesselo::emulator
