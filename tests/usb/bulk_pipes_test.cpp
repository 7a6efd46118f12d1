// Reads and writes on the remote's bulk pipes, against a device played by
// the test: packets, halted endpoints, a device pulled from the bus.
#include <gtest/gtest.h>

#include <deque>

#include "usb/bulk_pipes.h"

namespace tesselo::usb {
namespace {

// A device with a packet size: its IN transfers go out packet by packet, and
// like the remote it sends no empty packet after a transfer of whole packets.
// A host read ends at a short packet or when its room is full; otherwise it
// waits until its time-out.
struct FakeDevice {
    std::uint16_t packet = 64;
    std::deque<std::vector<std::uint8_t>> in;  // transfers to the host
    std::vector<std::vector<std::uint8_t>> out;
    std::deque<int> failures;  // libusb results of the next calls, before any data
    std::vector<std::uint8_t> halts_cleared;
    int calls = 0;
    int timeouts = 0;  // reads that waited out their time-out

    int transfer(std::uint8_t endpoint, std::uint8_t* data, int length, int* transferred)
    {
        ++calls;
        *transferred = 0;
        if (!failures.empty()) {
            const int rc = failures.front();
            failures.pop_front();
            return rc;
        }
        if ((endpoint & 0x80) == 0) {
            out.emplace_back(data, data + length);
            *transferred = length;
            return LIBUSB_SUCCESS;
        }
        int got = 0;
        while (got < length && !in.empty()) {
            auto& next = in.front();
            const int chunk = std::min<int>({packet, static_cast<int>(next.size()), length - got});
            std::copy_n(next.begin(), chunk, data + got);
            next.erase(next.begin(), next.begin() + chunk);
            got += chunk;
            const bool transfer_done = next.empty();
            if (transfer_done) in.pop_front();
            if (chunk < packet) break;  // a short packet ends the read
        }
        *transferred = got;
        if (got == length) return LIBUSB_SUCCESS;
        if (got > 0 && got % packet != 0) return LIBUSB_SUCCESS;
        ++timeouts;
        return LIBUSB_ERROR_TIMEOUT;
    }

    BulkPipes pipes()
    {
        Pipes p;
        p.interface_number = 0;
        p.pipe00 = 0x02;
        p.pipe01 = 0x81;
        p.in_packet_size = packet;
        return BulkPipes(p, BulkCalls{[this](std::uint8_t e, std::uint8_t* d, int l, int* t, unsigned) {
                                          return transfer(e, d, l, t);
                                      },
                                      [this](std::uint8_t e) {
                                          halts_cleared.push_back(e);
                                          return LIBUSB_SUCCESS;
                                      }});
    }
};

std::vector<std::uint8_t> counting(std::size_t n)
{
    std::vector<std::uint8_t> v(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<std::uint8_t>(i);
    return v;
}

TEST(BulkPipes, AReplyOfWholePacketsDoesNotWaitOutItsTimeOut)
{
    FakeDevice device;
    device.packet = 16;
    device.in.push_back(counting(48));
    BulkPipes pipes = device.pipes();
    std::vector<std::uint8_t> reply(48);
    EXPECT_EQ(pipes.read(reply.data(), 48, 2000), 48);
    EXPECT_EQ(reply, counting(48));
    EXPECT_EQ(device.timeouts, 0);

    // Nor an ack of 8 bytes in packets of 8, nor an upload block in packets of 64.
    FakeDevice acks;
    acks.packet = 8;
    acks.in.push_back(counting(8));
    BulkPipes ack_pipes = acks.pipes();
    std::uint8_t ack[8];
    EXPECT_EQ(ack_pipes.read(ack, 8, 2000), 8);
    EXPECT_EQ(acks.timeouts, 0);
    FakeDevice blocks;
    blocks.in.push_back(counting(4097));
    BulkPipes block_pipes = blocks.pipes();
    std::vector<std::uint8_t> block(4097);
    EXPECT_EQ(block_pipes.read(block.data(), 4097, 1000), 4097);
    EXPECT_EQ(blocks.timeouts, 0);
}

TEST(BulkPipes, ALongerTransferIsReadInPiecesOfWhatWasAsked)
{
    FakeDevice device;
    device.packet = 16;
    device.in.push_back(counting(48));
    BulkPipes pipes = device.pipes();
    std::vector<std::uint8_t> reply(48);
    EXPECT_EQ(pipes.read(reply.data(), 8, 2000), 8);
    EXPECT_EQ(pipes.read(reply.data() + 8, 40, 2000), 40);
    EXPECT_EQ(reply, counting(48));
    EXPECT_EQ(device.timeouts, 0);
}

TEST(BulkPipes, AReadThatFindsNothingTimesOut)
{
    FakeDevice device;
    BulkPipes pipes = device.pipes();
    std::uint8_t b = 0;
    EXPECT_EQ(pipes.read(&b, 1, 1000), -1);
}

TEST(BulkPipes, AHaltedEndpointIsClearedSoThatTheNextTransferGoesThrough)
{
    FakeDevice device;
    device.failures = {LIBUSB_ERROR_PIPE, LIBUSB_ERROR_PIPE};
    device.in.push_back({0xF6});
    BulkPipes pipes = device.pipes();
    std::uint8_t b = 0;
    EXPECT_EQ(pipes.read(&b, 1, 1000), -2);
    EXPECT_EQ(device.halts_cleared, std::vector<std::uint8_t>{0x81});
    const std::uint8_t wake = 0xF8;
    std::size_t written = 9;
    EXPECT_EQ(pipes.write(&wake, 1, written, 200), -2);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(device.halts_cleared, (std::vector<std::uint8_t>{0x81, 0x02}));
    // Not stalled until the remote is plugged in again.
    EXPECT_EQ(pipes.read(&b, 1, 1000), 1);
    EXPECT_EQ(b, 0xF6);
    EXPECT_EQ(pipes.write(&wake, 1, written, 200), 1);
    EXPECT_EQ(written, 1u);
}

TEST(BulkPipes, AGoneDeviceReadsAsNothingAndIsNotAskedAgain)
{
    FakeDevice device;
    device.failures = {LIBUSB_ERROR_NO_DEVICE};
    BulkPipes pipes = device.pipes();
    EXPECT_FALSE(pipes.gone());
    std::uint8_t b = 0;
    EXPECT_EQ(pipes.read(&b, 1, 1000), 0);
    EXPECT_TRUE(pipes.gone());
    const int calls = device.calls;
    EXPECT_EQ(pipes.read(&b, 1, 1000), 0);
    std::size_t written = 0;
    EXPECT_EQ(pipes.write(&b, 1, written, 200), 0);
    EXPECT_EQ(device.calls, calls);
}

}  // namespace
}  // namespace tesselo::usb
