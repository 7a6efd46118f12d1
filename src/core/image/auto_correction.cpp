#include "core/image/auto_correction.h"

#include <functional>

#include "core/app/application.h"
#include "core/document/log.h"
#include "core/image/open_state.h"
#include "core/model/action_chain.h"
#include "core/model/configuration.h"

namespace tesselo {

namespace {

// Calls `visit` for every soft key slot in use of the document, with its
// page's place in page_table (1-based), HOME pages first.
void for_each_key(Configuration& c, const std::function<void(SoftKey&, int page, int slot)>& visit)
{
    const int H = c.device_table[0].page_count;
    int T = 0;
    for (const auto& device : c.device_table) T += device.page_count;
    for (int p = 0; p < T && p < page_rows; ++p) {
        const int count = c.page_table[static_cast<std::size_t>(p)].key_count;
        auto* slots = p < H ? (p < home_page_rows ? &c.home_pages[static_cast<std::size_t>(p)].slots : nullptr)
                            : (p - H < device_page_rows ? &c.device_pages[static_cast<std::size_t>(p - H)].slots : nullptr);
        if (!slots) continue;
        for (int s = 0; s < count && s < softkeys_per_page; ++s) visit((*slots)[static_cast<std::size_t>(s)], p + 1, s);
    }
}

// Frees the steps of a list (their byte fields 255) and clears its entry.
void free_list(Configuration& c, int list)
{
    if (list < 0 || list >= action_list_rows) return;
    for (int row : steps_of_list(c, list)) {
        auto& s = c.action_steps.steps[static_cast<std::size_t>(row)];
        if (s.step_type != step_free && c.action_steps.step_total > 0) --c.action_steps.step_total;
        s.step_type = step_free;
        s.param_low = free_byte;
        s.param_high = free_byte;
        s.next_step = end_of_list;
    }
    auto& entry = c.action_lists.entries[static_cast<std::size_t>(list)];
    if (entry.step_count > 0 && c.action_lists.list_count > 0) --c.action_lists.list_count;
    entry.first_step = 0;
    entry.step_count = 0;
}

}  // namespace

void write_correction_log(Application& app, int slot, const std::string& word)
{
    const int document = app.document_of_slot(slot);
    const std::string title = document >= 0 ? app.documents()[static_cast<std::size_t>(document)].title : std::string{};
    append_log_line(app.home() / correction_log_name, title + " - " + word);
}

void correct_label_fault(Application& app, int label_index, int slot)
{
    Configuration& c = app.config(slot);
    // The first key of a page keeps the label; every later one with the same
    // label on that page loses its data and its label.
    int last_page = -1;
    for_each_key(c, [&](SoftKey& key, int page, int) {
        if (key.label_index != label_index) return;
        if (page != last_page) {
            last_page = page;
            return;
        }
        free_list(c, key.action_list);
        key.action_list = no_index;
        key.label_index = no_index;
        write_correction_log(app, slot, "delete key - page " + std::to_string(page));
    });
}

void correct_action_fault(Application& app, int action_list, int slot)
{
    Configuration& c = app.config(slot);
    int page_found = 0;
    for_each_key(c, [&](SoftKey& key, int page, int) {
        if (key.action_list != action_list) return;
        key.action_list = no_index;
        if (page_found == 0) page_found = page;
    });
    if (action_list == no_index || page_found == 0) return;
    free_list(c, action_list);
    write_correction_log(app, slot, "delete marco step of key - page " + std::to_string(page_found));
}

void correct_half_key_fault(Application& app, int page_in_device, int device, int slot)
{
    Configuration& c = app.config(slot);
    if (device < 1 || device >= device_rows || page_in_device < 1) return;
    int before = 0;
    for (int d = 1; d < device; ++d) before += c.device_table[static_cast<std::size_t>(d)].page_count;
    if (page_in_device > c.device_table[static_cast<std::size_t>(device)].page_count) return;
    const int row = before + page_in_device - 1;
    const int entry_row = c.device_table[0].page_count + row;
    if (row >= device_page_rows || entry_row >= page_rows) return;
    // Only the slots in use hold labels of the page: an unused slot's label
    // index 0 is the first HOME key's label, which stays.
    auto& entry = c.page_table[static_cast<std::size_t>(entry_row)];
    const int used = entry.key_count < softkeys_per_page ? entry.key_count : softkeys_per_page;
    auto& slots = c.device_pages[static_cast<std::size_t>(row)].slots;
    for (int s = 0; s < softkeys_per_page; ++s) {
        SoftKey& key = slots[static_cast<std::size_t>(s)];
        if (s < used && key.label_index >= 0 && key.label_index < softkey_label_rows)
            c.softkey_labels[static_cast<std::size_t>(key.label_index)].bytes[0] = free_byte;
        key.action_list = no_index;
        key.label_index = 0;
        key.position = 0;
        key.key_state = 0;
        key.key_flags = 0;
    }
    // The reset page has no keys: slots left counted would all share label 0.
    entry.key_count = 0;
    write_correction_log(app, slot, "delete page - " + std::string("DEVICE") + std::to_string(device) + "/PAGE" +
                                        std::to_string(page_in_device));
}

void auto_correction(Application& app, int slot)
{
    const ErrorList& list = app.open_state().error_list;
    for (int i = 1; i <= list.count() && i < error_list_rows; ++i) {
        const ErrorRecord& r = list.records[static_cast<std::size_t>(i)];
        switch (r.error_type) {
        case error_shared_label: correct_label_fault(app, r.first_index, slot); break;
        case error_shared_action: correct_action_fault(app, r.second_index, slot); break;
        case error_half_key: correct_half_key_fault(app, r.first_index, r.second_index, slot); break;
        default: break;
        }
    }
}

}  // namespace tesselo
