#include "core/keys/key_labels.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/key_refresh.h"
#include "core/keys/key_selection.h"
#include "core/keys/page_canvas.h"
#include "core/keys/step_commands.h"
#include "core/keys/hardkey_pictures.h"
#include "core/model/softkey_labels.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

bool valid_label_index(std::int32_t index) { return index >= 0 && index < softkey_label_rows; }

// The HOME key of device row `device`: its softkey_labels entry, or -1.
int home_key_label(const Configuration& config, int device)
{
    const std::string& key = config.device_name_table[static_cast<std::size_t>(device)].node_key;
    if (device <= 0 || key.empty()) return -1;
    for (const HomePage& page : config.home_pages)
        for (int s = 1; s < softkeys_per_page; ++s)
            if (page.node_key[static_cast<std::size_t>(s)] == key) {
                const std::int32_t label = page.slots[static_cast<std::size_t>(s)].label_index;
                return valid_label_index(label) ? label : -1;
            }
    return -1;
}

// The device whose HOME key stands in slot `slot` of a HOME page, or -1.
int device_of_home_key(const Configuration& config, const KeyPlace& place)
{
    if (place.slot < 1) return -1;
    const HomePage& page = config.home_pages[static_cast<std::size_t>(place.page_slots_row)];
    const int device = device_row_of_key(config, page.node_key[static_cast<std::size_t>(place.slot)]);
    return device >= 1 ? device : -1;
}

// A device's name, chosen through its node (`page_key` empty) or through a
// key of a page that shows it.
LabelTarget device_target(int slot, int device, const std::string& page_key, const std::string& caption)
{
    LabelTarget t;
    t.kind = LabelTarget::Kind::device;
    t.slot = slot;
    t.device = device;
    t.device_node = page_key.empty();
    t.page_key = page_key;
    t.caption = caption;
    return t;
}

// The target as the tables stand now: a soft key made by an earlier key
// press has its slot since.
LabelTarget current(const Configuration& config, const LabelTarget& target)
{
    LabelTarget now = target;
    if (target.kind != LabelTarget::Kind::softkey) return now;
    if (const auto place = locate_softkey(config, target.page_key, target.place.position)) now.place = *place;
    return now;
}

// The device node's text and its properties node's text are the name's
// text form; a hidden device keeps its brackets.
void update_device_texts(Application& app, int slot, int device)
{
    const DeviceName& row = app.config(slot).device_name_table[static_cast<std::size_t>(device)];
    TreeModel& tree = app.tree(slot);
    const int node = tree.find(row.node_key);
    if (device == 0 || node == 0) return;
    const std::string text = label_to_text(row.name, row.name.glyph_count());
    tree.node(node).text = tree.node(node).image == image_hidden_device ? "[" + text + "]" : text;
    if (const int properties = tree.find(properties_key(row.node_key)); properties != 0)
        tree.node(properties).text = text + " PROPERTIES";
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
}

// Writes the label back where the target keeps it and draws what shows it.
// A soft position without a key gets one first, as append_step makes it.
bool write_label(Application& app, const LabelTarget& target, const KeyLabel& label)
{
    Configuration& config = app.config(target.slot);
    switch (target.kind) {
    case LabelTarget::Kind::hardkey: {
        config.hardkey_labels[static_cast<std::size_t>(target.place.hard_entry)] = label;
        refresh_hardkey(app, target.slot, target.place.device,
                        check_actcualhardindex(target.place.hard_entry % hardkeys_per_device));
        return true;
    }
    case LabelTarget::Kind::device: {
        config.device_name_table[static_cast<std::size_t>(target.device)].name = label;
        // The HOME key's label and the device's name are the same ten bytes.
        if (const int home = home_key_label(config, target.device); home >= 0)
            config.softkey_labels[static_cast<std::size_t>(home)] = label;
        update_device_texts(app, target.slot, target.device);
        refresh_device_name(app, target.slot, target.device);
        return true;
    }
    case LabelTarget::Kind::softkey: break;
    }
    KeyPlace place = target.place;
    if (!make_softkey(config, place)) return false;
    const SoftKey* key = softkey_at(config, place);
    if (!key || !valid_label_index(key->label_index)) return false;
    config.softkey_labels[static_cast<std::size_t>(key->label_index)] = label;
    refresh_page_key(app, target.slot, target.page_key, picture_of_position(place.position));
    return true;
}

// Whether a write can land: a soft position without a key needs a free
// slot on its page and a free label entry. A page has a slot for each of
// its twelve positions, so only a full label table refuses.
bool can_write(const Configuration& config, const LabelTarget& target)
{
    if (target.kind != LabelTarget::Kind::softkey || target.place.slot >= 0) return true;
    return config.page_table[static_cast<std::size_t>(target.place.page_row)].key_count < softkeys_per_page &&
           search_softkeyno(config) < softkey_label_rows;
}

std::string closing_words(Application& app, const LabelTarget& target)
{
    if (target.kind == LabelTarget::Kind::device && target.device_node) {
        const KeyLabel& name = app.config(target.slot).device_name_table[static_cast<std::size_t>(target.device)].name;
        return "change device name " + label_to_text(name, name.glyph_count());
    }
    return "change key name " + key_log_names(app, target.page_key);
}

