#pragma once

#include <string>
#include <vector>

#include "core/model/configuration.h"

namespace tesselo {

// What would make the remote play the wrong key, or nothing, though the
// integrity check passes: every ground for it in one walk of a document's
// tables, one line each in the tree's words ("TV/PAGE2/row 3 left: ...").
// No line means that every chain is whole and counted, every key owns its
// list and label alone, every jump and link names a page or key that is
// there, every code a stored record or learned slot, every HOME key has a
// place of its own, every left button stands beside its right one, and
// every punched key's owner exists.
//
// The document must be open (its pages tied to their slots by node key).
std::vector<std::string> deep_check(const Configuration& config);

// The same walk in the words a person reads: "TV/PAGE2/row 3 left",
// "TV/hard key VOL+", "HOME/PAGE1/row 2".
std::string device_words(const Configuration& config, int device);
std::string softkey_words(const Configuration& config, int page_row, std::uint8_t position);
std::string hardkey_words(const Configuration& config, int device, int key);

}  // namespace tesselo
