#include "core/image/image_reader.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/image/auto_correction.h"
#include "core/image/byte_reader.h"
#include "core/image/image_layout.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::int64_t at(const ImageHeader& header, int section) { return static_cast<std::int64_t>(header[static_cast<std::size_t>(section)]) - image_link_base; }

// Records of `size` bytes between a section's entry and the next one; more
// than the table holds is a bounds fault, fewer than none reads nothing.
int records(const ImageHeader& header, int section, int size, int capacity)
{
    const std::int64_t count = (static_cast<std::int64_t>(header[static_cast<std::size_t>(section + 1)]) -
                                header[static_cast<std::size_t>(section)]) / size;
    if (count > capacity) throw ImageBoundsError();
    return count < 0 ? 0 : static_cast<int>(count);
}

void read_label(const ByteReader& in, std::int64_t pos, KeyLabel& label)
{
    for (int b = 0; b < label_bytes; ++b) label.bytes[static_cast<std::size_t>(b)] = in.u8(pos + b);
}

void read_learning(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_format_stamp);
    for (auto& b : config.format_stamp) b = in.u8(pos++);
    pos = at(header, sec_learning_bitmap);
    for (auto& b : config.learning_bitmap) b = in.u8(pos++);
    pos = at(header, sec_learning_memory);
    for (auto& slot : config.learning_memory)
        for (auto& b : slot) b = in.u8(pos++);
}

void read_action_steps(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_action_steps);
    config.action_steps.step_total = in.i16(pos);
    pos += 2;
    for (auto& s : config.action_steps.steps) {
        s.step_type = in.u8(pos);
        s.param_low = in.u8(pos + 1);
        s.param_high = in.u8(pos + 2);
        // A high byte of 255 marks no value.
        s.value = in.u8(pos + 4) == 255 ? 0 : in.u16(pos + 3);
        s.extra = in.u8(pos + 5);
        s.next_step = in.u16(pos + 6);
        pos += 8;
    }
}

void read_hardkeys(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_hardkeys);
    for (int i = 0, n = records(header, sec_hardkeys, 4, hardkey_rows); i < n; ++i, pos += 4) {
        auto& key = config.hardkeys[static_cast<std::size_t>(i)];
        key.sleep_flag = in.u8(pos);
        key.action_list = in.u16(pos + 1);
        key.key_flags = in.u8(pos + 3);
    }
    pos = at(header, sec_hardkey_labels);
    for (int i = 0, n = records(header, sec_hardkey_labels, label_bytes, hardkey_rows); i < n; ++i, pos += label_bytes)
        read_label(in, pos, config.hardkey_labels[static_cast<std::size_t>(i)]);
    pos = at(header, sec_hardkey_index);
    for (int i = 0, n = records(header, sec_hardkey_index, 4, hardkey_rows); i < n; ++i, pos += 4) {
        auto& index = config.hardkey_index[static_cast<std::size_t>(i)];
        index.base = in.i16(pos);
        index.count = in.u8(pos + 2);
        index.reserved = in.u8(pos + 3);
    }
}

void read_punch_through(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_punch_through);
    for (auto& record : config.punch_through)
        for (auto& b : record) b = in.u8(pos++);
}

void read_device_extra(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_device_extra);
    for (int i = 0, n = records(header, sec_device_extra, 2, device_rows); i < n; ++i, pos += 2) {
        config.device_extra[static_cast<std::size_t>(i)].option_a = in.u8(pos);
        config.device_extra[static_cast<std::size_t>(i)].option_b = in.u8(pos + 1);
    }
}

void read_ir_formats(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    if (header[sec_ir_format_ids] > header[sec_ir_formats]) {
        std::int64_t pos = at(header, sec_ir_formats);
        const int count = in.u16(pos);
        if (count > ir_format_rows) throw ImageBoundsError();
        config.ir_formats.format_count = static_cast<std::int16_t>(count);
        pos += 2;
        for (int f = 0; f < count; ++f)
            for (auto& word : config.ir_formats.records[static_cast<std::size_t>(f)]) {
                word = in.i16(pos);
                pos += 2;
            }
    }
    std::int64_t pos = at(header, sec_ir_format_ids);
    for (int f = 0, n = records(header, sec_ir_format_ids, 2, ir_format_rows); f < n; ++f, pos += 2)
        config.ir_format_ids[static_cast<std::size_t>(f)] = in.i16(pos);
}

