#pragma once

#include <cstdint>
#include <string>

#include "core/model/key_label.h"

namespace tesselo {

class Application;
class TreeModel;
struct Configuration;

// AddDevice's modes: 0 an ordinary add, 3 a paste (not journalled here, the
// name from the clipboard, no page made).
inline constexpr int add_ordinary = 0;
inline constexpr int add_device_paste = 3;
// addpage's modes: 0 an ordinary add to the selected device, 1 a paste onto
// the last device.
inline constexpr int add_page_paste = 1;

inline const std::string exceed_devices_pages = "Exceed Devices or Exceed Pages";

// Adds a device behind all others to the active document: its rows, its HOME
// key with a jump, its 41 hard keys, its nodes and (but in mode 3) its first
// page. `pasted_name` gives the name bytes in mode 3.
void AddDevice(Application& app, int mode, const KeyLabel* pasted_name = nullptr);

// Adds a page behind the pages of the selected device (mode 0) or of the
// last device (mode 1) of the active document; a paste may name its device
// node instead. The new page's node, 0 when none was added.
int addpage(Application& app, int mode, int device_node = 0);

// Insert > Device and Insert > Page: the ordinary adds.
void muInsertdevice(Application& app);
void muInsertPage(Application& app);

// 1 plus the pages of all devices: the children of every device node but
// their properties node. HOME pages do not count.
int count_allpages(const TreeModel& tree);
// Takes the first free device number (flag i stands for number i + 1);
// 129 when every flag is set, and nothing is marked then.
int alloc_devicenumber(Configuration& config);
// The first device_pages row with an empty node key, 128 if none is.
int find_freepageslot(const Configuration& config);

// Gives device `index` its key on HOME page `home_page` at `position`, the
// key's list and its jump step (step 8 of AddDevice).
void add_homekey(Application& app, int slot, int home_page, int index, bool new_home_page, int position, int mode);
// Points the HOME key of a device whose pages were all hidden at the new
// page `page_place` (0-based place in the device). False when its step
// cannot be reached ("Exceed Marco steps" was shown).
bool repoint_homejump(Application& app, int slot, int index, const std::string& device_key, int page_place);

}  // namespace tesselo
