#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/keys/page_canvas.h"
#include "core/model/configuration.h"

namespace tesselo {

class IrStepNames;

// The page on the display: HOME page `place` (0 from the first) or page
// `place` of device row `device`, counted among all the device's pages.
struct SimPage {
    int device = 0;
    int place = 0;
    bool operator==(const SimPage&) const = default;
};

// One thing the remote does when a key is pressed.
struct SimAction {
    enum class Kind { send, wait, beep, show, link, punch, nothing, loop };
    Kind kind = Kind::nothing;
    std::string line;  // as tesselo-cli prints it: "send RC5 0 12", "wait 50", ...
    int hundredths = 0;  // a wait's or a beep's duration
    int hertz = 0;       // a beep's frequency
    SimPage page;        // the page a jump shows
};

// What the display shows in one row: the key's label as the tree shows labels.
struct SimRow {
    int row = 0;
    bool left = false;
    std::string text;
    std::int32_t label_index = -1;  // the key's label row; -1 for the title row's name
};

// A configuration image run as the remote runs it: the display's page and
// rows, the keys pressed, each step in order. It holds tables of its own,
// never a document's.
class RemoteSimulator {
public:
    // The image's tables, as the image reader left them. `names` tells the
    // rows of IR steps, as the step list shows them.
    RemoteSimulator(std::unique_ptr<Configuration> tables, const IrStepNames& names);

    // Reads an image (a .kcf file's bytes, or temp.trl); throws
    // ImageBoundsError for bytes that are no image.
    static std::unique_ptr<RemoteSimulator> from_image(std::vector<std::uint8_t> bytes, const IrStepNames& names);

    const Configuration& tables() const { return *tables_; }
    SimPage shown() const { return shown_; }
    // "page HOME P/N" or "page D P/N".
    std::string page_line() const;
    // The rows that carry a key, top to bottom, the right key before the left.
    std::vector<SimRow> rows() const;
    // page_line and a `row R "TEXT"` / `row R left "TEXT"` line per row.
    std::vector<std::string> screen() const;
    // The display's six rows of `page` with their labels' glyphs, as a page
    // window draws them: the title row the device's (or HOME's) name.
    std::array<LcdRow, lcd_rows> display(SimPage page) const;

    // A side button of the display, and hard key `key` (0 to 40) of the
    // device shown (HOME's own on a HOME page).
    std::vector<SimAction> press_soft(int row, bool left);
    std::vector<SimAction> press_hard(int key);
    // HOME page 1; the next or previous page of the device shown that is not
    // hidden (false, and the display stays, when there is none).
    void home();
    // Shows `page` when the remote would show it; false, and the display
    // stays, when it would not.
    bool show(SimPage page);
    bool page_next();
    bool page_prev();

    // The devices of the image, and whether the remote shows them.
    int devices() const;
    bool device_shown(int device) const;
    // The pages of HOME (device 0) or of a device, and whether a page is shown.
    int pages(int device) const;
    bool page_shown(int device, int place) const;

private:
    // A key that runs: a soft key by its page row and slot, or a hard key by
    // its device and index.
    struct KeyRef {
        bool hard = false;
        int device = 0;
        int page_row = -1;
        int slot = -1;
        int key = -1;
        bool operator==(const KeyRef&) const = default;
    };

    int page_row(int device, int place) const;
    std::vector<SimRow> rows_of(SimPage page) const;
    const SoftKey* slot_at(int row, int slot) const;
    int find_slot(int row, std::uint8_t position) const;
    std::optional<KeyRef> soft_key(int device, int place, int row, bool left) const;
    KeyRef hard_key(int device, int key) const;
    std::int32_t key_list(const KeyRef& key) const;
    std::string label_text(std::int32_t label_index) const;
    std::string device_word(int device) const;

    void run(const KeyRef& key, std::vector<SimAction>& out, std::vector<KeyRef>& running);
    void run_hard(int device, int key, std::vector<SimAction>& out, std::vector<KeyRef>& running);
    void step_action(int step, std::vector<SimAction>& out, std::vector<KeyRef>& running);

    std::unique_ptr<Configuration> tables_;
    const IrStepNames& names_;
    SimPage shown_;
};

}  // namespace tesselo
