// File > Upload: the new document first, the image from the remote, the
// formats rebuilt, and every way it can end.
#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/image/image_writer.h"
#include "core/ir/rc_formats.h"
#include "core/link/download.h"
#include "core/link/link_test_app.h"
#include "core/link/upload.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

std::string message(const std::string& title, const std::string& text)
{
    return "message \"" + title + "\" \"" + text + "\"";
}

const std::string finished = message("Kelvaro Tesselo 3", "Upload Data Finished");

// A remote that holds what a download of a new document put there.
void fill_remote(LinkTestApp& t)
{
    ASSERT_EQ(muNew(t.app), 0);
    ASSERT_TRUE(muDownload_Click(t.app));
    t.take_lines();
    t.ui.icons.clear();
    t.ui.window_events.clear();
    t.wire->wire.clear();
}

void expect_everything_back(LinkTestApp& t)
{
    EXPECT_TRUE(t.link_closed());
    EXPECT_FALSE(t.app.flags().upload_in_progress);
    EXPECT_TRUE(t.ui.upload_enabled);
    EXPECT_FALSE(t.ui.download_window.loaded);
    EXPECT_EQ(t.ui.wait_depth, 0);
}

TEST(Upload, TheCommandsComeBackBeforeTheClosingHalfSecond)
{
    LinkTestApp t;
    fill_remote(t);
    t.ui.commands_back_at.clear();
    EXPECT_TRUE(muUpload_Click(t.app));
    expect_everything_back(t);
    ASSERT_EQ(t.ui.commands_back_at.size(), 1u);
    EXPECT_GE(t.clock.tick_count() - t.ui.commands_back_at[0], 500u);
}

TEST(Upload, TheRemotesImageBecomesANewDocumentWithItsFormatsRebuilt)
{
    LinkTestApp t;
    fill_remote(t);
    EXPECT_TRUE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{finished});
    EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::none});
    ASSERT_EQ(t.app.documents().size(), 2u);
    EXPECT_EQ(t.app.active()->slot, 1);
    // The remote's four bytes came back as the format stamp; all else is as sent.
    EXPECT_EQ(t.app.config(1).format_stamp, (std::array<std::uint8_t, 4>{0x51, 0x00, 0x03, 0x01}));
    auto sent = build_image(t.app.config(0));
    auto back = build_image(t.app.config(1));
    ASSERT_EQ(sent.size(), back.size());
    std::copy(back.begin() + 100, back.begin() + 104, sent.begin() + 100);
    EXPECT_EQ(sent, back);
    const auto log = t.log_lines();
    EXPECT_NE(std::find(log.begin(), log.end(), "\"upload(start)  \""), log.end());
    EXPECT_NE(std::find(log.begin(), log.end(), "\"Upload from QM4100/QM5100\""), log.end());
    EXPECT_EQ(t.ui.window_events, (std::vector<std::string>{"show Upload without bar", "hide", "unload"}));
    expect_everything_back(t);
}

TEST(Upload, TheFormatsComeBackFromTheirIds)
{
    LinkTestApp t;
    ASSERT_EQ(muNew(t.app), 0);
    Configuration& sent = t.app.config(0);
    sent.ir_formats.format_count = 2;
    sent.ir_format_ids[0] = format_id_rc6;
    sent.ir_format_ids[1] = format_id_rc5x;
    sent.ir_formats.records[0].fill(1234);
    sent.ir_formats.records[1].fill(-5);
    ASSERT_TRUE(muDownload_Click(t.app));
    EXPECT_TRUE(muUpload_Click(t.app));
    const Configuration& back = t.app.config(1);
    EXPECT_EQ(back.ir_formats.format_count, 2);
    IrFormatRecord rc6{};
    default_IR60Type(rc6);
    IrFormatRecord rc5x{};
    default_IR5XType(rc5x);
    EXPECT_EQ(back.ir_formats.records[0], rc6);
    EXPECT_EQ(back.ir_formats.records[1], rc5x);
}

