#include "core/keys/key_behaviours.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/dialog_tree.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_removal.h"
#include "core/keys/key_refresh.h"
#include "core/keys/key_selection.h"
#include "core/keys/properties_content.h"
#include "core/keys/step_chain.h"
#include "core/keys/step_commands.h"
#include "core/model/softkey_labels.h"
#include "core/tree/journal.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

// The byte of device row `device` in a punch_through entry, and its bit.
std::size_t punch_byte(int device) { return static_cast<std::size_t>(1 + device / 8); }
std::uint8_t punch_mask(int device) { return static_cast<std::uint8_t>(128 >> (device % 8)); }

bool valid_device(int device) { return device >= 0 && device < device_rows; }

std::optional<KeyPlace> selected_place(Application& app, const KeyTarget& target)
{
    return locate_key(app.config(target.slot), target.page_key, app.key_selection);
}

auto& page_slots(Configuration& config, const KeyPlace& place)
{
    const auto row = static_cast<std::size_t>(place.page_slots_row);
    return place.home ? config.home_pages[row].slots : config.device_pages[row].slots;
}

bool set_punch(Application& app, const KeyTarget& target, const KeyPlace& place)
{
    Configuration& config = app.config(target.slot);
    const int key = place.hard_entry % hardkeys_per_device;
    app.write_log("Set punchthough(Start) " + target.page_key);
    if (app.ui().ask(title_alt, punch_question, Buttons::ok_cancel, Icon::exclamation) != Answer::ok) return false;
    begin_edit(app);
    auto& entry = config.punch_through[static_cast<std::size_t>(key)];
    entry[0] = static_cast<std::uint8_t>(place.device);
    for (std::size_t b = 1; b < entry.size(); ++b) entry[b] = 0xFF;
    const KeyLabel label = config.hardkey_labels[static_cast<std::size_t>(place.hard_entry)];
    for (int d : devices_in_use(config)) {
        if (d == 0 || d == place.device) continue;
        const auto other = static_cast<std::size_t>(d * hardkeys_per_device + key);
        const std::int32_t list = config.hardkeys[other].action_list;
        if (list >= 0 && list < action_list_rows) delete_marcostep(config, list);
        config.hardkeys[other].action_list = no_index;
        config.hardkey_labels[other] = label;
        refresh_hardkey(app, target.slot, d, check_actcualhardindex(key));
    }
    app.write_log("Set punchthough " + key_log_names(app, target.page_key));
    return true;
}

void clear_punch(Application& app, const KeyTarget& target, const KeyPlace& place)
{
    Configuration& config = app.config(target.slot);
    const int key = place.hard_entry % hardkeys_per_device;
    if (!punch_bit(config, key, place.device)) return;
    app.write_log("Reset punchthough(Start) " + target.page_key);
    begin_edit(app);
    auto& entry = config.punch_through[static_cast<std::size_t>(key)];
    entry[punch_byte(place.device)] = static_cast<std::uint8_t>(entry[punch_byte(place.device)] & ~punch_mask(place.device));
    app.write_log("Reset punchthough " + key_log_names(app, target.page_key));
}

// The free label entries, up to `needed`.
int free_labels(const Configuration& config, int needed)
{
    int found = 0;
    for (const auto& label : config.softkey_labels)
        if (label.is_free() && ++found == needed) break;
    return found;
}

}  // namespace

bool check_punchthough(const Configuration& config, int key, int device)
{
    if (key < 0 || key >= hardkeys_per_device || !valid_device(device)) return false;
    const auto& entry = config.punch_through[static_cast<std::size_t>(key)];
    if (entry[0] == free_byte) return false;
    if (entry[0] == device) return true;
    return (entry[punch_byte(device)] & punch_mask(device)) != 0;
}

bool punch_bit(const Configuration& config, int key, int device)
{
    if (key < 0 || key >= hardkeys_per_device || !valid_device(device)) return false;
    const auto& entry = config.punch_through[static_cast<std::size_t>(key)];
    return entry[0] != free_byte && (entry[punch_byte(device)] & punch_mask(device)) != 0;
}

int punch_owner(const Configuration& config, int key)
{
    if (key < 0 || key >= hardkeys_per_device) return -1;
    const int owner = config.punch_through[static_cast<std::size_t>(key)][0];
    return owner == free_byte ? -1 : owner;
}

void renumber_punch_through(Configuration& config, const std::function<int(int)>& row_after)
{
    for (auto& entry : config.punch_through) {
        if (entry[0] == free_byte) continue;
        const int owner = row_after(entry[0]);
        if (owner < 0) {
            entry.fill(0);
            entry[0] = free_byte;
            continue;
        }
        const auto old = entry;
        for (int d = 0; d < device_rows; ++d) {
            const int to = row_after(d);
            if (to < 0 || to >= device_rows) continue;
            const bool bit = (old[punch_byte(d)] & punch_mask(d)) != 0;
            auto& byte = entry[punch_byte(to)];
            byte = static_cast<std::uint8_t>(bit ? byte | punch_mask(to) : byte & ~punch_mask(to));
        }
        entry[0] = static_cast<std::uint8_t>(owner);
    }
}

void own_punch_through(Configuration& config, int key, int owner)
{
    if (key < 0 || key >= hardkeys_per_device || !valid_device(owner)) return;
    auto& entry = config.punch_through[static_cast<std::size_t>(key)];
    entry[0] = static_cast<std::uint8_t>(owner);
    for (std::size_t b = 1; b < entry.size(); ++b) entry[b] = 0xFF;
    for (int d : devices_in_use(config)) keep_own_steps_unpunched(config, d);
}

