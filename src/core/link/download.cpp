#include "core/link/download.h"

#include <algorithm>
#include <cmath>

#include "core/app/application.h"
#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "core/image/checksum.h"
#include "core/image/image_writer.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_guard.h"

namespace tesselo {

namespace {

constexpr std::uint32_t ack_timeout = 2000;
constexpr int block_attempts = 3;

int shown(double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

std::string download_block_activity(std::size_t block, std::size_t blocks, int attempt)
{
    std::string text = "Block " + std::to_string(block) + " of " + std::to_string(blocks) + ", attempt " +
                       std::to_string(attempt) + " of " + std::to_string(block_attempts);
    if (attempt > 1) text += ": the remote did not confirm it";
    return text;
}

bool download_image(Application& app, std::vector<std::uint8_t>& image, std::size_t size)
{
    Ui& ui = app.ui();
    Link& link = app.link();
    LinkGuard guard(app, true);
    size = std::min(size, image.size());

    const OpeningResult opening = open_exchange(link, tag_download, download_times);
    switch (opening.outcome) {
    case Opening::ok: break;
    // A failure of the link, so the exclamation mark; only Upload's box is plain.
    case Opening::no_device: ui.message(title_main, text_no_usb_device, Icon::exclamation); return false;
    case Opening::wake_up_failed:
    case Opening::reply_empty:
    case Opening::reply_wrong_tag: show_link_failure(ui, with_common_tail(text_download_failed)); return false;
    default: return false;  // a write that failed: the remote has just gone
    }

    // The remote's four bytes go into the image, whatever the reply's length was.
    if (image.size() >= 104) std::copy(opening.reply.begin() + 8, opening.reply.begin() + 12, image.begin() + 100);

    // The bar starts at about 2.4 per cent, so that the user sees it alive.
    const double lead = static_cast<double>(size) / 40.0;
    const double maximum = static_cast<double>(size) + lead;
    double value = lead;
    ui.download_progress(shown(value), shown(maximum));

    std::uint8_t seq_high = 0;
    std::uint8_t seq_low = 0;
    Frame frame = make_frame(tag_download);
    std::vector<std::uint8_t>& block = link.block;
    std::array<std::uint8_t, frame_size> ack{};
    const std::size_t blocks = (size + block_data_size - 1) / block_data_size;
    // For a size that is an exact multiple of 4096 the last pass has nothing to send.
    for (std::size_t k = 0; k <= size / block_data_size; ++k) {
        const std::size_t remaining = size - block_data_size * k;
        const std::size_t count = std::min(remaining, block_data_size);
        frame[2] = static_cast<std::uint8_t>(count >> 8);
        frame[3] = static_cast<std::uint8_t>(count & 0xFF);
        if (++seq_low == 0) ++seq_high;
        if (remaining == 0) continue;
        frame[4] = seq_high;
        frame[5] = seq_low;
        frame[6] = 0;
        frame[7] = checksum(frame.data(), 7);
        std::copy(frame.begin(), frame.end(), block.begin());
        std::copy_n(image.begin() + static_cast<std::ptrdiff_t>(block_data_size * k), count, block.begin() + 8);
        block[8 + count] = checksum(block.data(), count + 8);

        for (int attempt = 0; attempt < block_attempts; ++attempt) {
            ui.download_activity(download_block_activity(k + 1, blocks, attempt + 1));
            std::size_t written = 0;
            if (link.write_usb(block.data(), count + 9, written, write_timeout) != 1 || written != count + 9) return false;
            ack.fill(0);
            if (link.read_usb(ack.data(), ack.size(), ack_timeout) == 0) {
                show_link_failure(ui, with_common_tail(text_download_failed));
                return false;
            }
            const int sent = static_cast<int>(big_endian(frame.data(), 4));
            const int answer = static_cast<int>(big_endian(ack.data(), 4));
            if (answer - 1 == sent) break;
        }
        // Three attempts without an accepted answer still go on: it is the
        // remote's last word at the end that counts.
        value += static_cast<double>(count);
        ui.download_progress(shown(value), shown(maximum));
        ui.yield();
    }

    const Frame end = make_frame(tag_download_end);
    std::size_t written = 0;
    if (link.write_usb(end.data(), end.size(), written, write_timeout) != 1 || written != end.size()) return false;
    ui.repaint();
    ui.download_progress(shown(maximum), shown(maximum));
    ui.message(title_main, text_send_complete, Icon::none);
    ui.download_progress(0, shown(maximum));
    return true;
}

bool muDownload_Click(Application& app)
{
    Ui& ui = app.ui();
    const Document* document = app.active();
    if (!document) return false;
    const int slot = document->slot;
    const std::string caption = document->title;
    ui.download_window_show(download_caption, true);
    ui.repaint();
    app.write_log("download(start) - " + caption);
    bool complete = false;
    {
        WaitCursor wait(ui);
        // The transfer's outcome is noted on the way through save_tofile.
        const auto hook = app.download_hook;
        app.download_hook = [&](std::vector<std::uint8_t>& image, std::size_t length) {
            complete = download_image(app, image, length);
        };
        save_tofile(app, (app.home() / scratch_image_name).string(), 1, slot);
        app.download_hook = hook;
    }
    app.write_log(caption + "-" + "Download to QM4100/QM5100");
    ui.download_window_unload();
    return complete;
}

}  // namespace tesselo
