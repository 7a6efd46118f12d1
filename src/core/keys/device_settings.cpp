#include "core/keys/device_settings.h"

#include <string>

#include "core/app/application.h"
#include "core/keys/step_text.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

// Writes one setting of the selected device when it changes.
template <typename Change>
bool write_setting(Application& app, bool device_only, const std::string& log, int shown, Change change)
{
    const auto device = settings_device(app);
    if (!device || (device_only && *device == 0)) return false;
    const int slot = app.active()->slot;
    DeviceExtra& extra = app.config(slot).device_extra[static_cast<std::size_t>(*device)];
    DeviceExtra changed = extra;
    change(changed);
    if (changed.option_a == extra.option_a && changed.option_b == extra.option_b) return false;
    begin_edit(app);
    extra = changed;
    app.write_log(log + device_tree_text(app.config(slot), *device, &app.tree(slot)) + " " + std::to_string(shown));
    return true;
}

}  // namespace

int rf_channel(std::uint8_t option_b) { return (option_b & channel_bits) + 1; }

int rf_group(std::uint8_t option_b) { return ((option_b & group_bit) ? 1 : 0) + 1; }

bool blaster_enabled(std::uint8_t option_b) { return (option_b & blaster_bit) != 0; }

std::optional<int> settings_device(Application& app)
{
    const Document* doc = app.active();
    const TreeSelection& s = app.selection();
    if (!doc || s.slot != doc->slot || s.selected_kind == TreeSelection::Kind::key) return std::nullopt;
    const TreeModel& tree = app.tree(doc->slot);
    int node = tree.find(s.node_key);
    if (node == 0) return std::nullopt;
    if (tree.node(node).image == image_properties) node = tree.node(node).parent;
    if (!tree.valid(node)) return std::nullopt;
    if (tree.node(node).image == image_home) return 0;
    if (!is_device_image(tree.node(node).image)) return std::nullopt;
    // The device is found by its key among the device rows 1 to 128.
    const int device = device_row_of_key(app.config(doc->slot), tree.node(node).key);
    if (device < 1) return std::nullopt;
    return device;
}

bool IRRF_Click(Application& app, std::uint8_t choice)
{
    if (choice != option_ir && choice != option_rf) return false;
    return write_setting(app, true, "Set RF ", choice, [choice](DeviceExtra& e) { e.option_a = choice; });
}

bool Option1_Click(Application& app, bool enable)
{
    return write_setting(app, false, "Set blaster bit ", enable ? 1 : 0, [enable](DeviceExtra& e) {
        // 128 added when enabled, taken away when disabled: never twice.
        if (enable && !blaster_enabled(e.option_b)) e.option_b = static_cast<std::uint8_t>(e.option_b + blaster_bit);
        if (!enable && blaster_enabled(e.option_b)) e.option_b = static_cast<std::uint8_t>(e.option_b - blaster_bit);
    });
}

bool Combo1_Click(Application& app, int channel)
{
    if (channel < 1 || channel > 4) return false;
    return write_setting(app, true, "Set RF channel ", channel, [channel](DeviceExtra& e) {
        e.option_b = static_cast<std::uint8_t>((e.option_b & ~channel_bits) | (channel - 1));
    });
}

bool Combo2_Click(Application& app, int group)
{
    if (group < 1 || group > 2) return false;
    return write_setting(app, true, "Set RF ID ", group, [group](DeviceExtra& e) {
        e.option_b = static_cast<std::uint8_t>((e.option_b & ~group_bit) | (group == 2 ? group_bit : 0));
    });
}

}  // namespace tesselo
