#pragma once

#include <string>

namespace tesselo {

class Application;
struct KeyPlace;

inline const std::string key_error_text =
    "Some of data in this key is corrupted and can not be used. To prevent system corruption, you must delete the "
    "key data to continue editing. By clicking OK, all or some of your data in this key and related key will be "
    "deleted and lost.";
inline const std::string key_error_confirm = "Click OK to confirm deletion.";

// The key's list reaches a free step. The window is shown and
// key_error_shown set; OK deletes the key's data (its list number becomes
// 65535, each step of the list is freed with its IR and learned data, the
// list entry is cleared and the counts lowered). Cancel changes nothing.
// True when the data was deleted.
bool Key_error(Application& app, int slot, const KeyPlace& place);

}  // namespace tesselo
