#include "core/link/exchange_opening.h"

#include "core/document/ui.h"
#include "core/image/checksum.h"
#include "core/link/link.h"

namespace tesselo {

Opening judge_reply(const std::uint8_t* reply, int result, Tag tag, ReplyRule rule)
{
    if (rule == ReplyRule::C) return Opening::ok;
    if (result == 0) return Opening::reply_empty;
    // A short read or a time-out goes on with what is in the buffer.
    if (result != static_cast<int>(reply_size)) return Opening::ok;
    const bool tag_matches = reply[0] == tag.first && reply[1] == tag.second;
    if (rule == ReplyRule::A) return tag_matches ? Opening::ok : Opening::reply_wrong_tag;
    if (reply[reply_size - 1] != checksum(reply, reply_size - 1))
        return reply[0] == 0 ? Opening::ok : Opening::handshake_error;
    if (!tag_matches && reply[0] == error_answer) {
        if (reply[1] == error_header) return Opening::header_error;
        if (reply[1] == error_id) return Opening::id_error;
    }
    return Opening::ok;
}

Opening wake_remote(Link& link, const OpeningTimes& times)
{
    if (link.open_usb() == 0) {
        link.close_usb();
        return Opening::no_device;
    }
    if (times.drain) {
        // Whatever the remote still had to say is read and forgotten.
        std::array<std::uint8_t, drain_size> scratch{};
        link.read_usb(scratch.data(), scratch.size(), 1000);
        link.close_usb();
        link.open_usb();
    }
    std::size_t written = 0;
    const std::uint8_t wake = wake_up_byte;
    if (link.write_usb(&wake, 1, written, write_timeout) != 1 || written != 1) return Opening::wake_up_write_failed;
    std::uint8_t answer = 0;
    const int got = link.read_usb(&answer, 1, times.wake_up_ms);
    // A time-out passes: a remote that is slow with its answer still takes the next frame.
    if (got == 0 || (got > 0 && answer != wake_up_answer)) return Opening::wake_up_failed;
    return Opening::ok;
}

OpeningResult send_opening(Link& link, Tag tag, const OpeningTimes& times)
{
    OpeningResult r;
    const Frame opening = make_frame(tag);
    std::size_t written = 0;
    if (link.write_usb(opening.data(), opening.size(), written, write_timeout) != 1 || written != opening.size()) {
        r.outcome = Opening::frame_write_failed;
        return r;
    }
    r.reply_result = link.read_usb(r.reply.data(), r.reply.size(), times.reply_ms);
    r.outcome = judge_reply(r.reply.data(), r.reply_result, tag, times.rule);
    return r;
}

OpeningResult open_exchange(Link& link, Tag tag, const OpeningTimes& times)
{
    const Opening woken = wake_remote(link, times);
    if (woken != Opening::ok) {
        OpeningResult r;
        r.outcome = woken;
        return r;
    }
    return send_opening(link, tag, times);
}

std::string with_common_tail(const std::string& first_line) { return first_line + "\r" + text_common_tail; }

void show_link_failure(Ui& ui, const std::string& text) { ui.message(title_main, text, Icon::exclamation); }

std::string handshake_words(Opening outcome)
{
    switch (outcome) {
    case Opening::handshake_error: return text_handshake_error;
    case Opening::header_error: return text_header_error;
    case Opening::id_error: return text_id_error;
    default: return {};
    }
}

}  // namespace tesselo
