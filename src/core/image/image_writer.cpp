#include "core/image/image_writer.h"

#include "core/app/application.h"
#include "core/document/file_store.h"
#include "core/document/ui.h"
#include "core/model/configuration.h"

namespace tesselo {

namespace {

class ImageBuffer {
public:
    explicit ImageBuffer(std::size_t size) : bytes_(size, 0) {}

    void put8(std::size_t at, unsigned value) { bytes_[at] = static_cast<std::uint8_t>(value & 0xFF); }
    // Low byte first; the value's 16-bit pattern, so that a negative word
    // reaches the image as its two hexadecimal halves.
    void put16(std::size_t at, std::int64_t value)
    {
        const auto pattern = static_cast<std::uint16_t>(value & 0xFFFF);
        bytes_[at] = static_cast<std::uint8_t>(pattern % 256);
        bytes_[at + 1] = static_cast<std::uint8_t>(pattern / 256);
    }
    void put24(std::size_t at, std::int64_t value)
    {
        const auto v = static_cast<std::uint32_t>(value & 0xFFFFFF);
        bytes_[at] = static_cast<std::uint8_t>(v % 256);
        bytes_[at + 1] = static_cast<std::uint8_t>((v / 256) % 256);
        bytes_[at + 2] = static_cast<std::uint8_t>(v / 65536);
    }
    // A label: byte 101, the empty cell, becomes 0 unless kept as it stands.
    void put_label(std::size_t at, const KeyLabel& label, bool empty_cell_as_zero)
    {
        for (int i = 0; i < label_bytes; ++i) {
            const std::uint8_t b = label.bytes[static_cast<std::size_t>(i)];
            bytes_[at + static_cast<std::size_t>(i)] = (empty_cell_as_zero && b == 101) ? 0 : b;
        }
    }
    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

std::size_t pos(const std::array<std::int32_t, header_entries>& header, int section)
{
    return static_cast<std::size_t>(header[static_cast<std::size_t>(section)] - image_link_base);
}

// Finds the device_pages row of a device page by its node key.
int find_device_page(const Configuration& config, const std::string& node_key)
{
    for (int j = 0; j < device_page_rows; ++j)
        if (config.device_pages[static_cast<std::size_t>(j)].node_key == node_key) return j;
    return -1;
}

}  // namespace

std::optional<ImageCounts> count_image(const Configuration& config)
{
    ImageCounts c;
    c.H = config.device_table[0].page_count;
    if (c.H > home_page_rows) return std::nullopt;
    for (int i = 0; i < c.H; ++i) c.D += config.page_table[static_cast<std::size_t>(i)].key_count;
    c.N = c.D - c.H + 1;
    if (c.N < 1 || c.N > device_rows) return std::nullopt;
    for (int i = 0; i < c.N; ++i) c.T += config.device_table[static_cast<std::size_t>(i)].page_count;
    if (c.T > page_rows || c.T < c.H) return std::nullopt;
    for (int i = 0; i < c.T; ++i) c.K += config.page_table[static_cast<std::size_t>(i)].key_count;
    if (c.K > flat_softkey_rows) return std::nullopt;
    c.F = config.ir_formats.format_count;
    if (c.F < 0 || c.F > ir_format_rows) return std::nullopt;
    c.R = config.ir_data.record_count;
    if (c.R < 0 || c.R > ir_data_rows) return std::nullopt;
    for (int r = 0; r < c.R; ++r) {
        const int length = config.ir_data_index[static_cast<std::size_t>(r)].length;
        if (length / 2 + 2 > ir_record_words) return std::nullopt;
        c.L += length;
    }
    for (int i = 0; i < c.T; ++i)
        if (config.page_table[static_cast<std::size_t>(i)].key_count > softkeys_per_page) return std::nullopt;
    return c;
}

std::vector<std::uint8_t> build_image(Configuration& config, const std::function<void()>& progress)
{
    const auto step = [&] { if (progress) progress(); };
    const auto counts = count_image(config);
    if (!counts) return {};
    const ImageCounts& c = *counts;

    // Gather the soft keys: HOME pages first, then the device pages in
    // page_table order, each found in device_pages by its node key.
    config.flat_softkeys.fill({});
    std::size_t flat = 0;
    for (int i = 0; i < c.H; ++i) {
        const auto& page = config.home_pages[static_cast<std::size_t>(i)];
        for (int k = 0; k < config.page_table[static_cast<std::size_t>(i)].key_count; ++k)
            config.flat_softkeys[flat++] = page.slots[static_cast<std::size_t>(k)];
    }

    // Running sums of pages and hard keys over the entities in use.
    for (int i = 0; i < c.N; ++i) {
        auto& device = config.device_table[static_cast<std::size_t>(i)];
        auto& index = config.hardkey_index[static_cast<std::size_t>(i)];
        index.count = hardkeys_per_device;
        if (i > 0) {
            const auto& prev_device = config.device_table[static_cast<std::size_t>(i - 1)];
            const auto& prev_index = config.hardkey_index[static_cast<std::size_t>(i - 1)];
            device.page_base = static_cast<std::uint8_t>(prev_device.page_base + prev_device.page_count);
            index.base = static_cast<std::int16_t>(prev_index.base + prev_index.count);
        }
    }

    for (int i = c.H; i < c.T; ++i) {
        const auto& entry = config.page_table[static_cast<std::size_t>(i)];
        const int row = find_device_page(config, entry.node_key);
        if (row < 0) continue;
        const auto& page = config.device_pages[static_cast<std::size_t>(row)];
        for (int k = 0; k < entry.key_count; ++k) config.flat_softkeys[flat++] = page.slots[static_cast<std::size_t>(k)];
    }

    std::int16_t key_base = 0;
    for (int i = 0; i < c.T; ++i) {
        auto& entry = config.page_table[static_cast<std::size_t>(i)];
        entry.key_base = key_base;
        key_base = static_cast<std::int16_t>(key_base + entry.key_count);
    }
    step();

    const auto header = image_header(c);
    config.section_pointers = header;
    const std::int32_t P = end_mark_position(header);
    ImageBuffer image(static_cast<std::size_t>(P + end_mark_bytes));

    for (int e = 0; e < header_entries; ++e) image.put24(static_cast<std::size_t>(4 * e), header[static_cast<std::size_t>(e)]);
    // byte 3 of every entry stays 0

    std::size_t at = pos(header, sec_format_stamp);
    for (auto b : config.format_stamp) image.put8(at++, b);

    // The clock block's fixed bytes are set on every save.
    auto& clock = config.clock_block;
    clock[1] = 0; clock[2] = 1; clock[6] = 0; clock[7] = 0; clock[8] = 0; clock[9] = 0;
    at = pos(header, sec_clock_block);
    for (auto b : clock) image.put8(at++, b);

    at = pos(header, sec_learning_bitmap);
    for (auto b : config.learning_bitmap) image.put8(at++, b);
    at = pos(header, sec_learning_memory);
    for (const auto& slot : config.learning_memory)
        for (auto b : slot) image.put8(at++, b);
    step();

    at = pos(header, sec_action_lists);
    image.put16(at, config.action_lists.list_count);
    at += 2;
    for (const auto& list : config.action_lists.entries) {
        image.put16(at, list.first_step);
        image.put8(at + 2, list.step_count);
        at += 3;
    }
    step();

    at = pos(header, sec_action_steps);
    image.put16(at, config.action_steps.step_total);
    at += 2;
    for (const auto& s : config.action_steps.steps) {
        image.put8(at, s.step_type);
        image.put8(at + 1, s.param_low);
        image.put8(at + 2, s.param_high);
        image.put16(at + 3, s.value);
        image.put8(at + 5, s.extra);
        image.put16(at + 6, s.next_step);
        at += 8;
    }
    step();

    const int hard_rows = hardkeys_per_device * c.N;
    at = pos(header, sec_hardkeys);
    for (int i = 0; i < hard_rows; ++i) {
        const auto& key = config.hardkeys[static_cast<std::size_t>(i)];
        image.put8(at, key.sleep_flag);
        image.put16(at + 1, key.action_list);
        image.put8(at + 3, key.key_flags);
        at += 4;
    }
    at = pos(header, sec_hardkey_labels);
    for (int i = 0; i < hard_rows; ++i, at += label_bytes)
        image.put_label(at, config.hardkey_labels[static_cast<std::size_t>(i)], true);
    at = pos(header, sec_hardkey_index);
    for (int i = 0; i < hard_rows; ++i, at += 4) {
        const auto& index = config.hardkey_index[static_cast<std::size_t>(i)];
        image.put16(at, index.base);
        image.put8(at + 2, index.count);
        image.put8(at + 3, index.reserved);
    }
    at = pos(header, sec_punch_through);
    for (const auto& record : config.punch_through)
        for (auto b : record) image.put8(at++, b);
    step();

    at = pos(header, sec_flat_softkeys);
    for (int i = 0; i < c.K; ++i, at += 7) {
        const auto& key = config.flat_softkeys[static_cast<std::size_t>(i)];
        image.put8(at, key.key_state);
        image.put8(at + 1, key.position);
        image.put16(at + 2, key.label_index);
        image.put16(at + 4, key.action_list);
        image.put8(at + 6, key.key_flags);
    }
    // Only the first 768 labels of the pool reach the image.
    at = pos(header, sec_softkey_labels);
    for (int i = 0; i < image_softkey_labels; ++i, at += label_bytes)
        image.put_label(at, config.softkey_labels[static_cast<std::size_t>(i)], true);
    step();

    at = pos(header, sec_page_table);
    for (int i = 0; i < c.T; ++i, at += 4) {
        const auto& entry = config.page_table[static_cast<std::size_t>(i)];
        image.put16(at, entry.key_base);
        image.put8(at + 2, entry.key_count);
        image.put8(at + 3, entry.hidden);
    }
    at = pos(header, sec_device_table);
    for (int i = 0; i < c.N; ++i, at += 4) {
        const auto& device = config.device_table[static_cast<std::size_t>(i)];
        image.put8(at, device.page_base);
        image.put8(at + 1, device.page_count);
        image.put8(at + 2, device.visible_pages);
        image.put8(at + 3, device.hidden);
    }
    // Device names go out as they stand: an empty cell 101 stays 101.
    at = pos(header, sec_device_names);
    for (int i = 0; i < c.N; ++i, at += label_bytes)
        image.put_label(at, config.device_name_table[static_cast<std::size_t>(i)].name, false);
    at = pos(header, sec_device_extra);
    for (int i = 0; i < c.N; ++i, at += 2) {
        image.put8(at, config.device_extra[static_cast<std::size_t>(i)].option_a);
        image.put8(at + 1, config.device_extra[static_cast<std::size_t>(i)].option_b);
    }
    step();

    at = pos(header, sec_ir_formats);
    image.put16(at, c.F);
    at += 2;
    for (int f = 0; f < c.F; ++f)
        for (auto word : config.ir_formats.records[static_cast<std::size_t>(f)]) {
            image.put16(at, word);
            at += 2;
        }
    at = pos(header, sec_ir_format_ids);
    for (int f = 0; f < c.F; ++f, at += 2) image.put16(at, config.ir_format_ids[static_cast<std::size_t>(f)]);

    // Each record: its code words and the two closing words, one after another.
    at = pos(header, sec_ir_data);
    image.put16(at, c.R);
    at += 2;
    for (int r = 0; r < c.R; ++r) {
        const int words = config.ir_data_index[static_cast<std::size_t>(r)].length / 2 + 2;
        const auto& record = config.ir_data.record(r);
        for (int w = 0; w < words; ++w, at += 2) image.put16(at, record[static_cast<std::size_t>(w)]);
    }
    at = pos(header, sec_ir_data_index);
    for (int r = 0; r < c.R; ++r, at += 4) {
        const auto& index = config.ir_data_index[static_cast<std::size_t>(r)];
        image.put24(at, index.offset);
        image.put8(at + 3, index.length);
    }
    step();

    image.put8(static_cast<std::size_t>(P), 255);
    image.put8(static_cast<std::size_t>(P) + 1, 255);
    return image.take();
}

std::vector<std::uint8_t> file_tail(const Configuration& config)
{
    std::vector<std::uint8_t> tail(file_tail_bytes, 0);
    for (int i = 0; i < learned_codes; ++i) {
        const auto w = static_cast<std::uint16_t>(config.learning_keys[static_cast<std::size_t>(i)]);
        tail[static_cast<std::size_t>(2 * i)] = static_cast<std::uint8_t>(w & 0xFF);
        tail[static_cast<std::size_t>(2 * i + 1)] = static_cast<std::uint8_t>(w >> 8);
    }
    return tail;
}

std::vector<std::uint8_t> configuration_file_bytes(Configuration& config)
{
    auto bytes = build_image(config);
    if (bytes.empty()) return bytes;
    const auto tail = file_tail(config);
    bytes.insert(bytes.end(), tail.begin(), tail.end());
    return bytes;
}

bool save_tofile(Application& app, const std::string& filename, int mode, int slot)
{
    Ui& ui = app.ui();
    const int maximum = mode == 1 ? 1000 : 50;
    const int stride = mode == 1 ? 10 : 5;
    int value = 0;
    ui.progress(0, maximum);
    auto image = build_image(app.config(slot), [&] {
        value += stride;
        ui.progress(value, maximum);
        ui.yield();
    });
    if (image.empty()) {
        ui.message(title_main, "The Configuration is damaged and can not be saved", Icon::exclamation);
        return false;
    }
    if (mode == 1 && app.download_hook) app.download_hook(image, image.size());

    const auto tail = file_tail(app.config(slot));
    image.insert(image.end(), tail.begin(), tail.end());
    if (const auto why = app.files().replace_file(filename, image)) {
        ui.message(title_main, "Unable to write " + filename + "\r" + *why, Icon::exclamation);
        return false;
    }
    if (mode == 0) ui.progress(maximum, maximum);
    return true;
}

}  // namespace tesselo
