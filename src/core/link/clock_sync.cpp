#include "core/link/clock_sync.h"

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/ui.h"
#include "core/image/checksum.h"
#include "core/link/download.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_guard.h"

namespace tesselo {

namespace {

std::uint8_t bcd(int value) { return static_cast<std::uint8_t>((value / 10) * 16 + value % 10); }

constexpr int clock_attempts = 3;

}  // namespace

std::array<std::uint8_t, 12> clock_frame(const LocalTime& now)
{
    const Frame head = make_frame(tag_clock, 3, 1);
    std::array<std::uint8_t, 12> f{};
    std::copy(head.begin(), head.end(), f.begin());
    f[8] = bcd(now.hour);
    f[9] = bcd(now.minute);
    f[10] = bcd(now.second);
    f[11] = checksum(f.data(), 11);
    return f;
}

bool clock_sync(Application& app)
{
    Ui& ui = app.ui();
    Link& link = app.link();
    LinkGuard guard(app);
    WaitCursor wait(ui);

    const OpeningResult opening = open_exchange(link, tag_clock, clock_times);
    switch (opening.outcome) {
    case Opening::ok: break;
    // These two go to the Add IR Code dialog's status line, seen only when it is open.
    case Opening::no_device: ui.editir_status(text_no_usb_device); return false;
    case Opening::reply_empty: ui.editir_status("Download Failed(Error #002)! "); return false;
    case Opening::handshake_error:
    case Opening::header_error:
    case Opening::id_error: show_link_failure(ui, handshake_words(opening.outcome)); return false;
    default: return false;
    }

    // The time is read once: every attempt carries the same value.
    const auto frame = clock_frame(app.clock().local_time());
    bool accepted = false;
    for (int attempt = 0; attempt < clock_attempts && !accepted; ++attempt) {
        std::size_t written = 0;
        if (link.write_usb(frame.data(), frame.size(), written, write_timeout) != 1 || written != frame.size())
            break;  // nothing received: the exchange fails at once
        std::array<std::uint8_t, frame_size> ack{};
        // Only a whole ack of 8 bytes is a frame received; without one the
        // exchange fails at once, so a late ack is never taken by a later attempt.
        if (link.read_usb(ack.data(), ack.size(), 2000) != static_cast<int>(frame_size)) break;
        const bool good = frame_checksum_good(ack.data()) && ack[0] == tag_clock.first && ack[1] == tag_clock.second;
        if (good && static_cast<int>(big_endian(ack.data(), 4)) - 1 == static_cast<int>(big_endian(frame.data(), 4)))
            accepted = true;
    }
    if (!accepted) {
        show_link_failure(ui, with_common_tail(text_download_failed));
        return false;
    }
    const Frame end = make_frame(tag_clock_end);
    std::size_t written = 0;
    // A failed write of the end frame closes the link but the message still comes.
    if (link.write_usb(end.data(), end.size(), written, write_timeout) != 1 || written != end.size())
        link.close_usb();
    app.write_log("Clock sync");
    ui.message(title_main, text_send_complete, Icon::none);
    return true;
}

}  // namespace tesselo
