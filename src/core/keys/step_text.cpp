#include "core/keys/step_text.h"

#include <cmath>
#include <cstdio>

#include "core/keys/step_chain.h"
#include "core/keys/char_pic_list.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

std::string format_decimal(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", std::round(value * 100.0) / 100.0);
    std::string text = buffer;
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

std::string device_tree_text(const Configuration& config, int device, const TreeModel* tree)
{
    if (device < 0 || device >= device_rows) return {};
    const DeviceName& row = config.device_name_table[static_cast<std::size_t>(device)];
    if (tree) {
        if (const int node = tree->find(row.node_key); node > 0) return tree->node(node).text;
    }
    return decode_device_name(row.name);
}

std::string page_number_text(const Configuration& config, int device, int place)
{
    if (device < 0 || device >= device_rows) return {};
    const int row = pages_before(config, device) + place;
    if (row < 0 || row >= page_rows) return {};
    const std::string& key = config.page_table[static_cast<std::size_t>(row)].node_key;
    const auto at = key.rfind("PAGE");
    if (at == std::string::npos) return {};
    std::string digits;
    for (std::size_t i = at + 4; i < key.size() && key[i] >= '0' && key[i] <= '9'; ++i) digits += key[i];
    return digits.empty() ? digits : std::to_string(std::stoi(digits));
}

namespace {

// A soft key's or device's label as the step rows show it.
std::string label_text(const KeyLabel& label) { return label.is_free() ? "" : label_to_text(label, label.glyph_count()); }

std::string link_target_text(const Configuration& config, const ActionStep& s)
{
    const int device = s.param_low;
    if (device >= device_rows) return {};
    if (s.param_high == free_byte) {
        const int entry = device * hardkeys_per_device + s.value - 1;
        const std::string label = entry >= 0 && entry < hardkey_rows
                                      ? label_to_text(config.hardkey_labels[static_cast<std::size_t>(entry)],
                                                      config.hardkey_labels[static_cast<std::size_t>(entry)].header())
                                      : "";
        return label + "-HARD-";
    }
    std::string text = "PAGE-" + page_number_text(config, device, s.param_high) + (s.extra > 5 ? "-L-" : "-");
    if (s.extra == 0) return text + label_text(config.device_name_table[static_cast<std::size_t>(device)].name);
    if (s.value < softkey_label_rows) text += label_text(config.softkey_labels[s.value]);
    return text;
}

}  // namespace

std::array<std::string, 3> plain_step_parts(const Configuration& config, const ActionStep& s, const TreeModel* tree)
{
    const double seconds = step_number_value(s) / 100.0;
    switch (s.step_type) {
    case step_learning: return {"LEARNING CODE", "", ""};
    case step_jump: return {"JUMP TO", device_tree_text(config, s.param_low, tree), "PAGE" + page_number_text(config, s.param_low, s.param_high)};
    case step_delay: return {"DELAY", format_decimal(seconds), "S"};
    case step_link: return {"LINK TO", device_tree_text(config, s.param_low, tree), link_target_text(config, s)};
    case step_beep: return {"BEEP SOUND", format_decimal(seconds) + "Sec", ""};
    default: return {"", "", ""};
    }
}

std::optional<std::string> display_marcostep(const Configuration& config, int step, const IrStepNames& ir,
                                             const TreeModel* tree)
{
    if (step < 0 || step >= action_step_rows) return std::nullopt;
    const ActionStep& s = config.action_steps.steps[static_cast<std::size_t>(step)];
    if (s.step_type == step_free) return std::nullopt;
    const bool plain = s.step_type >= step_learning && s.step_type <= step_beep;
    const auto parts = plain ? plain_step_parts(config, s, tree) : ir.ir_parts(config, s);
    if (s.step_type == step_link) return parts[0] + " " + parts[1] + parts[2];
    return parts[0] + " " + parts[1] + " " + parts[2];
}

}  // namespace tesselo
