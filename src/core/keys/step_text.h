#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/model/configuration.h"

namespace tesselo {

// The three text parts of an IR step's row, from the IR code sources: the
// library's brand and key names, the RC decoders, My Database.
class IrStepNames {
public:
    virtual ~IrStepNames() = default;
    virtual std::array<std::string, 3> ir_parts(const Configuration& config, const ActionStep& step) const = 0;
};

// A number as the step rows show it: at most two decimals, no trailing zeros,
// "0.5", "2.6", "32".
std::string format_decimal(double value);

class TreeModel;

// The device's text as its tree node shows it (row 0 is HOME); without a
// tree, or a node, the decoded name.
std::string device_tree_text(const Configuration& config, int device, const TreeModel* tree = nullptr);
// The number of the page at `place` of `device`, read from the page's node
// key behind "PAGE"; empty when there is no such page.
std::string page_number_text(const Configuration& config, int device, int place);

// The row text of step `step`: T1, a blank, T2, a blank, T3 (for a link T1,
// a blank, T2 and T3). Nothing for a free step. `ir` names IR steps; device
// names are the document tree's texts.
std::optional<std::string> display_marcostep(const Configuration& config, int step, const IrStepNames& ir,
                                             const TreeModel* tree = nullptr);

// The three parts of a step that needs no IR source (types 5 to 9).
std::array<std::string, 3> plain_step_parts(const Configuration& config, const ActionStep& step,
                                            const TreeModel* tree = nullptr);

}  // namespace tesselo
