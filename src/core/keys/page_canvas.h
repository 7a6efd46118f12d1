#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/keys/hardkey_pictures.h"
#include "core/model/key_label.h"

namespace tesselo {

struct Configuration;

// The 56 key pictures of a page window, in twips (15 to a pixel).
inline constexpr int key_picture_count = 56;
inline constexpr int twips_per_pixel = 15;
inline constexpr int lcd_rows = 6;

struct TwipRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// Where picture `index` (0 to 55) stands on the remote's body.
TwipRect key_picture_rect(int index);
// The LCD panel on the body, and its six label boxes inside the panel.
TwipRect lcd_panel_rect();
TwipRect lcd_row_rect(int row);
// The page counter, on the body below the LCD panel.
TwipRect pagelabel_rect();
// The remote's body: the smallest rectangle that holds every picture, with a rim.
TwipRect remote_body_rect();

// The LCD row of a side button, 0 to 5.
int side_button_row(int index);
// A side button's position byte: its row, plus 128 for a left button.
int side_button_position(int index);
// The picture of a position byte, or -1.
int picture_of_position(int position);


// n as at least three decimal digits with leading zeros.
std::string GenTagString(int n);
// A page window's tag: its two numbers joined by "+".
std::string BuildTagText(int first, int second);

// One page of a document, as a page window shows it.
struct PageRef {
    bool home = false;
    int home_page = 0;    // row of home_pages, for a HOME page
    int device_page = 0;  // row of device_pages, for a device page
    int device = 0;       // device row, 0 for HOME
    int page_entry = 0;   // entry of page_table
    int page_number = 1;  // 1-based place among the pages of HOME or of the device
    int page_total = 1;   // pages of HOME or of the device
};

// The page whose tree node has `node_key`, or nothing.
std::optional<PageRef> find_page(const Configuration& config, const std::string& node_key);
// Every page of a document in tree order: HOME's, then each device's.
std::vector<PageRef> all_page_refs(const Configuration& config);
// The node key of a page, as its window's caption shows it.
std::string page_node_key(const Configuration& config, const PageRef& page);

// A label as plain text: a blank for code 0, "=" for a symbol glyph.
std::string key_label_text(const KeyLabel& label, int count);
// The label of the key at picture `index` of the page, as plain text.
std::string key_label_text(const Configuration& config, const PageRef& page, int index);
// The name of the page's device (HOME for a HOME page), as plain text.
std::string device_name_text(const Configuration& config, int device);

// What an LCD row shows: the label at the right button, and at the left one.
struct LcdRow {
    bool has_right = false;
    bool has_left = false;
    KeyLabel right;
    KeyLabel left;
};

// The six rows of a page: row 0 the title row with the device's (or HOME's)
// name unless a key of its own stands there, the other rows their soft keys' labels.
std::array<LcdRow, lcd_rows> lcd_page_rows(const Configuration& config, const PageRef& page);

// The soft key slot of a page at a position byte, or -1.
int softkey_slot_at(const Configuration& config, const PageRef& page, int position);

// The count of action steps of the key at picture `index` of the page.
int key_step_count(const Configuration& config, const PageRef& page, int index);

}  // namespace tesselo
