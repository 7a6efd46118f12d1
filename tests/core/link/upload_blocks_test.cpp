// Upload's exchange: the opening reply, the requests, headers, 0xFA and the
// blocks, the size from block 1, and every failure's words.
#include <gtest/gtest.h>

#include "core/link/exchange_opening.h"
#include "core/link/link_test_app.h"
#include "core/link/upload_blocks.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

// An image whose header entry 24 (at offset 96) says where it ends.
std::vector<std::uint8_t> flash_image(std::size_t size)
{
    std::vector<std::uint8_t> image(size);
    for (std::size_t i = 0; i < size; ++i) image[i] = static_cast<std::uint8_t>(i * 13 + 1);
    const std::size_t end = size - 6 + 4096;
    image[96] = static_cast<std::uint8_t>(end & 0xFF);
    image[97] = static_cast<std::uint8_t>((end >> 8) & 0xFF);
    image[98] = static_cast<std::uint8_t>((end >> 16) & 0xFF);
    image[99] = 0x77;
    return image;
}

struct UploadRun {
    bool complete = false;
    UploadedImage uploaded;
};

UploadRun run_upload(LinkTestApp& t)
{
    UploadRun r;
    EXPECT_EQ(wake_remote(t.app.link(), upload_times), Opening::ok);
    r.complete = upload_blocks(t.app, r.uploaded);
    t.app.link().close_usb();
    return r;
}

std::string message(const std::string& text) { return "message \"Kelvaro Tesselo 3\" \"" + text + "\""; }

TEST(UploadBlocks, TheImageComesInBlocksWithTheSizeFromBlockOne)
{
    LinkTestApp t;
    const auto image = flash_image(10000);
    t.remote->set_flash(image);
    const auto r = run_upload(t);
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.uploaded.total, 10000u);
    // image_size is the end position plus 2; the image has room for 2000 more.
    EXPECT_EQ(r.uploaded.image.size(), 9996u + 2001u);
    EXPECT_TRUE(std::equal(image.begin(), image.end(), r.uploaded.image.begin()));
    EXPECT_TRUE(t.take_lines().empty());

    const auto writes = t.host_writes();
    // wake-up, opening, then per block a request and 0xFA, and the last request.
    ASSERT_EQ(writes.size(), 2u + 3u * 2u + 1u);
    EXPECT_EQ(writes[1], frame_of(make_frame(tag_upload)));
    for (int b = 0; b < 4; ++b) EXPECT_EQ(writes[2 + 2 * b], frame_of(make_frame(tag_upload, 0, static_cast<std::uint16_t>(b + 1))));
    for (int b = 0; b < 3; ++b) EXPECT_EQ(writes[3 + 2 * b], bytes({0xFA}));
}

TEST(UploadBlocks, TheRequestNumbersCarryPast255)
{
    LinkTestApp t;
    t.remote->set_flash(flash_image(256 * 4096 + 50));
    const auto r = run_upload(t);
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.uploaded.total, 256u * 4096u + 50u);
    const auto writes = t.host_writes();
    EXPECT_EQ(writes[2 + 2 * 255], frame_of(make_frame(tag_upload, 0, 256)));
    EXPECT_EQ(writes[2 + 2 * 255][4], 1);
    EXPECT_EQ(writes[2 + 2 * 255][5], 0);
}

TEST(UploadBlocks, ARemoteWithNoDataAnswersTheFirstRequestWithTheEnd)
{
    LinkTestApp t;
    t.fault(Fault::no_data);
    t.remote->set_flash(flash_image(5000));
    const auto r = run_upload(t);
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.uploaded.total, 0u);
    EXPECT_TRUE(r.uploaded.image.empty());
    EXPECT_TRUE(t.take_lines().empty());
}

