#include "core/sim/remote_simulator.h"

#include <algorithm>
#include <utility>

#include "core/image/image_reader.h"
#include "core/keys/step_text.h"
#include "core/model/action_chain.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

SimAction action(SimAction::Kind kind, std::string line, int hundredths = 0, int hertz = 0)
{
    SimAction a;
    a.kind = kind;
    a.line = std::move(line);
    a.hundredths = hundredths;
    a.hertz = hertz;
    return a;
}

int number_of(const ActionStep& s) { return s.param_low + 256 * s.param_high; }

// Whether hard key `key` of `device` runs another device's list: its punch
// through is set, this device's bit is up, and another device owns it.
std::optional<int> punch_owner(const Configuration& c, int key, int device)
{
    const auto& record = c.punch_through[at(key)];
    const int owner = record[0];
    if (owner == free_byte || owner == device) return std::nullopt;
    const int byte = 1 + device / 8;
    if (byte >= punch_through_bytes || (record[at(byte)] & (128 >> (device % 8))) == 0) return std::nullopt;
    return owner;
}

}  // namespace

RemoteSimulator::RemoteSimulator(std::unique_ptr<Configuration> tables, const IrStepNames& names)
    : tables_(std::move(tables)), names_(names)
{
}

std::unique_ptr<RemoteSimulator> RemoteSimulator::from_image(std::vector<std::uint8_t> bytes, const IrStepNames& names)
{
    return std::make_unique<RemoteSimulator>(load_image(bytes, 0), names);
}

int RemoteSimulator::devices() const { return std::clamp(device_count(*tables_), 0, max_devices); }

bool RemoteSimulator::device_shown(int device) const
{
    if (device == 0) return true;
    return device >= 1 && device <= devices() && tables_->device_table[at(device)].hidden != hidden_flag &&
           pages(device) > 0;
}

int RemoteSimulator::pages(int device) const
{
    if (device < 0 || device >= device_rows) return 0;
    return tables_->device_table[at(device)].page_count;
}

int RemoteSimulator::page_row(int device, int place) const
{
    if (device < 0 || device >= device_rows || place < 0 || place >= pages(device)) return -1;
    const int row = pages_before(*tables_, device) + place;
    return row < all_pages ? row : -1;
}

bool RemoteSimulator::page_shown(int device, int place) const
{
    const int row = page_row(device, place);
    return row >= 0 && device_shown(device) && tables_->page_table[at(row)].hidden != hidden_flag;
}

const SoftKey* RemoteSimulator::slot_at(int row, int slot) const
{
    const int home = std::min<int>(tables_->device_table[0].page_count, home_page_rows);
    if (row < 0 || slot < 0 || slot >= softkeys_per_page) return nullptr;
    if (slot >= std::min<int>(tables_->page_table[at(row)].key_count, softkeys_per_page)) return nullptr;
    if (row < home) return &tables_->home_pages[at(row)].slots[at(slot)];
    const int device_page = row - home;
    return device_page < device_page_rows ? &tables_->device_pages[at(device_page)].slots[at(slot)] : nullptr;
}

int RemoteSimulator::find_slot(int row, std::uint8_t position) const
{
    for (int s = 0; s < softkeys_per_page; ++s)
        if (const SoftKey* key = slot_at(row, s); key && key->position == position) return s;
    return -1;
}

std::optional<RemoteSimulator::KeyRef> RemoteSimulator::soft_key(int device, int place, int row, bool left) const
{
    const int page = page_row(device, place);
    if (page < 0) return std::nullopt;
    int slot = -1;
    // HOME pages carry no left keys, and a left button without a key of its
    // own runs its row's right key.
    if (left && device != 0) slot = find_slot(page, static_cast<std::uint8_t>(row + 128));
    if (slot < 0) slot = find_slot(page, static_cast<std::uint8_t>(row));
    if (slot < 0) return std::nullopt;
    // The key of a device that is hidden does not stand on HOME.
    if (device == 0 && row > 0) {
        const int d = (page * 5) + row;
        if (d <= devices() && !device_shown(d)) return std::nullopt;
    }
    return KeyRef{false, device, page, slot, -1};
}

