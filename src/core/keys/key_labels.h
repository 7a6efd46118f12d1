#pragma once

#include <optional>
#include <string>

#include "core/keys/key_locator.h"
#include "core/model/key_label.h"

namespace tesselo {

class Application;

inline const std::string max_character_message = "Max. Character is exceed";
// A soft position without a key gets one with its first glyph; with all 924
// label entries taken it cannot.
inline const std::string label_table_full_message = "Exceed key labels";

// What the Label field edits, found afresh from the selection for every
// gesture: a soft key's label, a hard key's label, or a device's name. A
// device's name is the same ten bytes as its HOME key's label and the title
// row of its pages, so those keys edit the name.
struct LabelTarget {
    enum class Kind { softkey, hardkey, device };
    Kind kind = Kind::softkey;
    int slot = 0;
    std::string page_key;      // the page of a key
    KeyPlace place;            // the key, for softkey and hardkey
    int device = -1;           // the device row, for device
    bool device_node = false;  // chosen through the tree's device node
    std::string caption;       // the window's caption for the log lines
};

// The label that the selection names: a device (or HOME) node, or the key
// selected on a page. Nothing for a page node without a key, an empty
// position of a HOME page, or a left button without a key of its own.
std::optional<LabelTarget> label_target(Application& app);

// The label as the tables hold it now; an empty one for a position without key.
KeyLabel read_label(const Configuration& config, const LabelTarget& target);
// Its glyph count: a hard key's header is the plain length, other headers
// keep the length in their low four bits.
int label_length(const KeyLabel& label, const LabelTarget& target);

// change_keyname (soft keys and device names) and change_hardkeyname: put
// `glyph` at `caret`, the later glyphs moving up one place. The tenth glyph
// is refused with "Max. Character is exceed", and a key that cannot get a
// label entry with "Exceed key labels", before anything changes. One
// journal entry; the row box, the tree's texts and the log follow.
bool change_keyname(Application& app, const LabelTarget& target, int glyph, int caret);
bool change_hardkeyname(Application& app, const LabelTarget& target, int glyph, int caret);

// delete_char: removes the glyph before `caret`. A key whose label becomes
// empty keeps its slot. False when there is nothing before the caret.
bool delete_char(Application& app, const LabelTarget& target, int caret);

// Command10 left, Command11 center, Command12 right: the header's high four
// bits become 2, 0 or 3, its length kept. Soft keys and device names only.
// False when nothing changed.
bool align_label(Application& app, const LabelTarget& target, int alignment);

}  // namespace tesselo
