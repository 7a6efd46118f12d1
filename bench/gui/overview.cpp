// The printable overview of a maximal configuration: the content read from
// the tables, and the whole document drawn into a PDF, on the offscreen platform.
#include <benchmark/benchmark.h>

#include <memory>

#include <QByteArray>

#include "../full_configuration.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/overview_content.h"
#include "core/keys/step_chain.h"
#include "core/keys/step_text.h"
#include "offscreen_main.h"
#include "views/overview_printer.h"

namespace {

using namespace tesselo;

// Rows of IR steps need no library here: every step of this document is a
// delay, a beep, a jump or a link.
class NoLibrary : public IrStepNames {
public:
    std::array<std::string, 3> ir_parts(const Configuration&, const ActionStep&) const override { return {}; }
};

KeyLabel label(const std::string& text)
{
    KeyLabel l;
    l.bytes[0] = static_cast<std::uint8_t>(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        l.bytes[1 + i] = static_cast<std::uint8_t>(text[i] >= 'A' ? text[i] - 'A' + 1 : text[i] - '0' + 27);
    return l;
}

// Every page there is (26 HOME pages, 128 device pages of 12 labelled keys),
// every device named, and 7800 steps: a list of 39 on each of 200 keys, the
// soft keys of the first pages and then hard keys, of every plain kind.
std::unique_ptr<Configuration> maximal_document()
{
    auto c = bench::full_configuration();
    c->ir_data.record_count = 0;
    int next_label = 0;
    for (int d = 1; d <= 128; ++d) {
        auto& name = c->device_name_table[static_cast<std::size_t>(d)];
        name.node_key = "DEVICE" + std::to_string(d) + "1";
        name.name = label("DEVICE" + std::to_string(d));
        auto& page = c->device_pages[static_cast<std::size_t>(d - 1)];
        for (int s = 0; s < softkeys_per_page; ++s) {
            const int position = s < lcd_rows ? s : 128 + s - lcd_rows + 1;
            page.slots[static_cast<std::size_t>(s)] = SoftKey{0, static_cast<std::uint8_t>(position),
                                                              next_label % 768, no_index, 0};
            c->softkey_labels[static_cast<std::size_t>(next_label++ % 768)] = label("KEY" + std::to_string(s));
        }
    }
    for (int k = 0; k < 200; ++k) {
        KeyPlace place;
        if (k < 128) {
            place = *locate_softkey(*c, "DEVICE" + std::to_string(k + 1) + "1\\PAGE1", 1);
        } else {
            place.kind = kind_hard;
            place.device = k - 127;
            place.hard_entry = place.device * hardkeys_per_device + k % 41;
        }
        for (int s = 0; s < 39; ++s) {
            StepFields f = duration_fields(s % 4 == 0 ? step_delay : s % 4 == 1 ? step_beep : step_delay, s + 1);
            if (s % 4 == 2) f = {step_jump, static_cast<std::uint8_t>(1 + s), 0, 0, 0};
            if (s % 4 == 3) f = {step_link, static_cast<std::uint8_t>(1 + s), 255, 1, 0};
            append_to_chain(*c, place, f);
        }
    }
    return c;
}

void BM_OverviewContent(benchmark::State& state)
{
    auto c = maximal_document();
    const NoLibrary names;
    std::size_t keys = 0;
    for (auto _ : state) {
        const auto sections = overview_sections(*c, names);
        keys = 0;
        for (const auto& s : sections) keys += s.keys.size();
        benchmark::DoNotOptimize(keys);
    }
    state.counters["keys"] = static_cast<double>(keys);
}
BENCHMARK(BM_OverviewContent)->Unit(benchmark::kMillisecond);

void BM_OverviewPdf(benchmark::State& state)
{
    auto c = maximal_document();
    const NoLibrary names;
    const auto sections = overview_sections(*c, names);
    QByteArray pdf;
    for (auto _ : state) {
        pdf = overview_pdf(sections, "maximal.kcf");
        benchmark::DoNotOptimize(pdf.size());
    }
    state.counters["pdf_bytes"] = static_cast<double>(pdf.size());
}
BENCHMARK(BM_OverviewPdf)->Unit(benchmark::kMillisecond);

}  // namespace

TESSELO_OFFSCREEN_BENCHMARK_MAIN()
