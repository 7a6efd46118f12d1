#include "core/tree/tree_model.h"

#include <algorithm>

namespace tesselo {

void TreeModel::clear()
{
    nodes_.clear();
    roots_.clear();
}

int TreeModel::find(const std::string& key) const
{
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        if (nodes_[i].key == key) return static_cast<int>(i) + 1;
    return 0;
}

int TreeModel::add(int parent, const std::string& key, const std::string& text, const std::string& image)
{
    // The tree's keys are unique, as in the window system's tree.
    if (find(key) != 0) return 0;
    if (parent != 0 && !valid(parent)) return 0;
    TreeNode n;
    n.key = key;
    n.text = text;
    n.image = image;
    n.parent = parent;
    nodes_.push_back(std::move(n));
    const int index = count();
    if (parent == 0) roots_.push_back(index);
    else node(parent).children.push_back(index);
    return index;
}

int TreeModel::add_beside(int sibling, bool behind, const std::string& key, const std::string& text,
                          const std::string& image)
{
    if (!valid(sibling)) return 0;
    const int parent = node(sibling).parent;
    const int index = add(parent, key, text, image);
    if (index == 0) return 0;
    auto& list = parent == 0 ? roots_ : node(parent).children;
    list.pop_back();
    auto place = std::find(list.begin(), list.end(), sibling);
    if (behind) ++place;
    list.insert(place, index);
    return index;
}

void TreeModel::remove(int index)
{
    if (!valid(index)) return;
    // The whole branch goes, the last added first.
    std::vector<int> branch;
    walk(index, branch);
    std::sort(branch.rbegin(), branch.rend());
    const int parent = node(index).parent;
    auto& list = parent == 0 ? roots_ : node(parent).children;
    list.erase(std::remove(list.begin(), list.end(), index), list.end());
    for (int gone : branch) {
        nodes_.erase(nodes_.begin() + (gone - 1));
        const auto shift = [gone](int& i) { if (i > gone) --i; };
        for (auto& n : nodes_) {
            shift(n.parent);
            for (auto& c : n.children) shift(c);
        }
        for (auto& r : roots_) shift(r);
    }
}

const std::vector<int>& TreeModel::siblings(int index) const
{
    const int parent = node(index).parent;
    return parent == 0 ? roots_ : node(parent).children;
}

int TreeModel::last_child(int index) const
{
    const auto& c = node(index).children;
    return c.empty() ? 0 : c.back();
}

int TreeModel::previous_sibling(int index) const
{
    const auto& s = siblings(index);
    const auto it = std::find(s.begin(), s.end(), index);
    return it == s.begin() || it == s.end() ? 0 : *(it - 1);
}

int TreeModel::next_sibling(int index) const
{
    const auto& s = siblings(index);
    const auto it = std::find(s.begin(), s.end(), index);
    return it == s.end() || it + 1 == s.end() ? 0 : *(it + 1);
}

void TreeModel::walk(int index, std::vector<int>& out) const
{
    out.push_back(index);
    for (int c : node(index).children) walk(c, out);
}

std::vector<int> TreeModel::tree_order() const
{
    std::vector<int> out;
    out.reserve(nodes_.size());
    for (int r : roots_) walk(r, out);
    return out;
}

void TreeModel::select(int index)
{
    for (auto& n : nodes_) n.selected = false;
    if (valid(index)) node(index).selected = true;
}

int TreeModel::selected() const
{
    for (int i : tree_order())
        if (node(i).selected) return i;
    return 0;
}

}  // namespace tesselo
