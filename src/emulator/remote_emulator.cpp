#include "emulator/remote_emulator.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "core/image/checksum.h"

namespace tesselo::emulator {

namespace {

constexpr std::uint32_t slow_ms = 1500;
constexpr std::size_t short_first_block_size = 64;

std::vector<std::uint8_t> frame_bytes(const Frame& f) { return {f.begin(), f.end()}; }

bool is_opening(const std::uint8_t* d)
{
    return d[2] == 0 && d[3] == 0 && d[4] == 0 && d[5] == 0 && d[6] == 0;
}

bool is_end_frame(const std::uint8_t* d)
{
    const Tag tag{d[0], d[1]};
    return is_opening(d) && (tag == tag_download_end || tag == tag_clock_end || tag == tag_test_end);
}

}  // namespace

RemoteEmulator::RemoteEmulator(std::filesystem::path flash_file) : flash_file_(std::move(flash_file))
{
    for (std::size_t i = 0; i < learned_code.size(); ++i) learned_code[i] = static_cast<std::uint8_t>(0x40 + i);
    if (flash_file_.empty()) return;
    std::ifstream in(flash_file_, std::ios::binary);
    if (in) flash_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void RemoteEmulator::set_flash(std::vector<std::uint8_t> image)
{
    flash_ = std::move(image);
    if (flash_file_.empty()) return;
    // Written beside and renamed, so that a stopped emulator never leaves half a flash.
    const auto temp = flash_file_.string() + ".new";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(flash_.data()), static_cast<std::streamsize>(flash_.size()));
        if (!out) return;
    }
    std::error_code ec;
    std::filesystem::rename(temp, flash_file_, ec);
}

void RemoteEmulator::connect()
{
    pending_.clear();
    block_.reset();
}

void RemoteEmulator::disconnect()
{
    pending_.clear();
    block_.reset();
}

void RemoteEmulator::answer(std::vector<std::uint8_t> bytes, std::uint32_t now)
{
    if (has(Fault::silent)) return;
    const std::uint32_t delay = latency_ms + (has(Fault::slow) ? slow_ms : 0);
    pending_.push_back({std::move(bytes), now + delay, false});
}

void RemoteEmulator::answer_nothing_at_all(std::uint32_t now)
{
    if (has(Fault::silent)) return;
    pending_.push_back({{}, now + latency_ms + (has(Fault::slow) ? slow_ms : 0), true});
}

RemoteEmulator::Take RemoteEmulator::receive(const std::uint8_t* data, std::size_t count, std::uint32_t now)
{
    // A write ends the reads that complete with nothing.
    pending_.erase(std::remove_if(pending_.begin(), pending_.end(), [](const Outgoing& o) { return o.empty; }),
                   pending_.end());
    if (has(Fault::stall_writes) || (has(Fault::stall_frames) && count >= frame_size) ||
        (has(Fault::stall_data) && count > frame_size) ||
        (has(Fault::stall_go_ahead) && count == 1 && data[0] == go_ahead_byte) ||
        (has(Fault::stall_end_frame) && count == frame_size && is_end_frame(data)))
        return Take::stalled;

    if (count == 1 && data[0] == wake_up_byte) {
        mode_ = Mode::none;
        block_.reset();
        if (has(Fault::mute_wakeup)) return Take::accepted;
        if (has(Fault::empty_wakeup)) answer_nothing_at_all(now);
        else answer({has(Fault::wrong_wakeup) ? std::uint8_t{0x15} : wake_up_answer}, now);
        return Take::accepted;
    }
    if (count == 1 && data[0] == go_ahead_byte) {
        go_ahead(now);
        return Take::accepted;
    }
    // Anything that is no frame with a good checksum is not taken up.
    if (count >= frame_size && frame_checksum_good(data)) frame_received(data, count, now);
    return Take::accepted;
}