bool put_glyph(Application& app, const LabelTarget& target, int glyph, int caret, bool hard)
{
    const Configuration& config = app.config(target.slot);
    KeyLabel label = read_label(config, target);
    const int length = label_length(label, target);
    // The opening line comes first: a refused glyph is logged as tried.
    app.write_log((hard ? "change keyname(hardkey) (start) " : "change keyname (start) ") + target.caption);
    if (length >= label_glyphs) {
        app.ui().message(title_alt, max_character_message, Icon::exclamation);
        return false;
    }
    if (!can_write(config, target)) {
        app.ui().message(title_alt, label_table_full_message, Icon::exclamation);
        return false;
    }
    begin_edit(app);
    caret = caret < 0 ? 0 : caret > length ? length : caret;
    for (int i = length; i > caret; --i) label.bytes[static_cast<std::size_t>(1 + i)] = label.bytes[static_cast<std::size_t>(i)];
    label.bytes[static_cast<std::size_t>(1 + caret)] = static_cast<std::uint8_t>(glyph);
    label.bytes[0] = static_cast<std::uint8_t>(hard ? length + 1 : (label.bytes[0] & 0xF0) | (length + 1));
    if (!write_label(app, target, label)) return false;
    app.write_log(hard ? "chang hardkey name " + key_log_names(app, target.page_key) : closing_words(app, target));
    return true;
}

}  // namespace

std::optional<LabelTarget> label_target(Application& app)
{
    const Document* doc = app.active();
    const TreeSelection& s = app.selection();
    if (!doc || s.slot != doc->slot) return std::nullopt;
    const int slot = doc->slot;
    const Configuration& config = app.config(slot);
    const TreeModel& tree = app.tree(slot);
    const int node = tree.find(s.node_key);
    if (node == 0) return std::nullopt;
    const TreeNode& n = tree.node(node);
    if (n.image == image_home) return device_target(slot, 0, {}, doc->title);
    if (is_device_image(n.image) || n.image == image_properties) {
        const std::string& owner = n.image == image_properties && tree.valid(n.parent) ? tree.node(n.parent).key : n.key;
        if (tree.find(owner) && tree.node(tree.find(owner)).image == image_home) return device_target(slot, 0, {}, doc->title);
        const int device = device_row_of_key(config, owner);
        if (device < 0) return std::nullopt;
        return device_target(slot, device, {}, doc->title);
    }
    if (!is_page_image(n.image) || app.key_selection.selected_kind == kind_none) return std::nullopt;
    const auto place = locate_key(config, s.node_key, app.key_selection);
    if (!place) return std::nullopt;
    LabelTarget t;
    t.slot = slot;
    t.page_key = s.node_key;
    t.place = *place;
    t.caption = s.node_key;
    if (place->kind == kind_hard) {
        t.kind = LabelTarget::Kind::hardkey;
        return t;
    }
    // The title row carries the device's name.
    if (place->position == 0) return device_target(slot, place->device, s.node_key, s.node_key);
    if (place->home) {
        const int device = device_of_home_key(config, *place);
        if (device < 0) return std::nullopt;
        return device_target(slot, device, s.node_key, s.node_key);
    }
    // A left button without a key of its own runs the right one's.
    if (place->position >= 128 && place->slot < 0) return std::nullopt;
    return t;
}

KeyLabel read_label(const Configuration& config, const LabelTarget& target)
{
    switch (target.kind) {
    case LabelTarget::Kind::hardkey: return config.hardkey_labels[static_cast<std::size_t>(target.place.hard_entry)];
    case LabelTarget::Kind::device: return config.device_name_table[static_cast<std::size_t>(target.device)].name;
    case LabelTarget::Kind::softkey: break;
    }
    const SoftKey* key = softkey_at(config, current(config, target).place);
    if (!key || !valid_label_index(key->label_index)) return KeyLabel{};
    const KeyLabel& label = config.softkey_labels[static_cast<std::size_t>(key->label_index)];
    // A key whose entry reads free is shown, and written, as an empty label.
    return label.is_free() ? KeyLabel{} : label;
}

int label_length(const KeyLabel& label, const LabelTarget& target)
{
    const int length = target.kind == LabelTarget::Kind::hardkey ? label.header() : label.glyph_count();
    return length > label_glyphs ? 0 : length;
}

bool change_keyname(Application& app, const LabelTarget& target, int glyph, int caret)
{
    return put_glyph(app, current(app.config(target.slot), target), glyph, caret, false);
}

bool change_hardkeyname(Application& app, const LabelTarget& target, int glyph, int caret)
{
    return put_glyph(app, target, glyph, caret, true);
}

bool delete_char(Application& app, const LabelTarget& given, int caret)
{
    const LabelTarget target = current(app.config(given.slot), given);
    KeyLabel label = read_label(app.config(target.slot), target);
    const int length = label_length(label, target);
    if (caret < 1 || length == 0) return false;
    if (caret > length) caret = length;
    app.write_log("delete character - " + target.caption);
    begin_edit(app);
    for (int i = caret; i < length; ++i) label.bytes[static_cast<std::size_t>(i)] = label.bytes[static_cast<std::size_t>(i + 1)];
    label.bytes[static_cast<std::size_t>(length)] = 0;
    const bool hard = target.kind == LabelTarget::Kind::hardkey;
    label.bytes[0] = static_cast<std::uint8_t>(hard ? length - 1 : (label.bytes[0] & 0xF0) | (length - 1));
    return write_label(app, target, label);
}

bool align_label(Application& app, const LabelTarget& given, int alignment)
{
    const LabelTarget target = current(app.config(given.slot), given);
    if (target.kind == LabelTarget::Kind::hardkey) return false;
    KeyLabel label = read_label(app.config(target.slot), target);
    const auto header = static_cast<std::uint8_t>((alignment << 4) | (label.header() & 0x0F));
    if (header == label.header() || !can_write(app.config(target.slot), target)) return false;
    begin_edit(app);
    label.bytes[0] = header;
    if (!write_label(app, target, label)) return false;
    app.write_log(alignment == align_left    ? "to left alignment"
                  : alignment == align_right ? "to right alignment"
                                             : "to center alignment");
    return true;
}

}  // namespace tesselo
