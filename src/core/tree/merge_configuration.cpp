#include "core/tree/merge_configuration.h"

#include <algorithm>
#include <memory>

#include "core/app/application.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/ui.h"
#include "core/image/image_file.h"
#include "core/image/image_reader.h"
#include "core/image/open_state.h"
#include "core/ir/edit_ir.h"
#include "core/keys/key_edit.h"
#include "core/keys/step_commands.h"
#include "core/model/action_chain.h"
#include "core/tree/adding.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/device_removal.h"
#include "core/tree/journal.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// The file's tables come without a tree: each device page gets a key of its
// own, as the tree would give it, so that its page and its slots row are found.
void key_file_pages(Configuration& merged, int devices)
{
    const int home_pages = merged.device_table[0].page_count;
    int entry = home_pages;
    int row = 0;
    for (int d = 1; d <= devices; ++d) {
        const std::string device = "MERGED" + std::to_string(d);
        for (int p = 0; p < merged.device_table[at(d)].page_count; ++p, ++entry, ++row) {
            const std::string key = device + "\\PAGE" + std::to_string(p + 1);
            merged.page_table[at(entry)].node_key = key;
            merged.device_pages[at(row)].node_key = key;
        }
    }
}

// The soft key slot at `position` of the page at `place` of device row `device`.
const SoftKey* soft_key_at(const Configuration& config, int device, int place, int position)
{
    const int entry = pages_before(config, device) + place;
    if (entry < 0 || entry >= page_rows) return nullptr;
    const int row = page_slots_row_of_key(config, config.page_table[at(entry)].node_key);
    if (row < 0) return nullptr;
    const int used = std::min<int>(config.page_table[at(entry)].key_count, softkeys_per_page);
    for (int s = 0; s < used; ++s)
        if (config.device_pages[at(row)].slots[at(s)].position == position) return &config.device_pages[at(row)].slots[at(s)];
    return nullptr;
}

// Whether a jump or link of the file reaches a device, page and key of the file.
bool reaches_file_device(const Configuration& merged, int devices, std::uint8_t type, std::uint8_t device,
                         std::uint8_t place, std::uint16_t value, std::uint8_t extra)
{
    // The file's HOME does not come along.
    if (device < 1 || device > devices) return false;
    const int pages = merged.device_table[at(device)].page_count;
    if (type == step_jump) return place < pages;
    if (place == free_byte) return value >= 1 && value <= hardkeys_per_device;
    return place < pages && soft_key_at(merged, device, place, extra) != nullptr;
}

void renumber_record(const Configuration& merged, int devices, int devices_before, KeyClipRecord& r, int& dropped)
{
    for (int i = 0; i < r.clip_step_count; ++i) {
        std::uint8_t& type = r.clip_step_type[at(i)];
        if (type != step_jump && type != step_link) continue;
        std::uint8_t& device = r.clip_param_low[at(i)];
        if (!reaches_file_device(merged, devices, type, device, r.clip_param_high[at(i)], r.clip_value[at(i)],
                                 r.clip_extra[at(i)])) {
            type = step_free;
            ++dropped;
            continue;
        }
        device = static_cast<std::uint8_t>(device + devices_before);
    }
}

void renumber_list(Configuration& config, std::int32_t list, int first_row, int last_row)
{
    if (list < 0 || list >= action_list_rows) return;
    for (int row : steps_of_list(config, list)) {
        ActionStep& s = config.action_steps.steps[at(row)];
        if (s.step_type != step_link || s.param_high == free_byte) continue;
        if (s.param_low < first_row || s.param_low > last_row) continue;
        if (const SoftKey* key = soft_key_at(config, s.param_low, s.param_high, s.extra))
            s.value = static_cast<std::uint16_t>(key->label_index);
    }
}

bool refused(Application& app, const std::string& title, const std::string& text)
{
    app.ui().message(title, text, Icon::exclamation);
    return false;
}

std::string counted(int n, const std::string& word) { return std::to_string(n) + " " + word + (n == 1 ? "" : "s"); }

}  // namespace

