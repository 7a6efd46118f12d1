#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/keys/key_clipboard.h"
#include "core/model/configuration.h"

namespace tesselo {

// What a jump or link of a copied page or device aimed at, by the tree's keys
// rather than by row numbers, which the edits between copy and paste change:
// the device node, the page node (none for a link to a hard key), and for a
// soft key link the key's label row.
struct StepTarget {
    std::string device_key;
    std::string page_key;
};
using StepTargets = std::array<StepTarget, steps_per_list>;

// Notes the target of each jump and link of `record`, as they stand in `config`.
void note_targets(const Configuration& config, const KeyClipRecord& record, StepTargets& targets);

// Where the pasted content itself lands, for the steps that aimed into it
// when it was cut: its source device and pages (their keys are gone), the
// device row it lands on and the places of its pages there.
struct OwnPlaces {
    std::string device_key;              // empty for a page: its device stays
    int device_row = -1;
    std::vector<std::string> page_keys;  // the source pages
    std::vector<int> page_places;        // where each lands in device_row
};

// Aims each jump and link of `record` at the rows its target has now: a
// target still in the document keeps it (a soft key link by its label row,
// found on the page), a target that went with a cut is the pasted content's
// own place, and a step whose target is gone becomes 255, for good. The
// count of steps so dropped.
int aim_targets(const Configuration& config, KeyClipRecord& record, const StepTargets& targets, const OwnPlaces& own);

// After the paste: a link of the pasted lists `lists` into the pasted content
// itself (device row, one of `places`) names its key by the source label row;
// it takes the row the key got, `moves` (source row to new row).
struct LabelMove;
void relink_own_keys(Configuration& config, const std::vector<std::int32_t>& lists, const OwnPlaces& own,
                     const std::vector<LabelMove>& moves);

}  // namespace tesselo