void read_ir_data(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    bool old_layout = false;
    if (header[sec_end_mark] > header[sec_ir_data_index]) {
        std::int64_t pos = at(header, sec_ir_data_index);
        const std::int64_t first = pos;
        for (int r = 0, n = records(header, sec_ir_data_index, 4, ir_data_rows); r < n; ++r, pos += 4)
            config.ir_data_index[static_cast<std::size_t>(r)].length = in.u8(pos + 3);
        // The second index record read is whatever lies behind the first,
        // even when the index holds one record only.
        const int length0 = config.ir_data_index[0].length;
        old_layout = length0 != 0 && in.u24(first + 4) - in.u24(first) == length0;
    }
    if (header[sec_ir_data_index] > header[sec_ir_data]) {
        std::int64_t pos = at(header, sec_ir_data);
        const int count = in.u16(pos);
        if (count > ir_data_rows) throw ImageBoundsError();
        config.ir_data.record_count = count;
        pos += 2;
        for (int r = 0; r < count; ++r) {
            const int code_words = config.ir_data_index[static_cast<std::size_t>(r)].length / 2;
            if (code_words + 2 > ir_record_words) throw ImageBoundsError();
            auto& record = config.ir_data.record(r);
            for (int w = 0; w < code_words + 2; ++w) record[static_cast<std::size_t>(w)] = in.i16(pos + 2 * w);
            if (old_layout) {
                // The old layout kept no closing words between the records.
                record[static_cast<std::size_t>(code_words)] = ir_closing_word;
                record[static_cast<std::size_t>(code_words + 1)] = 0;
                pos += 2 * code_words;
            } else {
                pos += 2 * (code_words + 2);
            }
        }
    }
    // Offsets in the file are not trusted.
    config.ir_data_index[0].offset = 0;
    for (int i = 1; i <= config.ir_data.record_count && i < ir_data_rows; ++i) {
        const auto& previous = config.ir_data_index[static_cast<std::size_t>(i - 1)];
        config.ir_data_index[static_cast<std::size_t>(i)].offset = previous.offset + previous.length + 4;
    }
}

void read_tail(std::vector<std::uint8_t>& buffer, const ImageHeader& header, Configuration& config)
{
    const ByteReader in(buffer);
    const std::int64_t end = at(header, sec_end_mark);
    in.u8(end);
    in.u8(end + 1);
    buffer[static_cast<std::size_t>(end)] = 255;
    buffer[static_cast<std::size_t>(end + 1)] = 255;
    if (static_cast<std::int64_t>(buffer.size()) == end + end_mark_bytes) return;
    std::int64_t pos = end + end_mark_bytes;
    for (auto& key : config.learning_keys) {
        key = in.i16(pos);
        pos += 2;
    }
}

}  // namespace

ImageHeader read_header(const ByteReader& in)
{
    ImageHeader header{};
    for (int e = 0; e < header_entries; ++e) header[static_cast<std::size_t>(e)] = in.u24(4 * e);
    return header;
}

void read_action_lists(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_action_lists);
    config.action_lists.list_count = in.i16(pos);
    pos += 2;
    for (auto& list : config.action_lists.entries) {
        const int first = in.u16(pos);
        const int count = in.u8(pos + 2);
        list.first_step = static_cast<std::int16_t>(first > action_list_rows - 1 ? 0 : first);
        list.step_count = static_cast<std::uint8_t>(count > steps_per_list ? 1 : count);
        pos += 3;
    }
}

void read_flat_softkeys(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_flat_softkeys);
    for (int i = 0, n = records(header, sec_flat_softkeys, 7, flat_softkey_rows); i < n; ++i, pos += 7) {
        auto& key = config.flat_softkeys[static_cast<std::size_t>(i)];
        key.key_state = in.u8(pos);
        key.position = in.u8(pos + 1);
        key.label_index = in.u16(pos + 2);
        key.action_list = in.u16(pos + 4);
        key.key_flags = in.u8(pos + 6);
    }
}

void read_softkey_labels(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_softkey_labels);
    for (int i = 0, n = records(header, sec_softkey_labels, label_bytes, softkey_label_rows); i < n; ++i, pos += label_bytes)
        read_label(in, pos, config.softkey_labels[static_cast<std::size_t>(i)]);
}

void read_page_table(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_page_table);
    for (int i = 0, n = records(header, sec_page_table, 4, page_rows); i < n; ++i, pos += 4) {
        auto& entry = config.page_table[static_cast<std::size_t>(i)];
        entry.key_base = in.i16(pos);
        entry.key_count = in.u8(pos + 2);
        entry.hidden = in.u8(pos + 3);
    }
}