RemoteSimulator::KeyRef RemoteSimulator::hard_key(int device, int key) const { return KeyRef{true, device, -1, -1, key}; }

std::int32_t RemoteSimulator::key_list(const KeyRef& key) const
{
    if (key.hard) return tables_->hardkeys[at(key.device * hardkeys_per_device + key.key)].action_list;
    const SoftKey* soft = slot_at(key.page_row, key.slot);
    return soft ? soft->action_list : no_index;
}

std::string RemoteSimulator::label_text(std::int32_t label_index) const
{
    if (label_index < 0 || label_index >= softkey_label_rows) return {};
    const KeyLabel& label = tables_->softkey_labels[at(label_index)];
    return label.is_free() ? std::string() : decode_device_name(label);
}

std::string RemoteSimulator::device_word(int device) const { return device == 0 ? "HOME" : std::to_string(device); }

std::string RemoteSimulator::page_line() const
{
    return "page " + device_word(shown_.device) + " " + std::to_string(shown_.place + 1) + "/" +
           std::to_string(pages(shown_.device));
}

std::vector<SimRow> RemoteSimulator::rows() const { return rows_of(shown_); }

std::vector<SimRow> RemoteSimulator::rows_of(SimPage shown) const
{
    std::vector<SimRow> out;
    const int page = page_row(shown.device, shown.place);
    if (page < 0) return out;
    // The title row carries the name of the device, or of HOME; the other
    // rows their keys' labels, the right key before the left.
    out.push_back({0, false, decode_device_name(tables_->device_name_table[at(shown.device)].name)});
    for (int r = 1; r < 6; ++r) {
        for (const bool left : {false, true}) {
            if (left && shown.device == 0) continue;
            const int slot = find_slot(page, static_cast<std::uint8_t>(r + (left ? 128 : 0)));
            if (slot < 0) continue;
            if (shown.device == 0 && !soft_key(0, shown.place, r, false)) continue;
            const std::int32_t label = slot_at(page, slot)->label_index;
            out.push_back({r, left, label_text(label), label});
        }
    }
    return out;
}

std::array<LcdRow, lcd_rows> RemoteSimulator::display(SimPage page) const
{
    std::array<LcdRow, lcd_rows> rows{};
    for (const SimRow& r : rows_of(page)) {
        KeyLabel label;
        if (r.label_index < 0) label = tables_->device_name_table[at(page.device)].name;
        else if (r.label_index < softkey_label_rows) label = tables_->softkey_labels[at(r.label_index)];
        if (label.is_free()) continue;
        LcdRow& row = rows[at(r.row)];
        (r.left ? row.has_left : row.has_right) = true;
        (r.left ? row.left : row.right) = label;
    }
    return rows;
}

std::vector<std::string> RemoteSimulator::screen() const
{
    std::vector<std::string> lines{page_line()};
    for (const SimRow& r : rows())
        lines.push_back("row " + std::to_string(r.row) + (r.left ? " left" : "") + " \"" + r.text + "\"");
    return lines;
}

void RemoteSimulator::home() { shown_ = {0, 0}; }

bool RemoteSimulator::show(SimPage page)
{
    if (!page_shown(page.device, page.place)) return false;
    shown_ = page;
    return true;
}

bool RemoteSimulator::page_next()
{
    for (int p = shown_.place + 1; p < pages(shown_.device); ++p)
        if (page_shown(shown_.device, p)) {
            shown_.place = p;
            return true;
        }
    return false;
}

bool RemoteSimulator::page_prev()
{
    for (int p = shown_.place - 1; p >= 0; --p)
        if (page_shown(shown_.device, p)) {
            shown_.place = p;
            return true;
        }
    return false;
}

std::vector<SimAction> RemoteSimulator::press_soft(int row, bool left)
{
    std::vector<SimAction> out;
    std::vector<KeyRef> running;
    if (const auto key = soft_key(shown_.device, shown_.place, row, left)) run(*key, out, running);
    if (out.empty()) out.push_back(action(SimAction::Kind::nothing, "nothing"));
    return out;
}

