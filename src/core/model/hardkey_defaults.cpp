#include "core/model/hardkey_defaults.h"

#include <initializer_list>
#include <vector>

#include "core/model/configuration.h"

namespace tesselo {

namespace {

const std::vector<std::vector<int>>& default_glyphs()
{
    static const std::vector<std::vector<int>> glyphs = {
        {15, 14},                 // 0  ON
        {15, 6, 6},               // 1  OFF
        {15, 14, 46, 15, 6, 6},   // 2  ON/OFF
        {28},                     // 3  1
        {2, 12, 21, 5},           // 4  BLUE
        {59, 28, 27},             // 5  +10
        {31},                     // 6  4
        {18, 5, 4},               // 7  RED
        {81},                     // 8  record
        {34},                     // 9  7
        {3, 8, 37},               // 10 CH-
        {7, 21, 9, 4, 5},         // 11 GUIDE
        {3, 8, 59},               // 12 CH+
        {89, 77},                 // 13 last, back play
        {12, 5, 6, 20},           // 14 LEFT
        {75},                     // 15 stop
        {27},                     // 16 0
        {35},                     // 17 8
        {29},                     // 18 2
        {7, 18, 5, 5, 14},        // 19 GREEN
        {76},                     // 20 play
        {32},                     // 21 5
        {74},                     // 22 pause
        {3, 12, 5, 1, 18},        // 23 CLEAR
        {36},                     // 24 9
        {30},                     // 25 3
        {25, 5, 12, 12, 15, 23},  // 26 YELLOW
        {76, 88},                 // 27 play, next
        {33},                     // 28 6
        {22, 15, 12, 59},         // 29 VOL+
        {9, 14, 6, 15},           // 30 INFO
        {18, 9, 7, 8, 20},        // 31 RIGHT
        {5, 24, 9, 20},           // 32 EXIT
        {22, 15, 12, 37},         // 33 VOL-
        {9, 14, 16, 21, 20},      // 34 INPUT
        {21, 16},                 // 35 UP
        {5, 14, 20, 5, 18},       // 36 ENTER
        {13, 21, 20, 5},          // 37 MUTE
        {16, 18, 5, 22},          // 38 PREV
        {4, 15, 23, 14},          // 39 DOWN
        {13, 5, 14, 21},          // 40 MENU
    };
    return glyphs;
}

}  // namespace

const HardKeyLabelSet& init_hardkey_defaults()
{
    static const HardKeyLabelSet labels = [] {
        HardKeyLabelSet set{};
        const auto& glyphs = default_glyphs();
        for (int k = 0; k < hardkeys_per_device; ++k) {
            const auto& g = glyphs[static_cast<std::size_t>(k)];
            auto& label = set[static_cast<std::size_t>(k)];
            label.bytes[0] = static_cast<std::uint8_t>(g.size());  // a hard key's header is its length
            for (std::size_t i = 0; i < g.size(); ++i)
                label.bytes[1 + i] = static_cast<std::uint8_t>(g[i]);
        }
        return set;
    }();
    return labels;
}

void reset_entity_hardkeys(Configuration& config, int entity)
{
    const auto& defaults = init_hardkey_defaults();
    for (int k = 0; k < hardkeys_per_device; ++k) {
        const auto row = static_cast<std::size_t>(entity * hardkeys_per_device + k);
        config.hardkey_labels[row] = defaults[static_cast<std::size_t>(k)];
        config.hardkeys[row].action_list = no_index;
    }
}

}  // namespace tesselo
