#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

// The mark that opens a code set's table in Lib_KEY.ASM.
inline const std::string keylist_mark = ";&*^";

// The key names of a code set, from Lib_KEY.ASM held as bytes: after the
// code set's label, the mark; then each ";" comment is a key's name and each
// "dw" line its data, up to the next mark or label. Empty when the listing
// or the code set is not there.
std::vector<std::string> load_keynames(const std::vector<std::uint8_t>& keylist, const std::string& label);

// The name of key `key_index` of a code set ("tv000:" or "tv000"), or "".
std::string decode_keyname(const std::vector<std::uint8_t>& keylist, const std::string& label, int key_index);

}  // namespace tesselo
