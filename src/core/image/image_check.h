#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

struct ErrorList;

// Scans an image in scratch tables, independent of every document slot:
// soft keys of one page that share a label (other than the two halves of a
// split key) or an action list, and left half keys without their partner.
// Fills `errors` (record 0 holds the count) and, one a record, the words that
// name the device, the page and the key. True when it found any fault.
// Throws ImageBoundsError when the buffer is no image, or when it holds more
// faults than the list can take.
bool check_image(const std::vector<std::uint8_t>& buffer, ErrorList& errors, std::vector<std::string>& rows);

}  // namespace tesselo
