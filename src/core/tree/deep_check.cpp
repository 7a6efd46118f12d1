#include "core/tree/deep_check.h"

#include <map>
#include <set>

#include "core/keys/key_behaviours.h"
#include "core/model/action_chain.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// The device row and the 0-based place of page_table entry `page`.
std::pair<int, int> page_place(const Configuration& c, int page)
{
    int first = 0;
    for (int d = 0; d < device_rows; ++d) {
        const int count = c.device_table[at(d)].page_count;
        if (page < first + count) return {d, page - first};
        first += count;
    }
    return {-1, page};
}

int all_page_count(const Configuration& c)
{
    int total = 0;
    for (const auto& d : c.device_table) total += d.page_count;
    return std::min(total, page_rows);
}

// The twelve slots of page_table entry `page`: a HOME page's own row, a
// device page's row tied to it by node key (by order in a file just read).
const std::array<SoftKey, softkeys_per_page>* slots_of_page(const Configuration& c, int page)
{
    const int home = c.device_table[0].page_count;
    if (page < home) return page < home_page_rows ? &c.home_pages[at(page)].slots : nullptr;
    const std::string& key = c.page_table[at(page)].node_key;
    const int row = key.empty() ? page - home : page_slots_row_of_key(c, key);
    return row >= 0 && row < device_page_rows ? &c.device_pages[at(row)].slots : nullptr;
}

int used_slots(const Configuration& c, int page)
{
    return std::min<int>(c.page_table[at(page)].key_count, softkeys_per_page);
}

bool device_exists(const Configuration& c, int device) { return device >= 0 && device <= device_count(c); }

std::string row_words(std::uint8_t position)
{
    return "row " + std::to_string(position & 0x7F) + (position >= 128 ? " left" : "");
}

// A hard key's name as its label shows it, else its number.
std::string hardkey_name(const Configuration& c, int device, int key)
{
    const int entry = device * hardkeys_per_device + key;
    const std::string name = entry >= 0 && entry < hardkey_rows ? decode_device_name(c.hardkey_labels[at(entry)]) : "";
    return name.empty() ? std::to_string(key + 1) : name;
}

class DeepWalk {
public:
    explicit DeepWalk(const Configuration& c) : c_(c) {}

    std::vector<std::string> run()
    {
        walk_chains();
        walk_keys();
        walk_home_places();
        walk_steps();
        walk_punch_through();
        return std::move(lines_);
    }

private:
    void say(const std::string& where, const std::string& what) { lines_.push_back(where + ": " + what); }

    void walk_chains()
    {
        int lists = 0;
        for (int l = 0; l < action_list_rows; ++l) {
            const auto& e = c_.action_lists.entries[at(l)];
            if (e.step_count == 0) continue;
            ++lists;
            const auto rows = steps_of_list(c_, l);
            const std::string where = "action list " + std::to_string(l);
            if (static_cast<int>(rows.size()) != e.step_count)
                say(where, "holds " + std::to_string(rows.size()) + " steps where its count says " +
                               std::to_string(e.step_count));
            else if (c_.action_steps.steps[at(rows.back())].next_step != end_of_list)
                say(where, "does not end after its last step");
            for (int r : rows) {
                if (!step_list_.emplace(r, l).second) say(where, "shares step " + std::to_string(r) + " with another list");
                if (c_.action_steps.steps[at(r)].step_type == step_free) say(where, "runs into the free step " + std::to_string(r));
            }
        }
        if (lists != c_.action_lists.list_count)
            say("action lists", std::to_string(c_.action_lists.list_count) + " counted, " + std::to_string(lists) + " in use");
        int steps = 0;
        for (int s = 0; s < action_step_rows; ++s) {
            if (c_.action_steps.steps[at(s)].step_type == step_free) continue;
            ++steps;
            if (!step_list_.count(s)) say("action step " + std::to_string(s), "belongs to no list");
        }
        if (steps != c_.action_steps.step_total)
            say("action steps", std::to_string(c_.action_steps.step_total) + " counted, " + std::to_string(steps) + " in use");
    }

    void own_list(std::int32_t list, const std::string& words)
    {
        if (list == no_index) return;
        if (list < 0 || list >= action_list_rows || c_.action_lists.entries[at(list)].step_count == 0) {
            say(words, "names the action list " + std::to_string(list) + ", which holds no steps");
            return;
        }
        auto [it, fresh] = list_owner_.emplace(list, words);
        if (!fresh) say(words, "plays the steps of " + it->second + " (both own action list " + std::to_string(list) + ")");
    }