void RemoteEmulator::frame_received(const std::uint8_t* d, std::size_t count, std::uint32_t now)
{
    const Tag tag{d[0], d[1]};
    const unsigned length = big_endian(d, 2);
    const unsigned sequence = big_endian(d, 4);
    if (is_opening(d)) {
        if (tag == tag_download) mode_ = Mode::download, incoming_.clear();
        else if (tag == tag_upload) mode_ = Mode::upload;
        else if (tag == tag_clock) mode_ = Mode::clock;
        else if (tag == tag_learn) mode_ = Mode::learn;
        else if (tag == tag_test) mode_ = Mode::test;
        else if (tag == tag_test_stop) mode_ = Mode::test_stop, sending_code = false;
        else if (tag == tag_download_end && mode_ == Mode::download) return end_of_download();
        else if (tag == tag_clock_end && mode_ == Mode::clock) {
            ++clock_syncs;
            return;
        } else if (tag == tag_test_end && mode_ == Mode::test) {
            sending_code = true;
            return;
        } else
            return;
        ack_attempts_.clear();
        information_reply(tag, now);
        return;
    }
    if (mode_ == Mode::download && tag == tag_download && length > 0) {
        download_block(d, count, sequence, now);
    } else if (mode_ == Mode::upload && tag == tag_upload && length == 0) {
        block_request(sequence, now);
    } else if (mode_ == Mode::clock && tag == tag_clock && length == 3 && count >= 12) {
        if (d[11] == checksum(d, 11)) std::copy(d + 8, d + 11, clock_bcd.begin());
        acknowledge(tag, sequence, now);
    } else if (mode_ == Mode::learn && tag == tag_learn && sequence == 1) {
        // The learned code comes when the other remote has been pointed at the eye.
        std::vector<std::uint8_t> reply{tag_learn.first, tag_learn.second, 0x00, 0x40, 0x00, 0x00, 0x00, 0x00};
        reply[7] = checksum(reply.data(), 7);
        reply.insert(reply.end(), learned_code.begin(), learned_code.end());
        reply.push_back(checksum(reply.data(), reply.size()));
        if (!has(Fault::silent)) pending_.push_back({std::move(reply), now + learn_capture_ms + latency_ms, false});
    } else if (mode_ == Mode::learn && tag == tag_learn && sequence == 2) {
        end_of_learn(now);
    } else if (mode_ == Mode::test && tag == tag_test && length > 0) {
        test_frame.assign(d, d + count);
        acknowledge(tag, sequence, now);
    }
}

void RemoteEmulator::information_reply(Tag tag, std::uint32_t now)
{
    if (has(Fault::mute_reply)) return;
    if (has(Fault::empty_reply)) return answer_nothing_at_all(now);
    std::vector<std::uint8_t> reply(reply_size, 0);
    reply[0] = tag.first;
    reply[1] = tag.second;
    std::copy(remote_value.begin(), remote_value.end(), reply.begin() + 8);
    reply[17] = 0x01;
    reply[18] = 0x07;
    if (has(Fault::wrong_reply_tag)) reply[0] = 0x12, reply[1] = 0x34;
    if (has(Fault::error_header)) reply[0] = error_answer, reply[1] = error_header;
    if (has(Fault::error_id)) reply[0] = error_answer, reply[1] = error_id;
    if (has(Fault::error_unknown)) reply[0] = error_answer, reply[1] = 9;
    if (has(Fault::zero_reply_bad_checksum)) reply[0] = 0;
    reply[47] = checksum(reply.data(), 47);
    if (has(Fault::bad_reply_checksum) || has(Fault::zero_reply_bad_checksum))
        reply[47] = static_cast<std::uint8_t>(reply[47] + 1);
    if (has(Fault::short_reply)) reply.resize(20);
    answer(std::move(reply), now);
}

void RemoteEmulator::acknowledge(Tag tag, unsigned sequence, std::uint32_t now)
{
    if (has(Fault::mute_ack)) return;
    if (has(Fault::empty_ack)) return answer_nothing_at_all(now);
    unsigned number = sequence + 1;
    if (has(Fault::own_number_ack)) number = sequence;
    if (has(Fault::wrong_ack)) number = sequence + 2;
    if (has(Fault::third_ack) && ++ack_attempts_[sequence] < 3) number = sequence;
    auto ack = frame_bytes(make_frame(tag, 0, static_cast<std::uint16_t>(number)));
    if (has(Fault::bad_ack_checksum)) ack[7] = static_cast<std::uint8_t>(ack[7] + 1);
    if (has(Fault::short_ack)) ack.resize(4);
    answer(std::move(ack), now);
}

