// The link over tcp: a connection is the open link, a message one transfer.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <sys/socket.h>

#include "core/document/clock.h"
#include "core/link/link.h"
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
    auto m = r.next();
    ASSERT_TRUE(m);
    EXPECT_EQ(m->kind, Message::Kind::transfer);
    EXPECT_EQ(m->bytes, (std::vector<std::uint8_t>{1, 2, 3}));
    m = r.next();
    ASSERT_TRUE(m);  // a message of no bytes
    EXPECT_EQ(m->kind, Message::Kind::transfer);
    EXPECT_EQ(m->bytes, std::vector<std::uint8_t>{});
    EXPECT_FALSE(r.next());
}

TEST(TcpMessages, AVerdictIsTwoBytesOfALengthNoTransferHas)
{
    EXPECT_EQ(verdict_message(true), (std::vector<std::uint8_t>{0xFF, 0xFF}));
    EXPECT_EQ(verdict_message(false), (std::vector<std::uint8_t>{0xFF, 0xFE}));
    MessageReader r;
    const std::uint8_t bytes[] = {0xFF, 0xFE, 0x00, 0x01, 0xF6, 0xFF, 0xFF};
    r.feed(bytes, sizeof bytes);
    EXPECT_EQ(r.next()->kind, Message::Kind::stalled);
    const auto m = r.next();
    EXPECT_EQ(m->kind, Message::Kind::transfer);
    EXPECT_EQ(m->bytes, std::vector<std::uint8_t>{0xF6});
    EXPECT_EQ(r.next()->kind, Message::Kind::taken);
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

// A transport open to a remote side that the test plays by hand.
struct Connected {
    Loopback loop;
    TcpTransport t{{"127.0.0.1", 0}};
    Socket remote;
    Connected() : t({"127.0.0.1", loop.port})
    {
        if (!loop.listener.valid() || !t.open(t.device_paths()[0])) return;
        remote = Socket(::accept(loop.listener.fd(), nullptr, nullptr));
    }
    bool send(const std::vector<std::uint8_t>& bytes) { return send_all(remote.fd(), bytes.data(), bytes.size()); }
    bool send_transfer(const std::vector<std::uint8_t>& bytes)
    {
        return send(frame_message(bytes.data(), bytes.size()));
    }
    // What the host sent: one message of `count` bytes.
    std::vector<std::uint8_t> take(std::size_t count)
    {
        std::vector<std::uint8_t> got(count + 2);
        if (::recv(remote.fd(), got.data(), got.size(), MSG_WAITALL) != static_cast<ssize_t>(got.size())) return {};
        return got;
    }
};

TEST(TcpTransport, AReadGivesAtMostWhatWasAskedAndTheRestNext)
{
    Connected c;
    ASSERT_TRUE(c.remote.valid());
    ASSERT_EQ(c.t.device_paths().size(), 1u);
    EXPECT_NE(c.t.device_paths()[0].find("VID_1D5C&PID_5100"), std::string::npos);
    EXPECT_GE(c.t.read_pipe(), 0);

    std::vector<std::uint8_t> reply(48);
    for (std::size_t i = 0; i < reply.size(); ++i) reply[i] = static_cast<std::uint8_t>(i);
    ASSERT_TRUE(c.send_transfer(reply));
    std::uint8_t buffer[48] = {};
    EXPECT_EQ(c.t.read(buffer, 8, 1000), 8);
    EXPECT_EQ(buffer[7], 7);
    EXPECT_EQ(c.t.read(buffer, 48, 1000), 40);
    EXPECT_EQ(buffer[0], 8);
    // Nothing more: a time-out.
    EXPECT_EQ(c.t.read(buffer, 1, 30), -1);
}

TEST(TcpTransport, AWriteIsOneMessageAndWaitsForTheRemotesVerdict)
{
    Connected c;
    ASSERT_TRUE(c.remote.valid());
    const std::uint8_t wake = 0xF8;
    std::size_t written = 0;
    // Taken: the write is done.
    ASSERT_TRUE(c.send(verdict_message(true)));
    EXPECT_EQ(c.t.write(&wake, 1, written, 200), 1);
    EXPECT_EQ(written, 1u);
    EXPECT_EQ(c.take(1), (std::vector<std::uint8_t>{0x00, 0x01, 0xF8}));
    // Not taken: the write times out, as a stalled one on the bus.
    ASSERT_TRUE(c.send(verdict_message(false)));
    EXPECT_EQ(c.t.write(&wake, 1, written, 50), -1);
    EXPECT_EQ(written, 0u);
    // No verdict at all: a time-out as well.
    EXPECT_EQ(c.t.write(&wake, 1, written, 30), -1);
    // A transfer that comes before the verdict is kept for the next read.
    ASSERT_TRUE(c.send_transfer({0xF6}));
    ASSERT_TRUE(c.send(verdict_message(true)));
    EXPECT_EQ(c.t.write(&wake, 1, written, 200), 1);
    std::uint8_t b = 0;
    EXPECT_EQ(c.t.read(&b, 1, 200), 1);
    EXPECT_EQ(b, 0xF6);
}

TEST(TcpTransport, AfterATransferOfNoBytesReadsCompleteWithNothingUntilTheHostWrites)
{
    Connected c;
    ASSERT_TRUE(c.remote.valid());
    ASSERT_TRUE(c.send_transfer({}));
    std::uint8_t b = 0;
    EXPECT_EQ(c.t.read(&b, 1, 30), 0);
    EXPECT_EQ(c.t.read(&b, 1, 30), 0);
    const std::uint8_t wake = 0xF8;
    std::size_t written = 0;
    ASSERT_TRUE(c.send(verdict_message(true)));
    EXPECT_EQ(c.t.write(&wake, 1, written, 200), 1);
    // The write ended them: now a read waits for a transfer and times out.
    EXPECT_EQ(c.t.read(&b, 1, 30), -1);
}

// Counts the reads that the link issues on the transport it wraps.
class CountingTransport : public Transport {
public:
    explicit CountingTransport(std::unique_ptr<Transport> inner) : inner_(std::move(inner)) {}
    int reads = 0;
    std::vector<std::string> device_paths() override { return inner_->device_paths(); }
    bool open(const std::string& path) override { return inner_->open(path); }
    void close() override { inner_->close(); }
    int read_pipe() const override { return inner_->read_pipe(); }
    int write_pipe() const override { return inner_->write_pipe(); }
    int read(std::uint8_t* b, std::size_t n, std::uint32_t t) override { return ++reads, inner_->read(b, n, t); }
    int write(const std::uint8_t* b, std::size_t n, std::size_t& w, std::uint32_t t) override
    {
        return inner_->write(b, n, w, t);
    }

private:
    std::unique_ptr<Transport> inner_;
};

TEST(TcpTransport, TheOtherSideGoneReadsAsNothingAtOnceAndClosesThePipes)
{
    Loopback loop;
    ASSERT_TRUE(loop.listener.valid());
    SystemClock clock;
    Link link(clock);
    auto counting = std::make_unique<CountingTransport>(std::make_unique<TcpTransport>(Endpoint{"127.0.0.1", loop.port}));
    CountingTransport* wire = counting.get();
    link.set_transport(std::move(counting));
    ASSERT_EQ(link.open_usb(), 1);
    Socket remote(::accept(loop.listener.fd(), nullptr, nullptr));
    ASSERT_TRUE(remote.valid());
    remote.reset();
    std::uint8_t b = 0;
    // As a remote pulled from the bus: 0, without reading again and again until the time-out.
    EXPECT_EQ(link.read_usb(&b, 1, 5000), 0);
    EXPECT_EQ(wire->reads, 1);
    EXPECT_EQ(wire->read_pipe(), -1);
    EXPECT_EQ(wire->write_pipe(), -1);
    std::size_t written = 0;
    const std::uint8_t wake = 0xF8;
    EXPECT_EQ(wire->write(&wake, 1, written, 200), 0);
    link.close_usb();
    EXPECT_EQ(wire->read(&b, 1, 10), 0);
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