    void walk_keys()
    {
        const int pages = all_page_count(c_);
        const int home = c_.device_table[0].page_count;
        std::map<std::int32_t, std::pair<std::string, std::uint8_t>> label_owner;
        for (int p = 0; p < pages; ++p) {
            const auto* slots = slots_of_page(c_, p);
            if (!slots) {
                say(page_words(p), "has no row of keys");
                continue;
            }
            const int used = used_slots(c_, p);
            for (int s = 0; s < used; ++s) {
                const SoftKey& key = (*slots)[at(s)];
                const std::string words = softkey_words(c_, p, key.position);
                own_list(key.action_list, words);
                if (key.label_index != no_index && s > 0) {
                    if (key.label_index < 0 || key.label_index >= softkey_label_rows ||
                        c_.softkey_labels[at(key.label_index)].is_free())
                        say(words, "names the free label " + std::to_string(key.label_index));
                    else {
                        auto [it, fresh] = label_owner.emplace(key.label_index, std::make_pair(words, key.position));
                        // The two halves of one row may show one label.
                        if (!fresh && (it->second.second & 0x7F) != (key.position & 0x7F))
                            say(words, "shows the label of " + it->second.first);
                    }
                }
                if (key.position < 128) continue;
                if (p < home) {
                    say(words, "is a left button on a HOME page");
                    continue;
                }
                if (key.position == 128) {
                    say(words, "is a left button on the title row");
                    continue;
                }
                // A left button is half of its row: its right button stands beside it.
                const auto right = static_cast<std::uint8_t>(key.position - 128);
                const bool before = s > 0 && (*slots)[at(s - 1)].position == right;
                const bool after = s + 1 < used && (*slots)[at(s + 1)].position == right;
                if (!before && !after) say(words, "is a left button without its right button beside it");
            }
        }
        for (int d = 0; d <= device_count(c_) && d < device_rows; ++d)
            for (int k = 0; k < hardkeys_per_device; ++k)
                own_list(c_.hardkeys[at(d * hardkeys_per_device + k)].action_list, hardkey_words(c_, d, k));
        for (int l = 0; l < action_list_rows; ++l)
            if (c_.action_lists.entries[at(l)].step_count > 0 && !list_owner_.count(l))
                say("action list " + std::to_string(l), "belongs to no key");
    }

    // Each HOME page shows its devices' keys at rows 1 to 5, one key a row.
    void walk_home_places()
    {
        const int home = std::min<int>(c_.device_table[0].page_count, home_page_rows);
        for (int p = 0; p < home; ++p) {
            const auto& slots = c_.home_pages[at(p)].slots;
            std::set<int> rows;
            for (int s = 1; s < used_slots(c_, p); ++s) {
                const int row = slots[at(s)].position & 0x7F;
                const std::string words = softkey_words(c_, p, slots[at(s)].position);
                if (row < 1 || row > 5) say(words, "stands outside the rows 1 to 5 of a HOME page");
                else if (!rows.insert(row).second) say(words, "stands on the row of another HOME key, so one of them cannot be reached");
            }
        }
    }

    std::string page_words(int page) const
    {
        const auto [device, place] = page_place(c_, page);
        return device_words(c_, device < 0 ? 0 : device) + "/PAGE" + std::to_string(place + 1);
    }

    std::string step_words(int row) const
    {
        const auto list = step_list_.find(row);
        std::string words = "action step " + std::to_string(row);
        if (list == step_list_.end()) return words;
        const auto owner = list_owner_.find(list->second);
        const auto rows = steps_of_list(c_, list->second);
        int n = 1;
        while (n <= static_cast<int>(rows.size()) && rows[at(n - 1)] != row) ++n;
        return (owner == list_owner_.end() ? "action list " + std::to_string(list->second) : owner->second) +
               " step " + std::to_string(n);
    }