MergeBuffers merge_buffers(Configuration& merged, int devices_before, int slot)
{
    MergeBuffers out;
    const int devices = tree_fits_tables(merged) ? device_count(merged) : 0;
    key_file_pages(merged, devices);
    out.devices.resize(static_cast<std::size_t>(devices));
    for (int d = 1; d <= devices; ++d) {
        DeviceBuffer& buffer = out.devices[at(d - 1)];
        copy_devicebuffer(merged, d, slot, buffer);
        for (PageBuffer& page : buffer.pages)
            for (int s = 0; s < page.slot_count; ++s)
                renumber_record(merged, devices, devices_before, page.slots[at(s)].record, out.dropped);
        for (HardKeyClip& key : buffer.hardkeys) renumber_record(merged, devices, devices_before, key.record, out.dropped);
    }
    return out;
}

bool merge_fits(Application& app, int slot, const MergeBuffers& buffers)
{
    const Configuration& config = app.config(slot);
    const int devices = static_cast<int>(buffers.devices.size());
    int pages = 0, labels = 0;
    PasteNeeds needs;
    for (const DeviceBuffer& buffer : buffers.devices) {
        pages += static_cast<int>(buffer.pages.size());
        labels += label_rows_needed(buffer);
        add_paste_needs(config, buffer, needs);
    }
    needs.steps += devices;  // each device's HOME key jumps to it
    if (!room_for_devices(app, slot, devices, pages, labels)) return refused(app, title_alt, exceed_devices_pages);
    const PasteRefusal refusal = needs.refusal(config, action_steps_accepted);
    if (refusal == PasteRefusal::document_steps) return refused(app, title_main, exceed_document_steps);
    if (refusal == PasteRefusal::learning_memory) return refused(app, title_main, learning_memory_full);
    // Every code of the file is stored as a record of its own.
    if (needs.records + config.ir_data.record_count > ir_data_accepted) return refused(app, title_main, exceed_ir_data);
    if (refusal == PasteRefusal::ir_storage) return refused(app, title_alt, ir_store_fault);
    return true;
}

void renumber_merged_soft_links(Configuration& config, int first_row, int last_row)
{
    for (int d = first_row; d <= last_row && d < device_rows; ++d) {
        for (int k = 0; k < hardkeys_per_device; ++k)
            renumber_list(config, config.hardkeys[at(d * hardkeys_per_device + k)].action_list, first_row, last_row);
        const int first = pages_before(config, d);
        for (int p = 0; p < config.device_table[at(d)].page_count && first + p < page_rows; ++p) {
            const int row = page_slots_row_of_key(config, config.page_table[at(first + p)].node_key);
            if (row < 0) continue;
            for (const SoftKey& soft : config.device_pages[at(row)].slots)
                renumber_list(config, soft.action_list, first_row, last_row);
        }
    }
}

std::string merge_status_text(int devices, int dropped)
{
    return counted(devices, "device") + " merged, " + counted(dropped, "step") + " dropped";
}

int muMerge(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return -1;
    const int slot = doc->slot;
    const std::string caption = doc->title;
    const auto path = app.ui().open_file("Merge", config_file_filter);
    if (!path || path->empty()) return -1;

    // The file is checked and read as Open reads it, into tables of its own.
    std::vector<std::uint8_t> bytes;
    if (read_image_file(*path, bytes)) {
        file_is_corrupted(app);
        return -1;
    }
    std::unique_ptr<Configuration> merged;
    const bool read = read_or_corrupted(app, [&] {
        if (check_opened_image(app, bytes)) merged = load_image(bytes, slot);
    });
    app.open_state().corruption_flag = corruption_none;
    if (!read || !merged) return -1;
    learned_code_durations(*merged);

    Configuration& config = app.config(slot);
    const int before = device_count(config);
    const MergeBuffers buffers = merge_buffers(*merged, before, slot);
    merged.reset();
    if (!merge_fits(app, slot, buffers)) return -1;

    const int devices = static_cast<int>(buffers.devices.size());
    if (devices > 0) {
        app.write_log("merge file (start) " + *path);
        begin_edit(app);
        WaitCursor wait(app.ui());
        for (const DeviceBuffer& buffer : buffers.devices)
            if (add_device_from_buffer(app, slot, buffer) == 0) break;
        renumber_merged_soft_links(config, before + 1, device_count(config));
        update_softtable(app, slot);
        app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
        app.write_log("Merge file " + *path + " - " + caption);
    }
    app.ui().status(merge_status_text(devices, buffers.dropped));
    return devices;
}

}  // namespace tesselo
