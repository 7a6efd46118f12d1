#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/link/frames.h"

namespace tesselo {

class Link;
class Ui;

// How the 48-byte information reply is judged: A by the download, B by
// upload, clock sync, learn and the start of test IR, C (not at all) by the
// stop of test IR.
enum class ReplyRule { A, B, C };

struct OpeningTimes {
    std::uint32_t wake_up_ms;
    std::uint32_t reply_ms;
    ReplyRule rule;
    // The stop of test IR skips the drain, for the remote is busy sending.
    bool drain = true;
};

inline constexpr OpeningTimes download_times{2000, 1000, ReplyRule::A};
inline constexpr OpeningTimes upload_times{1000, 2000, ReplyRule::B};
inline constexpr OpeningTimes clock_times{1000, 2000, ReplyRule::B};
inline constexpr OpeningTimes learn_times{1000, 2000, ReplyRule::B};
inline constexpr OpeningTimes test_start_times{1000, 2000, ReplyRule::B};
inline constexpr OpeningTimes test_stop_times{2000, 1000, ReplyRule::C, false};

enum class Opening {
    ok,
    no_device,             // open_usb gave 0
    wake_up_write_failed,  // the write of 0xF8 failed
    wake_up_failed,        // the read of 0xF6 returned 0, or another byte came
    frame_write_failed,    // the write of the opening frame failed
    reply_empty,           // the reply's read returned 0
    reply_wrong_tag,       // rule A: 48 bytes with another tag
    handshake_error,       // rule B: bad checksum, byte 0 not 0
    header_error,          // rule B: error answer 0xEE 6
    id_error,              // rule B: error answer 0xEE 3
};

struct OpeningResult {
    Opening outcome = Opening::no_device;
    // The reply as read into a zeroed buffer, and the read's result.
    std::array<std::uint8_t, reply_size> reply{};
    int reply_result = 0;
};

// The steps that every exchange starts with: open the link, drain it, wake
// the remote, send the opening frame of `tag` and judge the reply. The link
// stays open whatever the outcome: the caller closes it at its exit.
OpeningResult open_exchange(Link& link, Tag tag, const OpeningTimes& times);
// Its first half: open, drain, 0xF8 and the answer 0xF6.
Opening wake_remote(Link& link, const OpeningTimes& times);
// Its second half: the opening frame and the judged reply.
OpeningResult send_opening(Link& link, Tag tag, const OpeningTimes& times);

// Judges a reply by rule A, B or C.
Opening judge_reply(const std::uint8_t* reply, int result, Tag tag, ReplyRule rule);

inline const std::string text_no_usb_device = "no usb device";
inline const std::string text_common_tail =
    "Please check the connection and make sure PC Link mode is activated, and then try again";
inline const std::string text_handshake_error = "Handshaking Error #1. Try again!";
inline const std::string text_header_error = "Handshaking Header Error . Try again!";
inline const std::string text_id_error = "Handshaking ID Error . Try again!";
inline const std::string text_flash_fail = "Data Flash Fail. Check Remote!";
inline const std::string text_send_complete = "Send Complete!";

// The first line of a failure, a carriage return, and the common tail.
std::string with_common_tail(const std::string& first_line);
// A failure's message box: title "Kelvaro Tesselo 3", the exclamation mark.
void show_link_failure(Ui& ui, const std::string& text);
// The handshaking words of a rule B outcome, or an empty text.
std::string handshake_words(Opening outcome);

}  // namespace tesselo
