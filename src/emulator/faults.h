#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tesselo::emulator {

// The ways the emulated remote can misbehave, one for every failure that the
// editor's side of the link must survive.
enum class Fault {
    absent,
    silent,
    slow,
    mute_wakeup,
    empty_wakeup,
    wrong_wakeup,
    mute_reply,
    empty_reply,
    short_reply,
    wrong_reply_tag,
    bad_reply_checksum,
    zero_reply_bad_checksum,
    error_header,
    error_id,
    error_unknown,
    stall_writes,
    stall_frames,
    stall_data,
    stall_go_ahead,
    stall_end_frame,
    mute_ack,
    empty_ack,
    own_number_ack,
    wrong_ack,
    third_ack,
    short_ack,
    bad_ack_checksum,
    no_data,
    flash_fail,
    block_error_unknown,
    stale_header,
    bad_header_checksum,
    empty_header,
    short_block,
    bad_block_checksum,
    short_first_block,
    learn_empty,
    learn_refused,
};

struct FaultInfo {
    Fault fault;
    const char* name;
    const char* what;
};

// Every fault with its name and what the remote then does.
const std::vector<FaultInfo>& fault_table();
std::optional<Fault> fault_by_name(const std::string& name);
std::string fault_name(Fault fault);

}  // namespace tesselo::emulator