std::vector<SimAction> RemoteSimulator::press_hard(int key)
{
    std::vector<SimAction> out;
    std::vector<KeyRef> running;
    if (key >= 0 && key < hardkeys_per_device) run_hard(shown_.device, key, out, running);
    if (out.empty()) out.push_back(action(SimAction::Kind::nothing, "nothing"));
    return out;
}

void RemoteSimulator::run_hard(int device, int key, std::vector<SimAction>& out, std::vector<KeyRef>& running)
{
    // A punched-through key runs the list of the device that owns it.
    if (const auto owner = punch_owner(*tables_, key, device)) {
        out.push_back(action(SimAction::Kind::punch, "punch " + device_word(*owner)));
        device = *owner;
    }
    run(hard_key(device, key), out, running);
}

void RemoteSimulator::run(const KeyRef& key, std::vector<SimAction>& out, std::vector<KeyRef>& running)
{
    const auto steps = steps_of_list(*tables_, key_list(key));
    if (steps.empty()) {
        out.push_back(action(SimAction::Kind::nothing, "nothing"));
        return;
    }
    running.push_back(key);
    for (int step : steps) step_action(step, out, running);
    running.pop_back();
}

void RemoteSimulator::step_action(int step, std::vector<SimAction>& out, std::vector<KeyRef>& running)
{
    const ActionStep& s = tables_->action_steps.steps[at(step)];
    if (is_ir_step(s.step_type)) {
        // The step's row as the step list shows it, without its trailing blanks.
        std::string row = display_marcostep(*tables_, step, names_).value_or("");
        while (!row.empty() && row.back() == ' ') row.pop_back();
        out.push_back(action(SimAction::Kind::send, "send " + row));
        return;
    }
    switch (s.step_type) {
    case step_delay: {
        const int n = number_of(s);
        out.push_back(action(SimAction::Kind::wait, "wait " + std::to_string(n), n));
        return;
    }
    case step_beep: {
        const int n = number_of(s);
        out.push_back(
            action(SimAction::Kind::beep, "beep " + std::to_string(n) + " " + std::to_string(s.value), n, s.value));
        return;
    }
    case step_jump: {
        // A page that the remote never shows is passed over.
        if (!page_shown(s.param_low, s.param_high)) return;
        shown_ = {s.param_low, s.param_high};
        out.push_back(
            action(SimAction::Kind::show, "show " + device_word(s.param_low) + " " + std::to_string(s.param_high + 1)));
        out.back().page = shown_;
        return;
    }
    case step_link: {
        const int device = s.param_low;
        if (s.param_high == free_byte) {
            const int key = s.extra - 1;
            if (key < 0 || key >= hardkeys_per_device || device >= device_rows) return;
            out.push_back(
                action(SimAction::Kind::link, "link " + device_word(device) + " hard " + std::to_string(key)));
            const KeyRef target = hard_key(device, key);
            if (std::find(running.begin(), running.end(), target) != running.end()) {
                out.push_back(action(SimAction::Kind::loop, "loop"));
                return;
            }
            run_hard(device, key, out, running);
            return;
        }
        const int row = s.extra & 0x7F;
        const bool left = (s.extra & 0x80) != 0;
        out.push_back(action(SimAction::Kind::link, "link " + device_word(device) + " " +
                                                        std::to_string(s.param_high + 1) + " " + std::to_string(row) +
                                                        (left ? " left" : "")));
        const auto target = soft_key(device, s.param_high, row, left);
        if (!target) {
            out.push_back(action(SimAction::Kind::nothing, "nothing"));
            return;
        }
        if (std::find(running.begin(), running.end(), *target) != running.end()) {
            out.push_back(action(SimAction::Kind::loop, "loop"));
            return;
        }
        run(*target, out, running);
        return;
    }
    default: return;  // a free step adds nothing
    }
}

}  // namespace tesselo
