#include "emulator/faults.h"

namespace tesselo::emulator {

const std::vector<FaultInfo>& fault_table()
{
    static const std::vector<FaultInfo> table = {
        {Fault::absent, "absent", "no remote on the bus: every exchange ends in \"no usb device\""},
        {Fault::silent, "silent", "takes every write and never answers anything"},
        {Fault::slow, "slow", "every answer comes 1500 ms late"},
        {Fault::mute_wakeup, "mute_wakeup", "no answer to the wake-up byte 0xF8 (the read times out)"},
        {Fault::empty_wakeup, "empty_wakeup", "the read of the wake-up answer completes with nothing"},
        {Fault::wrong_wakeup, "wrong_wakeup", "answers the wake-up byte with 0x15 instead of 0xF6"},
        {Fault::mute_reply, "mute_reply", "no information reply to the opening frame (the read times out)"},
        {Fault::empty_reply, "empty_reply", "the read of the information reply completes with nothing"},
        {Fault::short_reply, "short_reply", "the information reply has 20 bytes instead of 48"},
        {Fault::wrong_reply_tag, "wrong_reply_tag", "the information reply carries the tag 0x12 0x34 (good checksum)"},
        {Fault::bad_reply_checksum, "bad_reply_checksum", "the information reply has a bad checksum"},
        {Fault::zero_reply_bad_checksum, "zero_reply_bad_checksum",
         "the information reply has byte 0 of 0 and a bad checksum"},
        {Fault::error_header, "error_header", "error answer 0xEE 6 to the opening frame (header refused)"},
        {Fault::error_id, "error_id", "error answer 0xEE 3 to the opening frame (id refused)"},
        {Fault::error_unknown, "error_unknown", "error answer 0xEE 9 to the opening frame (unknown error)"},
        {Fault::stall_writes, "stall_writes", "takes no write at all: every write times out"},
        {Fault::stall_frames, "stall_frames", "every write of 8 bytes or more times out"},
        {Fault::stall_data, "stall_data", "every write of more than 8 bytes (blocks, data frames) times out"},
        {Fault::stall_go_ahead, "stall_go_ahead", "the go-ahead byte 0xFA of an upload block times out"},
        {Fault::stall_end_frame, "stall_end_frame", "the end frame of a download, clock sync or test times out"},
        {Fault::mute_ack, "mute_ack", "never acknowledges a block or data frame"},
        {Fault::empty_ack, "empty_ack", "the read of an acknowledgement completes with nothing"},
        {Fault::own_number_ack, "own_number_ack", "acknowledges a frame with its own number instead of the next"},
        {Fault::wrong_ack, "wrong_ack", "acknowledges a frame with its number plus 2"},
        {Fault::third_ack, "third_ack", "acknowledges a frame with its own number twice, the third time rightly"},
        {Fault::short_ack, "short_ack", "the acknowledgement has 4 bytes instead of 8"},
        {Fault::bad_ack_checksum, "bad_ack_checksum", "the acknowledgement has a bad checksum"},
        {Fault::no_data, "no_data", "has nothing to upload: the first request is answered with 0xBF 0xDC"},
        {Fault::flash_fail, "flash_fail", "error answer 0xEE 8 (flash failure) to the first block request"},
        {Fault::block_error_unknown, "block_error_unknown", "error answer 0xEE 9 to the first block request"},
        {Fault::stale_header, "stale_header", "answers a block request with a stale 0xAF 0xCF header"},
        {Fault::bad_header_checksum, "bad_header_checksum", "a block header with a bad checksum"},
        {Fault::empty_header, "empty_header", "the read of a block header completes with nothing"},
        {Fault::short_block, "short_block", "the first block's data is one byte short"},
        {Fault::bad_block_checksum, "bad_block_checksum", "the first block's data has a bad checksum"},
        {Fault::short_first_block, "short_first_block", "the first block carries only 64 bytes, the rest follows"},
        {Fault::learn_empty, "learn_empty", "the answer to the end of a learn completes with nothing"},
        {Fault::learn_refused, "learn_refused", "answers the end of a learn with 0xEE 0x04 instead of 0xBC 0xCC"},
    };
    return table;
}

std::optional<Fault> fault_by_name(const std::string& name)
{
    for (const auto& f : fault_table())
        if (name == f.name) return f.fault;
    return std::nullopt;
}

std::string fault_name(Fault fault)
{
    for (const auto& f : fault_table())
        if (f.fault == fault) return f.name;
    return {};
}

}  // namespace tesselo::emulator