TEST(UploadBlocks, AShortFirstBlockTakesTheSizeFromWhatTheBufferHeldBefore)
{
    LinkTestApp t;
    t.fault(Fault::short_first_block);
    const auto image = flash_image(9000);
    t.remote->set_flash(image);
    // The buffer's last use left an end position of 0x011000 there.
    t.app.link().block[104] = 0x00;
    t.app.link().block[105] = 0x10;
    t.app.link().block[106] = 0x01;
    const auto r = run_upload(t);
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.uploaded.total, 9000u);
    EXPECT_EQ(r.uploaded.image.size(), 0x011000u + 2 - 4096 + 2001);
    EXPECT_TRUE(std::equal(image.begin(), image.end(), r.uploaded.image.begin()));
}

TEST(UploadBlocks, AShortFirstBlockIntoAFreshBufferStillKeepsEveryByte)
{
    LinkTestApp t;
    t.fault(Fault::short_first_block);
    const auto image = flash_image(9000);
    t.remote->set_flash(image);
    std::fill(t.app.link().block.begin(), t.app.link().block.end(), 0);
    const auto r = run_upload(t);
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.uploaded.total, 9000u);
    EXPECT_TRUE(std::equal(image.begin(), image.end(), r.uploaded.image.begin()));
}

TEST(UploadBlocks, ABadDataChecksumIsNotRetried)
{
    LinkTestApp t;
    t.fault(Fault::bad_block_checksum);
    t.remote->set_flash(flash_image(10000));
    const auto r = run_upload(t);
    EXPECT_FALSE(r.complete);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Upload Failed(Error #004)! " + common_tail)});
    EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
    EXPECT_EQ(t.host_writes().size(), 4u);  // wake-up, opening, one request, one 0xFA
}

TEST(UploadBlocks, ShortDataSays004)
{
    LinkTestApp t;
    t.fault(Fault::short_block);
    t.remote->set_flash(flash_image(10000));
    EXPECT_FALSE(run_upload(t).complete);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Upload Failed(Error #004)! " + common_tail)});
}

TEST(UploadBlocks, AStaleHeaderOrABadHeaderChecksumSays003)
{
    for (Fault f : {Fault::stale_header, Fault::bad_header_checksum, Fault::mute_ack}) {
        LinkTestApp t;
        t.fault(f);
        t.remote->set_flash(flash_image(10000));
        // mute_ack does not touch upload: the full image comes.
        const bool expect_complete = f == Fault::mute_ack;
        EXPECT_EQ(run_upload(t).complete, expect_complete) << emulator::fault_name(f);
        if (!expect_complete)
            EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Upload Failed(Error #003)! " + common_tail)})
                << emulator::fault_name(f);
    }
}

TEST(UploadBlocks, AFlashFailureSaysSoWithoutTheTail)
{
    LinkTestApp t;
    t.fault(Fault::flash_fail);
    t.remote->set_flash(flash_image(10000));
    EXPECT_FALSE(run_upload(t).complete);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Data Flash Fail. Check Remote!")});
    EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
}

TEST(UploadBlocks, SilentEndsWithoutAMessage)
{
    for (Fault f : {Fault::block_error_unknown, Fault::empty_header, Fault::stall_go_ahead, Fault::stall_frames}) {
        LinkTestApp t;
        t.fault(f);
        t.remote->set_flash(flash_image(10000));
        EXPECT_FALSE(run_upload(t).complete) << emulator::fault_name(f);
        EXPECT_TRUE(t.take_lines().empty()) << emulator::fault_name(f);
    }
}

TEST(UploadBlocks, TheOpeningReplysFailuresHaveTheirWords)
{
    const std::pair<Fault, std::string> cases[] = {
        {Fault::empty_reply, "Upload Failed(Error #002)! " + common_tail},
        {Fault::bad_reply_checksum, "Handshaking Error #1. Try again!"},
        {Fault::error_header, "Handshaking Header Error . Try again!"},
        {Fault::error_id, "Handshaking ID Error . Try again!"},
    };
    for (const auto& [f, words] : cases) {
        LinkTestApp t;
        t.fault(f);
        t.remote->set_flash(flash_image(10000));
        EXPECT_FALSE(run_upload(t).complete);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{message(words)}) << emulator::fault_name(f);
        EXPECT_EQ(t.host_writes().size(), 2u);
    }
}

}  // namespace
}  // namespace tesselo::testing