TEST(Upload, WithTenDocumentsOpenItIsRefusedBeforeTheDeviceIsTouched)
{
    LinkTestApp t;
    for (int i = 0; i < 10; ++i) ASSERT_EQ(muNew(t.app), i);
    t.take_lines();
    EXPECT_FALSE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Kelvaro Tessel 3", "Exceed files open")});
    EXPECT_TRUE(t.wire->wire.empty());
    EXPECT_EQ(t.wire->opens, 0);
}

TEST(Upload, WithNineDocumentsOpenItMayStart)
{
    LinkTestApp t;
    fill_remote(t);
    for (int i = 1; i < 9; ++i) ASSERT_EQ(muNew(t.app), i);
    t.take_lines();
    EXPECT_TRUE(muUpload_Click(t.app));
    EXPECT_EQ(t.app.documents().size(), 10u);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{finished});
}

TEST(Upload, ASecondUploadWhileOneRunsDoesNothing)
{
    LinkTestApp t;
    t.app.flags().upload_in_progress = true;
    EXPECT_FALSE(muUpload_Click(t.app));
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_EQ(t.wire->opens, 0);
    EXPECT_TRUE(t.app.flags().upload_in_progress);
}

TEST(Upload, NoDeviceIsAPlainMessageAndNoDocument)
{
    LinkTestApp t;
    t.fault(Fault::absent);
    EXPECT_FALSE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Kelvaro Tesselo 3", "no usb device")});
    EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::none});
    EXPECT_TRUE(t.app.documents().empty());
    expect_everything_back(t);
}

TEST(Upload, AMissingOrWrongWakeUpAnswerSays001AndOpensNoDocument)
{
    for (Fault f : {Fault::wrong_wakeup, Fault::empty_wakeup}) {
        LinkTestApp t;
        t.fault(f);
        EXPECT_FALSE(muUpload_Click(t.app));
        EXPECT_EQ(t.take_lines(),
                  std::vector<std::string>{message("Kelvaro Tesselo 3", "Upload Failed(Error #001)! " + common_tail)});
        EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
        EXPECT_TRUE(t.app.documents().empty());
        expect_everything_back(t);
    }
}

TEST(Upload, ALaterFailureLeavesTheNewDocumentOpenAndBlank)
{
    LinkTestApp t;
    fill_remote(t);
    t.fault(Fault::stale_header);
    EXPECT_FALSE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(),
              std::vector<std::string>{message("Kelvaro Tesselo 3", "Upload Failed(Error #003)! " + common_tail)});
    ASSERT_EQ(t.app.documents().size(), 2u);
    EXPECT_EQ(t.app.config(1).format_stamp, (std::array<std::uint8_t, 4>{4, 5, 0, 4}));
    expect_everything_back(t);
}

TEST(Upload, ARemoteWithNoDataLeavesABlankDocumentAndFinishes)
{
    LinkTestApp t;
    t.fault(Fault::no_data);
    EXPECT_TRUE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{finished});
    ASSERT_EQ(t.app.documents().size(), 1u);
    EXPECT_EQ(t.app.config(0).format_stamp, (std::array<std::uint8_t, 4>{4, 5, 0, 4}));
    expect_everything_back(t);
}

TEST(Upload, AnImageThatIsNoImageIsCorruptedAndTheDocumentStaysBlank)
{
    LinkTestApp t;
    std::vector<std::uint8_t> junk(6000, 0xFF);
    junk[96] = 0x70;  // an end position of 0x1070 + 4096
    junk[97] = 0x20;
    junk[98] = 0x00;
    t.remote->set_flash(junk);
    EXPECT_FALSE(muUpload_Click(t.app));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Kelvaro Tessel 3", "file is corrupted")});
    ASSERT_EQ(t.app.documents().size(), 1u);
    EXPECT_EQ(t.app.config(0).format_stamp, (std::array<std::uint8_t, 4>{4, 5, 0, 4}));
    expect_everything_back(t);
}

}  // namespace
}  // namespace tesselo::testing