void keep_own_steps_unpunched(Configuration& config, int device)
{
    if (!valid_device(device)) return;
    for (int k = 0; k < hardkeys_per_device; ++k) {
        auto& entry = config.punch_through[static_cast<std::size_t>(k)];
        if (entry[0] == free_byte || entry[0] == device) continue;
        if (config.hardkeys[static_cast<std::size_t>(device * hardkeys_per_device + k)].action_list == no_index) continue;
        entry[punch_byte(device)] = static_cast<std::uint8_t>(entry[punch_byte(device)] & ~punch_mask(device));
    }
}

int sleep_timer_count(bool home, std::uint8_t key_state) { return home ? key_state & 0x7F : key_state; }

int check_hardsleepflag(const Configuration& config, int device, int key)
{
    if (!valid_device(device) || key < 0 || key >= hardkeys_per_device) return 0;
    return config.hardkeys[static_cast<std::size_t>(device * hardkeys_per_device + key)].sleep_flag;
}

bool Check1_Click(Application& app, const KeyTarget& target, bool checked)
{
    const auto place = selected_place(app, target);
    if (!place || place->kind != kind_hard || place->device == 0) return false;
    if (checked) return set_punch(app, target, *place);
    clear_punch(app, target, *place);
    return false;
}

bool Check2_Click(Application& app, const KeyTarget& target, bool checked)
{
    auto place = selected_place(app, target);
    if (!place) return false;
    Configuration& config = app.config(target.slot);
    std::uint8_t* flag = nullptr;
    if (place->kind == kind_hard) flag = &config.hardkeys[static_cast<std::size_t>(place->hard_entry)].sleep_flag;
    else if (SoftKey* key = softkey_at(config, *place)) flag = &key->key_state;
    const bool home_mark = place->kind != kind_hard && place->home;
    const int now = flag ? sleep_timer_count(home_mark, *flag) : 0;
    // The box shows the state, so a Set finds the count below its top and a
    // Reset above 0; a HOME key's hidden mark is never touched.
    if (checked ? now == (home_mark ? 127 : 255) : now == 0) return false;
    if (!flag && (place->home || place->position >= 128 ||
                  config.page_table[static_cast<std::size_t>(place->page_row)].key_count >= softkeys_per_page ||
                  search_softkeyno(config) >= softkey_label_rows))
        return false;
    app.write_log((checked ? "Set sleep timer(start) " : "Reset sleep timer(start) ") + target.page_key);
    begin_edit(app);
    if (!flag) {
        make_softkey(config, *place);
        flag = &softkey_at(config, *place)->key_state;
    }
    *flag = static_cast<std::uint8_t>(*flag + (checked ? 1 : -1));
    const std::string words = place->home ? "set sleep timer " : checked ? "Set sleep timer " : "Reset sleep timer ";
    app.write_log(words + key_log_names(app, target.page_key) + (place->kind == kind_hard ? "(hardkey)" : ""));
    return true;
}

bool Check3_Click(Application& app, const KeyTarget& target, bool checked)
{
    // The title row gets no left key of its own: the box is greyed there.
    const auto place = selected_place(app, target);
    if (place && link_right_greyed(app.config(target.slot), *place)) return false;
    return checked ? delete_left_softkey(app, target) : add_left_softkey(app, target);
}

bool add_left_softkey(Application& app, const KeyTarget& target)
{
    Configuration& config = app.config(target.slot);
    const int row = app.key_selection.row();
    auto left = locate_softkey(config, target.page_key, static_cast<std::uint8_t>(row + 128));
    auto right = locate_softkey(config, target.page_key, static_cast<std::uint8_t>(row));
    // The title row is one key across the display: it has no left button.
    if (!left || !right || left->home || left->slot >= 0 || row == 0) return false;
    auto& page = config.page_table[static_cast<std::size_t>(left->page_row)];
    const int needed = right->slot < 0 ? 2 : 1;
    if (page.key_count + needed > softkeys_per_page || free_labels(config, needed) < needed) return false;
    begin_edit(app);
    if (right->slot < 0) make_softkey(config, *right);
    // The left button stands in the slot in front of its right button, as the
    // check of an opened file wants a split row.
    auto& slots = page_slots(config, *left);
    for (int i = page.key_count - 1; i >= right->slot; --i)
        slots[static_cast<std::size_t>(i + 1)] = slots[static_cast<std::size_t>(i)];
    const int label = search_softkeyno(config);
    config.softkey_labels[static_cast<std::size_t>(label)] = KeyLabel{};
    slots[static_cast<std::size_t>(right->slot)] = SoftKey{0, static_cast<std::uint8_t>(row + 128), label, no_index, 0};
    page.key_count = static_cast<std::uint8_t>(page.key_count + 1);
    app.write_log("add left softkey " + key_log_names(app, target.page_key));
    refresh_page_key(app, target.slot, target.page_key, first_side_button + row * 2);
    return true;
}

bool delete_left_softkey(Application& app, const KeyTarget& target)
{
    Configuration& config = app.config(target.slot);
    const int row = app.key_selection.row();
    const auto left = locate_softkey(config, target.page_key, static_cast<std::uint8_t>(row + 128));
    if (!left || left->home || left->slot < 0) return false;
    begin_edit(app);
    // Links to the key would name a key that is gone.
    remove_key(config, *left);
    app.write_log("delete left softkey " + key_log_names(app, target.page_key));
    refresh_page_key(app, target.slot, target.page_key, first_side_button + row * 2);
    return true;
}

}  // namespace tesselo
