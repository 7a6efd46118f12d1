#pragma once

#include <array>
#include <cstdint>

#include "core/model/configuration.h"

namespace tesselo {

// The fixed format records of the four protocols that the user can type by
// their fields. Each clears all 32 entries and then sets its own row; the
// upload rebuilds a document's formats with them too.
void default_IR5Type(IrFormatRecord& record);
void default_IR5XType(IrFormatRecord& record);
void default_IR60Type(IrFormatRecord& record);
void default_IR6AType(IrFormatRecord& record);

// The Manchester patterns: a two-bit value (index 0 to 3, the pairs 00, 01,
// 10, 11) becomes one hexadecimal digit, four half-bit cells.
inline constexpr std::array<char, 4> rc5_pairs{'a', '9', '6', '5'};
inline constexpr std::array<char, 4> rc6_pairs{'5', '6', '9', 'a'};

}  // namespace tesselo
