#pragma once

#include <string>

namespace tesselo {

class Application;

// update_softtable: every cached node index of the document in `slot` taken
// again from its tree by key: of device_name_table, of the home_pages slots,
// of the page_table entries and of the device_pages rows.
void update_softtable(Application& app, int slot);

// delete_pagesofttable: the page's entry leaves page_table (its Remote
// window closes), the entries behind it move forward, and the device's
// page_count falls by one, its visible_pages too unless the page was hidden.
void delete_pagesofttable(Application& app, int slot, const std::string& page_key, const std::string& device_key);

// The removal of the page `page_node` of a device that has other pages: its
// keys with their lists, codes and labels, the links and jumps into it, its
// row, its entry, its window and its node; the page counters follow.
void delete_page(Application& app, int slot, int page_node);

// delete_device: the device whose node key is `device_key` leaves the
// document with its hard keys, pages, links and jumps into it, its HOME key
// (the HOME keys behind it close the gap, and a last HOME page left empty
// goes), its rows, its windows and its node; the steps into the devices
// behind it are renumbered and its device number is free again.
void delete_device(Application& app, int slot, const std::string& device_key);

}  // namespace tesselo
