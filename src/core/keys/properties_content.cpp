#include "core/keys/properties_content.h"

#include "core/app/application.h"
#include "core/keys/device_settings.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_text.h"
#include "core/tree/node_keys.h"
#include "core/tree/selection.h"

namespace tesselo {

namespace {

void fill_softkey(Application& app, const KeyTarget& target, const KeyPlace& place, const IrStepNames& ir,
                  ActionPanel& panel)
{
    const Configuration& config = app.config(target.slot);
    const SoftKey* key = softkey_at(config, place);
    panel.check2 = key && sleep_timer_count(place.home, key->key_state) > 0;
    // A left button of a device's page: without a key of its own it runs the right one's.
    if (!place.home && place.position >= 128) {
        panel.check3_shown = true;
        panel.check3 = !key;
        panel.check3_enabled = !link_right_greyed(config, place);
        if (steps_greyed(config, place) == StepsGreyed::linked_right) {
            panel.grey = true;
            panel.test_ir = false;
            panel.check2_enabled = false;
            return;
        }
    }
    panel.rows = load_step_rows(app, target, ir);
}

void fill_hardkey(Application& app, const KeyTarget& target, const KeyPlace& place, const IrStepNames& ir,
                  ActionPanel& panel)
{
    const Configuration& config = app.config(target.slot);
    const int key = place.hard_entry % hardkeys_per_device;
    panel.check2 = check_hardsleepflag(config, place.device, key) > 0;
    panel.check1_shown = place.device != 0;
    panel.check1 = punch_bit(config, key, place.device);
    const int owner = punch_owner(config, key);
    if (steps_greyed(config, place) == StepsGreyed::punched) {
        // The remote runs the owner's list; this device shows where it comes from.
        panel.rows = {{-1, punch_row_text + device_tree_text(config, owner, &app.tree(target.slot))}};
        panel.grey = true;
        panel.check2_enabled = false;
        return;
    }
    panel.rows = load_step_rows(app, target, ir);
}

}  // namespace

StepsGreyed steps_greyed(const Configuration& config, const KeyPlace& place)
{
    if (place.kind == kind_hard) {
        const int key = place.hard_entry % hardkeys_per_device;
        const bool punched = place.device != 0 && check_punchthough(config, key, place.device) &&
                             punch_owner(config, key) != place.device;
        return punched ? StepsGreyed::punched : StepsGreyed::no;
    }
    if (place.slot >= 0) return StepsGreyed::no;
    if (place.home) return StepsGreyed::no_key;
    return place.position >= 128 ? StepsGreyed::linked_right : StepsGreyed::no;
}

bool link_right_greyed(const Configuration& config, const KeyPlace& place)
{
    // A left key that stands on the title row (a file made elsewhere) can still go.
    return place.kind == kind_soft && !place.home && place.position == 128 && !softkey_at(config, place);
}

std::optional<KeyTarget> selected_key_target(Application& app)
{
    const Document* doc = app.active();
    const TreeSelection& s = app.selection();
    if (!doc || s.slot != doc->slot || s.selected_kind != TreeSelection::Kind::key) return std::nullopt;
    if (!is_page_image(s.image) || app.key_selection.selected_kind == kind_none) return std::nullopt;
    return KeyTarget{doc->slot, s.node_key};
}

PropertiesContent properties_content(Application& app, const IrStepNames& ir, bool label_alone)
{
    PropertiesContent content;
    if (const auto target = selected_key_target(app)) {
        const auto place = locate_key(app.config(target->slot), target->page_key, app.key_selection);
        // An empty place of a HOME page is no key: HOME's keys are its devices'.
        if (!place || (place->home && place->kind == kind_soft && place->slot < 0)) return content;
        const bool hard = place->kind == kind_hard;
        content.shows = hard ? PropertiesContent::Shows::hardkey : PropertiesContent::Shows::softkey;
        content.tab_strip = hard ? 2 : 1;
        if (hard) fill_hardkey(app, *target, *place, ir, content.action);
        else fill_softkey(app, *target, *place, ir, content.action);
    } else if (const auto device = settings_device(app)) {
        content.shows = PropertiesContent::Shows::device;
        content.tab_strip = label_alone && *device != 0 ? 3 : 1;
        const Configuration& config = app.config(app.active()->slot);
        const DeviceExtra& extra = config.device_extra[static_cast<std::size_t>(*device)];
        content.device = {*device, *device != 0, extra.option_a, rf_channel(extra.option_b), rf_group(extra.option_b),
                          blaster_enabled(extra.option_b)};
    } else {
        return content;
    }
    content.label = label_target(app);
    content.alignment = content.label && content.label->kind != LabelTarget::Kind::hardkey;
    return content;
}

void muproperties_Click(Application& app)
{
    app.notify([](ApplicationListener& l) { l.properties_requested(); });
}

void labelproperties(Application& app)
{
    app.notify([](ApplicationListener& l) { l.label_requested(); });
}

std::optional<KeyEditEnables> key_edit_enables(Application& app, bool key_in_clipboard)
{
    const auto target = selected_key_target(app);
    if (!target) return std::nullopt;
    const auto place = locate_key(app.config(target->slot), target->page_key, app.key_selection);
    if (!place) return KeyEditEnables{};
    KeyEditEnables e;
    const bool exists = place->kind == kind_hard || place->slot >= 0;
    const bool title_row = place->kind == kind_soft && (place->position & 0x7F) == 0;
    e.copy = exists;
    e.cut = exists && place->kind == kind_soft && !title_row && !place->home;
    e.remove = exists && !title_row && !(place->home && place->kind == kind_soft);
    e.paste = key_in_clipboard && !(place->home && place->kind == kind_soft);
    return e;
}

}  // namespace tesselo
