#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/link/frames.h"
#include "emulator/emulator_transport.h"
#include "support/test_app.h"

namespace tesselo::testing {

// A recording Ui that also keeps every value ProgressBar2 was given.
class LinkUi : public RecordingUi {
public:
    using RecordingUi::RecordingUi;
    std::vector<std::pair<int, int>> bar;
    std::vector<std::string> activities;
    std::vector<std::string> window_events;
    // The clock's tick at each time the upload commands came back.
    VirtualClock* clock = nullptr;
    std::vector<std::uint32_t> commands_back_at;
    void upload_commands_enabled(bool enabled) override
    {
        if (enabled && clock) commands_back_at.push_back(clock->tick_count());
        RecordingUi::upload_commands_enabled(enabled);
    }
    void download_progress(int value, int maximum) override
    {
        bar.emplace_back(value, maximum);
        RecordingUi::download_progress(value, maximum);
    }
    void download_activity(const std::string& text) override
    {
        activities.push_back(text);
        RecordingUi::download_activity(text);
    }
    void download_window_show(const std::string& caption, bool progress_bar) override
    {
        window_events.push_back("show " + caption + (progress_bar ? " with bar" : " without bar"));
        RecordingUi::download_window_show(caption, progress_bar);
    }
    void download_window_hide() override
    {
        window_events.push_back("hide");
        RecordingUi::download_window_hide();
    }
    void download_window_unload() override
    {
        window_events.push_back("unload");
        RecordingUi::download_window_unload();
    }
};

// An application whose link reaches the in-process emulator on the virtual clock.
struct LinkTestApp : BasicTestApp<LinkUi> {
    std::shared_ptr<emulator::RemoteEmulator> remote = std::make_shared<emulator::RemoteEmulator>();
    emulator::EmulatorTransport* wire = nullptr;

    LinkTestApp()
    {
        auto transport = std::make_unique<emulator::EmulatorTransport>(remote, clock);
        wire = transport.get();
        app.link().set_transport(std::move(transport));
        ui.clock = &clock;
    }

    void fault(emulator::Fault f) { remote->add_fault(f); }

    // The transfers from the host, the failed ones included.
    std::vector<std::vector<std::uint8_t>> host_writes() const
    {
        std::vector<std::vector<std::uint8_t>> w;
        for (const auto& r : wire->wire)
            if (r.from_host) w.push_back(r.bytes);
        return w;
    }
    bool link_closed() { return app.link().usb_device_path.empty() && app.link().read_pipe == -1 && app.link().write_pipe == -1; }
};

inline std::vector<std::uint8_t> bytes(std::initializer_list<int> list)
{
    std::vector<std::uint8_t> v;
    for (int b : list) v.push_back(static_cast<std::uint8_t>(b));
    return v;
}

inline std::vector<std::uint8_t> frame_of(const Frame& f) { return {f.begin(), f.end()}; }

inline const std::string common_tail =
    "\\rPlease check the connection and make sure PC Link mode is activated, and then try again";

}  // namespace tesselo::testing
