#include "core/ir/learn_test_ir.h"

#include <algorithm>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/ui.h"
#include "core/image/checksum.h"
#include "core/ir/current_code.h"
#include "core/ir/ir_storage.h"
#include "core/link/download.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_guard.h"

namespace tesselo {

namespace {

constexpr int test_attempts = 3;

// At every end of a learn or a test: the link closed (by the guard), the
// pointer back, the flag cleared.
class LearnEnd {
public:
    explicit LearnEnd(Application& app) : app_(app) {}
    ~LearnEnd() { app_.flags().learn_in_progress = false; }
    LearnEnd(const LearnEnd&) = delete;
    LearnEnd& operator=(const LearnEnd&) = delete;

private:
    Application& app_;
};

bool written_whole(Link& link, const std::uint8_t* bytes, std::size_t count)
{
    std::size_t written = 0;
    return link.write_usb(bytes, count, written, write_timeout) == 1 && written == count;
}

bool send_frame(Link& link, const Frame& frame) { return written_whole(link, frame.data(), frame.size()); }

// The opening's failures as the learn reports them.
bool learn_opened(Application& app, const OpeningResult& opening)
{
    Ui& ui = app.ui();
    switch (opening.outcome) {
    case Opening::ok: return true;
    case Opening::no_device: ui.editir_status(text_no_usb_device); return false;
    case Opening::handshake_error:
    case Opening::header_error:
    case Opening::id_error: show_link_failure(ui, handshake_words(opening.outcome)); return false;
    default: ui.editir_status(text_not_connected); return false;
    }
}

// The opening's failures as the start of a test reports them.
bool test_opened(Application& app, const OpeningResult& opening)
{
    Ui& ui = app.ui();
    switch (opening.outcome) {
    case Opening::ok: return true;
    case Opening::no_device: ui.editir_status(text_no_usb_device); return false;
    case Opening::reply_empty: ui.editir_status(text_test_failed_002); return false;
    case Opening::handshake_error:
    case Opening::header_error:
    case Opening::id_error: show_link_failure(ui, handshake_words(opening.outcome)); return false;
    default: ui.editir_status(text_download_failed); return false;
    }
}

}  // namespace

std::vector<std::uint8_t> test_ir_frame(const CurrentIrCode& code)
{
    const bool learned = code.is_learned();
    const Frame head = make_frame(tag_test, learned ? 0x40 : 0x80, 1, learned ? 0 : 1);
    std::vector<std::uint8_t> frame(head.begin(), head.end());
    if (!learned) frame.insert(frame.end(), code.current_ir_format.begin(), code.current_ir_format.end());
    frame.insert(frame.end(), code.current_ir_data.begin(), code.current_ir_data.end());
    frame.push_back(checksum(frame.data(), frame.size()));
    return frame;
}

bool EditIR_LearnIR(Application& app, const Configuration& config)
{
    Ui& ui = app.ui();
    CurrentIrCode& code = app.current_ir;
    code.name.clear();
    if (app.flags().learn_in_progress) return false;
    if (!learning_memory_free(config)) {
        ui.message(title_main, text_learning_full, Icon::exclamation);
        return false;
    }
    Link& link = app.link();
    TIMEDELAY(app.clock(), 300);
    app.flags().learn_in_progress = true;
    LearnEnd end(app);
    LinkGuard guard(app);
    WaitCursor wait(ui);

    if (!learn_opened(app, open_exchange(link, tag_learn, learn_times))) return false;
    if (!send_frame(link, make_frame(tag_learn, 0, 1))) return false;
    ui.editir_status(text_learn_ready);
    ui.repaint();
    // The user now points the other remote at the learning eye.
    std::array<std::uint8_t, learn_reply_size> reply{};
    link.read_usb(reply.data(), reply.size(), 15000);
    if (!send_frame(link, make_frame(tag_learn, 0, 2))) return false;
    std::array<std::uint8_t, frame_size> answer{};
    if (link.read_usb(answer.data(), answer.size(), 2000) == 0) {
        ui.editir_status(text_learned_failed_003);
        return false;
    }
    if (answer[0] != tag_learn_end.first || answer[1] != tag_learn_end.second) {
        ui.editir_status(text_learned_failed_004);
        return false;
    }
    ui.editir_status(text_learn_ok);
    code.name = text_learning_code;
    app.flags().learn_in_progress = false;
    ui.repaint();
    std::copy(reply.begin() + 8, reply.begin() + 72, code.current_ir_data.begin());
    code.current_ir_type = ir_type_learned;
    return true;
}

bool TestIR_Start(Application& app, std::uint8_t ir_type, int minimum)
{
    Ui& ui = app.ui();
    CurrentIrCode& code = app.current_ir;
    if (code.name.empty() || app.flags().learn_in_progress) return false;
    app.flags().learn_in_progress = false;
    ui.editir_status("    ");
    ui.repaint();
    LearnEnd end(app);
    WaitCursor wait(ui);
    TIMEDELAY(app.clock(), 300);
    if (minimum >= 0) TIMEDELAY(app.clock(), static_cast<std::uint32_t>(minimum));

    Link& link = app.link();
    LinkGuard guard(app);
    if (!test_opened(app, open_exchange(link, tag_test, test_start_times))) return false;

    CurrentIrCode sent = code;
    sent.current_ir_type = ir_type;
    const std::vector<std::uint8_t> frame = test_ir_frame(sent);
    bool accepted = false;
    for (int attempt = 0; attempt < test_attempts && !accepted; ++attempt) {
        std::array<std::uint8_t, frame_size> answer{};
        int got = 0;
        if (written_whole(link, frame.data(), frame.size())) got = link.read_usb(answer.data(), answer.size(), 2000);
        const bool frame_received = got == static_cast<int>(frame_size);
        const bool frame_good = frame_received && frame_checksum_good(answer.data()) &&
                                answer[0] == tag_test.first && answer[1] == tag_test.second;
        if (!frame_received && !frame_good) {
            show_link_failure(ui, with_common_tail(text_test_failed_111));
            return false;
        }
        if (frame_good && static_cast<int>(big_endian(answer.data(), 4)) - 1 == 1) accepted = true;
    }
    if (!accepted) {
        show_link_failure(ui, with_common_tail(text_test_failed_112));
        return false;
    }
    send_frame(link, make_frame(tag_test_end));
    TIMEDELAY(app.clock(), 20);
    link.close_usb();
    // The remote now sends the code again and again until it hears from the release.
    ui.editir_status(text_sending_data);
    return true;
}

bool TestIR_End(Application& app, int minimum)
{
    Ui& ui = app.ui();
    if (minimum >= 0) TIMEDELAY(app.clock(), static_cast<std::uint32_t>(minimum));
    TIMEDELAY(app.clock(), 300);
    LearnEnd end(app);
    WaitCursor wait(ui);
    Link& link = app.link();
    LinkGuard guard(app);

    // No drain: the remote is busy sending.
    const Opening woken = wake_remote(link, test_stop_times);
    switch (woken) {
    case Opening::ok: break;
    case Opening::no_device: ui.editir_status(text_no_usb_device); return false;
    case Opening::wake_up_failed: show_link_failure(ui, with_common_tail(text_test_failed_113)); return false;
    default: ui.editir_status(text_download_failed); return false;
    }
    const OpeningResult stop = send_opening(link, tag_test_stop, test_stop_times);
    if (stop.outcome == Opening::frame_write_failed) {
        ui.editir_status(text_download_failed);
        return false;
    }
    if (stop.reply_result == 0) return false;
    ui.editir_status(text_send_completed);
    return true;
}

}  // namespace tesselo
