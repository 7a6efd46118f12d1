#include "core/tree/tree_drag.h"

#include <string>

#include "core/app/application.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

bool is_home_node(const TreeNode& n) { return n.image == image_home || n.key.rfind("HOME", 0) == 0; }

bool activate_slot(Application& app, int slot)
{
    const int document = app.document_of_slot(slot);
    if (document < 0) return false;
    app.activate(document);
    return true;
}

}  // namespace

bool tree_drag_starts(Application& app, int slot, int node)
{
    if (slot < 0 || slot >= document_slots || app.document_of_slot(slot) < 0) return false;
    const TreeModel& tree = app.tree(slot);
    if (!tree.valid(node)) return false;
    const TreeNode& n = tree.node(node);
    return !is_home_node(n) && (is_page_image(n.image) || is_device_image(n.image));
}

bool tree_drop_allowed(Application& app, int target_slot, int target_node)
{
    if (target_slot < 0 || target_slot >= document_slots || app.document_of_slot(target_slot) < 0) return false;
    const TreeModel& tree = app.tree(target_slot);
    return tree.valid(target_node) && !is_home_node(tree.node(target_node));
}

bool drag_treeview(Application& app, int source_slot, int source_node, int target_slot, int target_node)
{
    if (!tree_drag_starts(app, source_slot, source_node)) return false;
    const TreeNode& n = app.tree(source_slot).node(source_node);
    const bool page = is_page_image(n.image);
    if (!tree_drop_allowed(app, target_slot, target_node)) return false;

    const std::string kind = page ? "Drag treeview(page) " : "Drag treeview(device) ";
    const std::string text = n.text;
    activate_slot(app, source_slot);
    click_node(app, source_slot, source_node);
    app.write_log(kind + "(start) - " + app.active()->title);
    if (!copy_devicepage(app)) return false;
    activate_slot(app, target_slot);
    click_node(app, target_slot, target_node);
    const bool pasted = paste_devicepage(app);
    app.write_log(kind + text + " - " + app.active()->title);
    return pasted;
}

}  // namespace tesselo
