#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/keys/page_canvas.h"
#include "core/model/key_label.h"

namespace tesselo {

struct Configuration;
class IrStepNames;
class TreeModel;

// What the printable overview shows of one document, read from its tables:
// HOME and each device with its pages as the remote's display shows them,
// and every key that has steps with the rows of its step list.

struct OverviewPage {
    std::string name;  // "PAGE1", as the tree names the page
    bool hidden = false;
    std::string counter;  // the display's page counter, "001/003"
    std::array<LcdRow, lcd_rows> rows{};
};

struct OverviewKey {
    // Where the key is: "PAGE1 ROW 2 RIGHT", "PAGE1 ROW 2 LEFT", or "HARD KEY 4".
    std::string place;
    // The key's label as the remote shows it, and as plain text.
    KeyLabel label;
    int glyphs = 0;
    std::string label_text;
    // Its step rows, in the order the remote runs them, as the step list shows them.
    std::vector<std::string> steps;
};

struct OverviewSection {
    int device = 0;        // device row, 0 for HOME
    std::string name;      // "HOME", or the device's name
    KeyLabel name_label;   // the name as the remote shows it
    bool hidden = false;
    std::vector<OverviewPage> pages;
    // Soft keys page by page, row by row, the right button before the left
    // one; then the hard keys by their index.
    std::vector<OverviewKey> keys;
};

// HOME, then every device in tree order. `tree` names the devices in jump
// and link rows as the document's tree does.
std::vector<OverviewSection> overview_sections(const Configuration& config, const IrStepNames& ir,
                                               const TreeModel* tree = nullptr);

// The place words of a soft key at `position` on the page named `page`, and
// of hard key `key` (0 to 40).
std::string softkey_place_text(const std::string& page, int position);
std::string hardkey_place_text(int key);

}  // namespace tesselo
