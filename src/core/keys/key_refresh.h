#pragma once

#include <string>

namespace tesselo {

class Application;

// What an edit of one key tells the open Remote windows: only the key's own
// row box or picture is drawn again, never the whole page.

// The key at `picture` of the page `page_key`, if its window is open.
void refresh_page_key(Application& app, int slot, const std::string& page_key, int picture);
// A hard key: its picture on every open page of the device (HOME's for row 0).
void refresh_hardkey(Application& app, int slot, int device, int picture);
// A device's name: the title row of each open page of the device, and the
// device's key on its HOME page.
void refresh_device_name(Application& app, int slot, int device);

}  // namespace tesselo