    void walk_steps()
    {
        std::map<int, int> learned_by;
        for (const auto& [row, list] : step_list_) {
            (void)list;
            const ActionStep& s = c_.action_steps.steps[at(row)];
            const int number = s.param_low + 256 * s.param_high;
            if (sends_ir_record(s.step_type)) {
                if (number >= c_.ir_data.record_count || number >= ir_data_rows || c_.ir_data.record(number)[0] == 255)
                    say(step_words(row), "sends the IR record " + std::to_string(number) + ", which is not stored");
            } else if (sends_learned_code(s.step_type)) {
                if (number >= learned_codes || (c_.learning_bitmap[at(number / 8)] & (128 >> (number % 8))) == 0) {
                    say(step_words(row), "sends the learned code " + std::to_string(number) + ", whose slot is free");
                    continue;
                }
                // A learned code is the key's own; a My Database learned code names it.
                if (s.step_type == step_learning) {
                    auto [it, fresh] = learned_by.emplace(number, row);
                    if (!fresh) say(step_words(row), "sends the learned code of " + step_words(it->second));
                }
            } else if (s.step_type == step_jump) {
                check_jump(row, s);
            } else if (s.step_type == step_link) {
                check_link(row, s);
            }
        }
    }

    void check_jump(int row, const ActionStep& s)
    {
        if (!device_exists(c_, s.param_low)) {
            say(step_words(row), "jumps to device " + std::to_string(s.param_low) + ", which is not there");
            return;
        }
        if (s.param_high >= c_.device_table[at(s.param_low)].page_count)
            say(step_words(row), "jumps to " + device_words(c_, s.param_low) + "/PAGE" + std::to_string(s.param_high + 1) +
                                     ", which is not there");
    }

    void check_link(int row, const ActionStep& s)
    {
        if (!device_exists(c_, s.param_low)) {
            say(step_words(row), "links to device " + std::to_string(s.param_low) + ", which is not there");
            return;
        }
        if (s.param_high == 255) {
            if (s.value < 1 || s.value > hardkeys_per_device)
                say(step_words(row), "links to the hard key " + std::to_string(s.value) + " of " + device_words(c_, s.param_low) +
                                         ", which is not there");
            return;
        }
        const std::string target = device_words(c_, s.param_low) + "/PAGE" + std::to_string(s.param_high + 1);
        if (s.param_high >= c_.device_table[at(s.param_low)].page_count) {
            say(step_words(row), "links to " + target + ", which is not there");
            return;
        }
        const int page = pages_before(c_, s.param_low) + s.param_high;
        const auto* slots = slots_of_page(c_, page);
        if (!slots) return;
        for (int k = 0; k < used_slots(c_, page); ++k) {
            const SoftKey& key = (*slots)[at(k)];
            if (key.position != s.extra) continue;
            if (key.label_index != s.value)
                say(step_words(row), "links to " + target + "/" + row_words(s.extra) + ", where another key stands now");
            return;
        }
        say(step_words(row), "links to " + target + "/" + row_words(s.extra) + ", where no key stands");
    }

    void walk_punch_through()
    {
        for (int k = 0; k < hardkeys_per_device; ++k) {
            const int owner = c_.punch_through[at(k)][0];
            if (owner == free_byte) continue;
            if (!device_exists(c_, owner)) {
                say("hard key " + hardkey_name(c_, 0, k),
                    "is punched through from device " + std::to_string(owner) + ", which is not there");
                continue;
            }
            // Where the key is punched through the remote plays the owner's
            // steps: a list of the device's own would never be played.
            for (int d = 1; d <= device_count(c_) && d < device_rows; ++d)
                if (d != owner && check_punchthough(c_, k, d) &&
                    c_.hardkeys[at(d * hardkeys_per_device + k)].action_list != no_index)
                    say(hardkey_words(c_, d, k), "has steps that the remote never plays: it is punched through from " +
                                                     device_words(c_, owner));
        }
    }

    const Configuration& c_;
    std::vector<std::string> lines_;
    std::map<int, int> step_list_;
    std::map<std::int32_t, std::string> list_owner_;
};

}  // namespace

std::string device_words(const Configuration& config, int device)
{
    if (device == 0) return "HOME";
    if (device < 0 || device >= device_rows) return "DEVICE" + std::to_string(device);
    const std::string name = decode_device_name(config.device_name_table[at(device)].name);
    return name.empty() ? "DEVICE" + std::to_string(device) : name;
}

std::string softkey_words(const Configuration& config, int page_row, std::uint8_t position)
{
    const auto [device, place] = page_place(config, page_row);
    return device_words(config, device < 0 ? 0 : device) + "/PAGE" + std::to_string(place + 1) + "/" + row_words(position);
}

std::string hardkey_words(const Configuration& config, int device, int key)
{
    return device_words(config, device) + "/hard key " + hardkey_name(config, device, key);
}

std::vector<std::string> deep_check(const Configuration& config) { return DeepWalk(config).run(); }

}  // namespace tesselo
