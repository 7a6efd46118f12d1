#pragma once

#include <string>

namespace tesselo {

class Application;
struct Configuration;

// The tree of a new document: HOME with its properties node and "PAGE1".
void init_document_tree(Application& app, int slot);

// True when the tables of a Configuration stay inside every table that the
// tree's build reads: at most 128 devices, their pages within the page
// table and the device page rows. The reader rejects other images.
bool tree_fits_tables(const Configuration& config);

// Rebuilds the tree of document slot `slot` from the tables, numbering the
// devices by their rows and the pages 1, 2, 3 in each device.
void addtotreeview(Application& app, int slot);

// The rebuild after undo and redo: node keys come from the restored tables,
// so that device and page numbers survive; hidden devices and pages are
// marked by their flags; the selection is kept by index.
void rebuild_tree_from_tables(Application& app, int slot);

// After undo or redo: closes the Remote windows of `slot` whose page is gone
// and draws the others again from the restored tables.
void sync_page_windows(Application& app, int slot);

// Closes every Remote window of `slot`, from the last opened to the first.
void close_page_windows(Application& app, int slot);

// The page counters of the open Remote windows of `slot` whose caption
// begins with `caption_prefix`: their first three characters kept, then "/"
// and `total` in three digits.
void set_page_totals(Application& app, int slot, const std::string& caption_prefix, int total);

// The page counter of a page: its place and the total, "001/003".
std::string page_counter(Application& app, int slot, const std::string& page_key);

// A click on node `index` of the tree of `slot`: records the selection and
// shows the node's data in the property panel.
void click_node(Application& app, int slot, int index);
// Shows the data of the tree's selected node again.
void show_selected_node(Application& app, int slot);
// Fills the property panel for the device whose node key is `key`.
void displaytreeview_devicename(Application& app, int slot, const std::string& key);

// A double click on a page node: opens its Remote window. False when refused
// ("Out of Memory" past 45 windows) or when the node is no page.
bool open_page(Application& app, int slot, int index);

// The device row of a device node's key, or -1.
int device_row_of_key(const Configuration& config, const std::string& key);
// The page_table entry of a page node's key, or -1.
int page_row_of_key(const Configuration& config, const std::string& key);
// The device_pages row of a device page's node key, or -1.
int page_slots_row_of_key(const Configuration& config, const std::string& key);
// The number of devices: the soft keys of the HOME pages minus the pages.
int device_count(const Configuration& config);
// The first page of device row `row` in page_table: the pages of the rows before it.
int pages_before(const Configuration& config, int row);

}  // namespace tesselo