void read_device_table(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_device_table);
    for (int i = 0, n = records(header, sec_device_table, 4, device_rows); i < n; ++i, pos += 4) {
        auto& device = config.device_table[static_cast<std::size_t>(i)];
        device.page_base = in.u8(pos);
        device.page_count = in.u8(pos + 1);
        device.visible_pages = in.u8(pos + 2);
        device.hidden = in.u8(pos + 3);
    }
}

void read_device_names(const ByteReader& in, const ImageHeader& header, Configuration& config)
{
    std::int64_t pos = at(header, sec_device_names);
    for (int i = 0, n = records(header, sec_device_names, label_bytes, device_rows); i < n; ++i, pos += label_bytes)
        read_label(in, pos, config.device_name_table[static_cast<std::size_t>(i)].name);
}

void expand_flat_softkeys(Configuration& config)
{
    std::size_t flat = 0;
    const auto copy_page = [&](std::array<SoftKey, softkeys_per_page>& slots, int key_count) {
        if (key_count > softkeys_per_page || flat + static_cast<std::size_t>(key_count) > config.flat_softkeys.size())
            throw ImageBoundsError();
        for (int k = 0; k < key_count; ++k) slots[static_cast<std::size_t>(k)] = config.flat_softkeys[flat++];
    };
    const int H = config.device_table[0].page_count;
    if (H > home_page_rows) throw ImageBoundsError();
    for (int i = 0; i < H; ++i)
        copy_page(config.home_pages[static_cast<std::size_t>(i)].slots, config.page_table[static_cast<std::size_t>(i)].key_count);
    int T = 0;
    for (const auto& device : config.device_table) T += device.page_count;
    for (int k = 0; k < T - H; ++k) {
        if (k >= device_page_rows || H + k >= page_rows) throw ImageBoundsError();
        copy_page(config.device_pages[static_cast<std::size_t>(k)].slots, config.page_table[static_cast<std::size_t>(H + k)].key_count);
    }
}

void read_image_tables(std::vector<std::uint8_t>& buffer, Configuration& config, const std::function<void(int)>& progress)
{
    const auto report = [&](int value) { if (progress) progress(value); };
    const ByteReader in(buffer);
    const ImageHeader header = read_header(in);
    config.section_pointers = header;
    read_learning(in, header, config);
    report(10);
    read_action_lists(in, header, config);
    read_action_steps(in, header, config);
    report(20);
    read_hardkeys(in, header, config);
    report(25);
    read_punch_through(in, header, config);
    report(30);
    read_flat_softkeys(in, header, config);
    read_softkey_labels(in, header, config);
    report(40);
    read_page_table(in, header, config);
    report(50);
    read_device_table(in, header, config);
    expand_flat_softkeys(config);
    report(60);
    read_device_names(in, header, config);
    report(70);
    read_device_extra(in, header, config);
    report(80);
    read_ir_formats(in, header, config);
    report(90);
    read_ir_data(in, header, config);
    read_tail(buffer, header, config);
    for (int d = 1; d < device_rows; ++d) {
        auto& device = config.device_table[static_cast<std::size_t>(d)];
        if (device.hidden == 0) device.visible_pages = device.page_count;
    }
    // The tree is built from these tables: what it cannot hold is no image.
    if (!tree_fits_tables(config)) throw ImageBoundsError();
    report(100);
}

std::unique_ptr<Configuration> load_image(std::vector<std::uint8_t>& buffer, int slot, const std::function<void(int)>& progress)
{
    auto loaded = std::make_unique<Configuration>();
    init_new_configuration(*loaded, slot);
    read_image_tables(buffer, *loaded, progress);
    return loaded;
}

void commit_image(Application& app, Configuration& loaded, int slot)
{
    Configuration& config = app.config(slot);
    config = std::move(loaded);
    OpenState& state = app.open_state();
    if (state.corruption_flag == corruption_go_on) {
        if (app.ui().ask(title_files, "Do you want to delete all corrupted points automatically?", Buttons::yes_no,
                         Icon::question) == Answer::yes)
            auto_correction(app, slot);
    }
    state.corruption_flag = corruption_none;
    learned_code_durations(config);
    addtotreeview(app, slot);
}

void learned_code_durations(Configuration& config)
{
    for (auto& step : config.action_steps.steps)
        if (step.step_type == step_learning && step.value == 0) step.value = 3000;
}

void datatoarray(Application& app, std::vector<std::uint8_t>& buffer, int slot)
{
    Ui& ui = app.ui();
    ui.progress(0, 100);
    auto loaded = load_image(buffer, slot, [&ui](int value) { ui.progress(value, 100); });
    commit_image(app, *loaded, slot);
}

}  // namespace tesselo
