#pragma once

#include <string>

#include "core/model/key_label.h"

namespace tesselo {

// The plain-text form of a label, as tree nodes and step rows show it: one
// character per glyph, 0 a blank, a glyph above 69 "=", any other the
// character of its glyph code.
std::string label_to_text(const KeyLabel& label);

}  // namespace tesselo