void RemoteEmulator::download_block(const std::uint8_t* d, std::size_t count, unsigned sequence,
                                    std::uint32_t now)
{
    const std::size_t length = big_endian(d, 2);
    if (sequence == 0 || count != length + 9 || d[count - 1] != checksum(d, count - 1)) {
        // A damaged block is asked for again: the answer carries its own number.
        answer(frame_bytes(make_frame(tag_download, 0, static_cast<std::uint16_t>(sequence))), now);
        return;
    }
    const std::size_t start = (sequence - 1) * block_data_size;
    if (incoming_.size() < start + length) incoming_.resize(start + length, 0);
    std::copy(d + 8, d + 8 + length, incoming_.begin() + static_cast<std::ptrdiff_t>(start));
    acknowledge(tag_download, sequence, now);
}

void RemoteEmulator::end_of_download()
{
    mode_ = Mode::none;
    if (incoming_.empty()) return;
    set_flash(std::move(incoming_));
    incoming_.clear();
    ++downloads_completed;
}

void RemoteEmulator::block_request(unsigned sequence, std::uint32_t now)
{
    block_.reset();
    if (sequence == 1 && has(Fault::flash_fail))
        return answer(frame_bytes(make_frame({error_answer, error_flash})), now);
    if (sequence == 1 && has(Fault::block_error_unknown))
        return answer(frame_bytes(make_frame({error_answer, 9})), now);
    if (has(Fault::empty_header)) return answer_nothing_at_all(now);

    const bool short_first = has(Fault::short_first_block);
    std::size_t start = (sequence - 1) * block_data_size;
    std::size_t room = block_data_size;
    if (short_first) {
        start = sequence == 1 ? 0 : short_first_block_size + (sequence - 2) * block_data_size;
        if (sequence == 1) room = short_first_block_size;
    }
    if (sequence == 0 || has(Fault::no_data) || start >= flash_.size())
        return answer(frame_bytes(make_frame(tag_upload_end, 0, static_cast<std::uint16_t>(sequence))), now);

    const std::size_t count = std::min(room, flash_.size() - start);
    const Tag tag = sequence == 1 && has(Fault::stale_header) ? tag_download : tag_upload;
    auto header = frame_bytes(make_frame(tag, static_cast<std::uint16_t>(count), static_cast<std::uint16_t>(sequence)));
    if (has(Fault::bad_header_checksum)) header[7] = static_cast<std::uint8_t>(header[7] + 1);
    block_ = PendingBlock{header, start, count, sequence};
    answer(std::move(header), now);
}

void RemoteEmulator::go_ahead(std::uint32_t now)
{
    if (!block_) return;
    const PendingBlock b = *block_;
    block_.reset();
    std::vector<std::uint8_t> data(flash_.begin() + static_cast<std::ptrdiff_t>(b.start),
                                   flash_.begin() + static_cast<std::ptrdiff_t>(b.start + b.count));
    std::vector<std::uint8_t> whole = b.header;
    whole.insert(whole.end(), data.begin(), data.end());
    std::uint8_t sum = checksum(whole.data(), whole.size());
    if (b.sequence == 1 && has(Fault::bad_block_checksum)) sum = static_cast<std::uint8_t>(sum + 1);
    data.push_back(sum);
    if (b.sequence == 1 && has(Fault::short_block)) data.erase(data.begin());
    answer(std::move(data), now);
}

void RemoteEmulator::end_of_learn(std::uint32_t now)
{
    // The end of a learn stops a capture that has not come yet.
    std::erase_if(pending_, [now](const Outgoing& o) { return o.ready_at > now && o.bytes.size() == 73; });
    if (has(Fault::learn_empty)) return answer_nothing_at_all(now);
    const Tag tag = has(Fault::learn_refused) ? Tag{error_answer, 0x04} : tag_learn_end;
    answer(frame_bytes(make_frame(tag)), now);
}

}  // namespace tesselo::emulator
