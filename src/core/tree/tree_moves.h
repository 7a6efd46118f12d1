#pragma once

#include <string>

namespace tesselo {

class Application;
class TreeModel;

// The directions of move_page and move_device.
inline constexpr int move_direction_up = 0;
inline constexpr int move_direction_down = 1;

// Move Up and Move Down on the tree's selected device or page of the active
// document: the node with its children goes in front of its previous sibling
// (behind its next), then the tables and every number that points into them
// follow. Nothing happens on a first device or a first page (Move Up), a last
// one (Move Down), HOME, its pages and properties nodes. True when moved.
bool Move_treeviewup(Application& app);
bool Move_treeviewdown(Application& app);

// Whether Move Up or Move Down applies to `node` of the tree of `slot`: the
// menu items, Ctrl-Up, Ctrl-Down and the operations make the same check.
bool can_move_up(Application& app, int slot, int node);
bool can_move_down(Application& app, int slot, int node);

// move_children: copies the children of `from` under `to`, recursively, each
// old node first renamed with `prefix` in front of its key, the copy taking
// the old key; a selected node stays selected.
void move_children(TreeModel& tree, int from, int to, const std::string& prefix);

// The table part of a page move: the page (key `page_key`) of the device
// `device_key` changes places with its neighbour in `direction`.
void move_page(Application& app, int slot, const std::string& page_key, const std::string& device_key, int direction);
// The table part of a device move: the device changes rows with its neighbour.
void move_device(Application& app, int slot, const std::string& device_key, int direction);

}  // namespace tesselo
