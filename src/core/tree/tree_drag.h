#pragma once

namespace tesselo {

class Application;

// Whether node `node` of the tree of `slot` starts a drag: a device or a
// page of a device; HOME, its pages and properties nodes do not drag.
bool tree_drag_starts(Application& app, int slot, int node);

// Whether a device or page dragged in a tree may be dropped on `target_node`
// of the tree of `target_slot`: HOME and its pages refuse a drop.
bool tree_drop_allowed(Application& app, int target_slot, int target_node);

// The drop of a dragged tree node: a page or device is copied, then pasted
// at the drop place, also in another document's tree; the drop place's
// document becomes the active one. A page lands behind the pages of the
// target's device; a device lands behind all devices, so one dropped on
// itself is copied to the end. HOME, its pages and properties nodes do not
// drag. True when pasted.
bool drag_treeview(Application& app, int source_slot, int source_node, int target_slot, int target_node);

}  // namespace tesselo
