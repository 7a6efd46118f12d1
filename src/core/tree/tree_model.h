#pragma once

#include <string>
#include <vector>

namespace tesselo {

// One node of a document's outline. Its index is its 1-based place in the
// node collection, in order of adding; a removal lowers the indexes behind it.
struct TreeNode {
    std::string key;
    std::string text;
    std::string image;     // "home", "properties", "tv", "hide tv", "device", "hide device"
    std::string tag;
    int parent = 0;        // index of the parent, 0 for a top-level node
    std::vector<int> children;  // child order, by index
    bool expanded = false;
    bool selected = false;
};

// The tree of one document (TreeView1 without a widget): the nodes in order
// of adding, each with its parent and its children in order.
class TreeModel {
public:
    void clear();
    int count() const { return static_cast<int>(nodes_.size()); }

    // Adds a node as the last child of `parent` (0: a top-level node behind
    // all others). Returns its index, or 0 when the key is already in use.
    int add(int parent, const std::string& key, const std::string& text, const std::string& image);
    // Adds a node as a sibling of `sibling`, in front of it (tvwPrevious) or
    // behind it (tvwNext). Returns its index, or 0 as add does.
    int add_beside(int sibling, bool behind, const std::string& key, const std::string& text, const std::string& image);
    // Removes the node and everything below it; the indexes behind it drop.
    void remove(int index);

    bool valid(int index) const { return index >= 1 && index <= count(); }
    TreeNode& node(int index) { return nodes_[static_cast<std::size_t>(index - 1)]; }
    const TreeNode& node(int index) const { return nodes_[static_cast<std::size_t>(index - 1)]; }
    // The node with that key, or 0.
    int find(const std::string& key) const;

    const std::vector<int>& roots() const { return roots_; }
    const std::vector<int>& siblings(int index) const;
    int child_count(int index) const { return static_cast<int>(node(index).children.size()); }
    int last_child(int index) const;
    int previous_sibling(int index) const;
    int next_sibling(int index) const;

    // The nodes in the tree's order: each node, then its children.
    std::vector<int> tree_order() const;

    // Single selection, as a click makes it.
    void select(int index);
    // The first selected node in the tree's order, or 0.
    int selected() const;

private:
    void walk(int index, std::vector<int>& out) const;

    std::vector<TreeNode> nodes_;
    std::vector<int> roots_;
};

}  // namespace tesselo
