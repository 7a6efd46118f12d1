// The link over tcp: a connection is the open link, a message one transfer.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <sys/socket.h>

#include "platform/tcp_messages.h"
#include "platform/tcp_transport.h"

namespace tesselo::testing {
namespace {

TEST(TcpMessages, TwoBytesOfLengthHighByteFirstThenTheBytes)
{
    const std::uint8_t data[] = {0xF8};
    EXPECT_EQ(frame_message(data, 1), (std::vector<std::uint8_t>{0x00, 0x01, 0xF8}));
    std::vector<std::uint8_t> big(4105, 7);
    const auto m = frame_message(big.data(), big.size());
    EXPECT_EQ(m[0], 0x10);
    EXPECT_EQ(m[1], 0x09);
    EXPECT_EQ(m.size(), 4107u);
}

TEST(TcpMessages, TheReaderGivesWholeMessagesOnly)
{
    MessageReader r;
    const std::uint8_t part1[] = {0x00, 0x03, 1};
    const std::uint8_t part2[] = {2, 3, 0x00, 0x00, 0x00};
    r.feed(part1, sizeof part1);
    EXPECT_FALSE(r.next());
    r.feed(part2, sizeof part2);
    EXPECT_EQ(r.next(), (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(r.next(), std::vector<std::uint8_t>{});  // a message of no bytes
    EXPECT_FALSE(r.next());
}

TEST(TcpMessages, EndpointsNeedAHostAndAPort)
{
    const auto e = parse_endpoint("127.0.0.1:5100");
    ASSERT_TRUE(e);
    EXPECT_EQ(e->host, "127.0.0.1");
    EXPECT_EQ(e->port, 5100);
    EXPECT_FALSE(parse_endpoint("127.0.0.1"));
    EXPECT_FALSE(parse_endpoint(":5100"));
    EXPECT_FALSE(parse_endpoint("host:"));
    EXPECT_FALSE(parse_endpoint("host:70000"));
    EXPECT_FALSE(parse_endpoint("host:51x"));
}

struct Loopback {
    Socket listener;
    std::uint16_t port = 0;
    Loopback()
    {
        std::string why;
        listener = listen_on({"127.0.0.1", 0}, port, why);
    }
};

TEST(TcpTransport, AReadGivesAtMostWhatWasAskedAndTheRestNext)
{
    Loopback loop;
    ASSERT_TRUE(loop.listener.valid());
    TcpTransport t({"127.0.0.1", loop.port});
    ASSERT_EQ(t.device_paths().size(), 1u);
    EXPECT_NE(t.device_paths()[0].find("VID_1D5C&PID_5100"), std::string::npos);
    ASSERT_TRUE(t.open(t.device_paths()[0]));
    EXPECT_GE(t.read_pipe(), 0);
    Socket remote(::accept(loop.listener.fd(), nullptr, nullptr));
    ASSERT_TRUE(remote.valid());

    std::vector<std::uint8_t> reply(48);
    for (std::size_t i = 0; i < reply.size(); ++i) reply[i] = static_cast<std::uint8_t>(i);
    const auto m = frame_message(reply.data(), reply.size());
    ASSERT_TRUE(send_all(remote.fd(), m.data(), m.size()));
    std::uint8_t buffer[48] = {};
    EXPECT_EQ(t.read(buffer, 8, 1000), 8);
    EXPECT_EQ(buffer[7], 7);
    EXPECT_EQ(t.read(buffer, 48, 1000), 40);
    EXPECT_EQ(buffer[0], 8);

    // Nothing more: a time-out.
    EXPECT_EQ(t.read(buffer, 1, 30), -1);
    // A message of no bytes: a transfer that completed with nothing.
    const auto empty = frame_message(nullptr, 0);
    ASSERT_TRUE(send_all(remote.fd(), empty.data(), empty.size()));
    EXPECT_EQ(t.read(buffer, 1, 1000), 0);

    // The host's write arrives as one message.
    const std::uint8_t wake = 0xF8;
    std::size_t written = 0;
    EXPECT_EQ(t.write(&wake, 1, written, 200), 1);
    EXPECT_EQ(written, 1u);
    std::uint8_t got[3] = {};
    ASSERT_EQ(::recv(remote.fd(), got, 3, MSG_WAITALL), 3);
    EXPECT_EQ(got[0], 0);
    EXPECT_EQ(got[1], 1);
    EXPECT_EQ(got[2], 0xF8);

    // The other side gone reads as nothing, as a remote pulled from the bus.
    remote.reset();
    EXPECT_EQ(t.read(buffer, 1, 1000), 0);
    t.close();
    EXPECT_EQ(t.read_pipe(), -1);
    EXPECT_EQ(t.read(buffer, 1, 10), 0);
    EXPECT_EQ(t.write(&wake, 1, written, 200), 0);
}

// A socket buffer as small as the system allows.
void small_buffer(int fd, int option)
{
    const int size = 1024;
    ASSERT_EQ(::setsockopt(fd, SOL_SOCKET, option, &size, sizeof size), 0);
}

TEST(TcpTransport, AWriteToAPeerThatStopsReadingEndsOnItsTimeOut)
{
    Loopback loop;
    ASSERT_TRUE(loop.listener.valid());
    small_buffer(loop.listener.fd(), SO_RCVBUF);  // the accepted socket takes it over
    TcpTransport t({"127.0.0.1", loop.port});
    ASSERT_TRUE(t.open("TCP"));
    small_buffer(t.write_pipe(), SO_SNDBUF);
    Socket remote(::accept(loop.listener.fd(), nullptr, nullptr));
    ASSERT_TRUE(remote.valid());

    // Blocks of a download go out until the buffers on both sides are full
    // and the peer, which reads nothing, lets the write's 200 ms run out.
    const std::vector<std::uint8_t> block(4105, 0x55);
    std::size_t written = 0;
    auto writes = std::async(std::launch::async, [&] {
        int result = 1;
        for (int n = 0; n < 1000 && result == 1; ++n) result = t.write(block.data(), block.size(), written, 200);
        return result;
    });
    if (writes.wait_for(std::chrono::seconds(30)) != std::future_status::ready) {
        ADD_FAILURE() << "a write waits for as long as the peer does not read";
        remote.reset();  // the peer goes, and the write ends
    }
    EXPECT_EQ(writes.get(), -1);
    EXPECT_LT(written, block.size());
}

TEST(TcpTransport, AWriteToAPeerThatHasGoneIsAnotherFailure)
{
    Loopback loop;
    TcpTransport t({"127.0.0.1", loop.port});
    ASSERT_TRUE(t.open("TCP"));
    Socket remote(::accept(loop.listener.fd(), nullptr, nullptr));
    remote.reset();
    // The first write may still find room; the peer's reset ends the next ones.
    const std::vector<std::uint8_t> block(4105, 0x55);
    std::size_t written = 0;
    int result = 1;
    for (int n = 0; n < 100 && result == 1; ++n) result = t.write(block.data(), block.size(), written, 200);
    EXPECT_EQ(result, -2);
    EXPECT_EQ(written, 0u);
}

TEST(TcpTransport, ARefusedConnectionDoesNotOpen)
{
    std::uint16_t port = 0;
    {
        Loopback loop;  // a port that was free a moment ago, and is closed again
        port = loop.port;
    }
    TcpTransport t({"127.0.0.1", port});
    EXPECT_FALSE(t.open("TCP"));
    EXPECT_EQ(t.read_pipe(), -1);
}

}  // namespace
}  // namespace tesselo::testing
