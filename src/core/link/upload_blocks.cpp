#include "core/link/upload_blocks.h"

#include <algorithm>
#include <array>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/image/checksum.h"
#include "core/link/exchange_opening.h"

namespace tesselo {

namespace {

constexpr std::uint32_t header_timeout = 2000;
constexpr std::uint32_t data_timeout = 1000;
constexpr std::size_t tail_room = 2000;
// Where the image's end position lies: data offset 96, after the 8-byte header.
constexpr std::size_t size_bytes_at = 8 + 96;

bool write_all(Link& link, const std::uint8_t* data, std::size_t count)
{
    std::size_t written = 0;
    return link.write_usb(data, count, written, write_timeout) == 1 && written == count;
}

bool is_tag(const std::uint8_t* bytes, Tag tag) { return bytes[0] == tag.first && bytes[1] == tag.second; }

}  // namespace

bool upload_blocks(Application& app, UploadedImage& uploaded)
{
    Ui& ui = app.ui();
    Link& link = app.link();

    const OpeningResult opening = send_opening(link, tag_upload, upload_times);
    switch (opening.outcome) {
    case Opening::ok: break;
    case Opening::reply_empty: show_link_failure(ui, with_common_tail(text_upload_failed_002)); return false;
    case Opening::handshake_error:
    case Opening::header_error:
    case Opening::id_error: show_link_failure(ui, handshake_words(opening.outcome)); return false;
    default: return false;  // the write failed: the remote has just gone
    }

    Frame frame = make_frame(tag_upload);
    std::array<std::uint8_t, frame_size> header{};
    std::vector<std::uint8_t>& block = link.block;
    std::uint8_t seq_high = 0;
    std::uint8_t seq_low = 1;
    uploaded = UploadedImage{};
    for (;;) {
        // The request for block number seq.
        frame[4] = seq_high;
        frame[5] = seq_low;
        frame[7] = checksum(frame.data(), 7);
        if (!write_all(link, frame.data(), frame.size())) return false;
        header.fill(0);
        const int got = link.read_usb(header.data(), header.size(), header_timeout);
        if (got == 0) return false;
        const bool good_sum = frame_checksum_good(header.data());
        if (!(got == static_cast<int>(frame_size) && good_sum && is_tag(header.data(), tag_upload))) {
            if (good_sum && is_tag(header.data(), tag_upload_end)) return true;
            if (good_sum && header[0] == error_answer) {
                if (header[1] == error_flash) show_link_failure(ui, text_flash_fail);
                return false;
            }
            show_link_failure(ui, with_common_tail(text_upload_failed_003));
            return false;
        }
        const std::size_t count = std::min<std::size_t>(big_endian(header.data(), 2), block_data_size);
        std::copy(header.begin(), header.end(), block.begin());
        const std::uint8_t go = go_ahead_byte;
        if (!write_all(link, &go, 1)) return false;
        const int data = link.read_usb(block.data() + frame_size, count + 1, data_timeout);
        // A damaged block is not asked for again.
        if (data != static_cast<int>(count + 1) || block[frame_size + count] != checksum(block.data(), count + 8)) {
            show_link_failure(ui, with_common_tail(text_upload_failed_004));
            return false;
        }
        if (big_endian(block.data(), 4) == 1) {
            // The image's end position plus the flash base, as the writer put it
            // at offset 96; a first block under 100 bytes leaves what the
            // buffer held before. The fourth byte is fetched and ignored.
            const long image_size = static_cast<long>(block[size_bytes_at]) + 256L * block[size_bytes_at + 1] +
                                    65536L * block[size_bytes_at + 2] + 2 - 4096;
            uploaded.image.assign(static_cast<std::size_t>(std::max(image_size + static_cast<long>(tail_room) + 1, 0L)), 0);
        }
        // Bytes arrive in the order of the requests; an image too small for
        // them grows rather than lose any.
        if (uploaded.image.size() < uploaded.total + count) uploaded.image.resize(uploaded.total + count, 0);
        std::copy_n(block.begin() + frame_size, count, uploaded.image.begin() + static_cast<std::ptrdiff_t>(uploaded.total));
        uploaded.total += count;
        if (++seq_low == 0) ++seq_high;
    }
}

}  // namespace tesselo
