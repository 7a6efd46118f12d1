#include <gtest/gtest.h>

#include "core/model/limits.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"

namespace tesselo {
namespace {

TEST(TreeModel, IndexesFollowTheOrderOfAddingAndARemovalLowersThoseBehind)
{
    TreeModel tree;
    EXPECT_EQ(tree.add(0, "A", "a", "home"), 1);
    EXPECT_EQ(tree.add(1, "B", "b", "tv"), 2);
    EXPECT_EQ(tree.add(0, "C", "c", "device"), 3);
    EXPECT_EQ(tree.add(3, "D", "d", "tv"), 4);
    EXPECT_EQ(tree.add(1, "E", "e", "tv"), 5);
    tree.remove(2);
    EXPECT_EQ(tree.count(), 4);
    EXPECT_EQ(tree.find("C"), 2);
    EXPECT_EQ(tree.find("D"), 3);
    EXPECT_EQ(tree.node(3).parent, 2);
    EXPECT_EQ(tree.node(1).children, (std::vector<int>{4}));
    EXPECT_EQ(tree.find("B"), 0);
}

TEST(TreeModel, RemovingANodeRemovesItsBranch)
{
    TreeModel tree;
    tree.add(0, "A", "a", "home");
    const int c = tree.add(0, "C", "c", "device");
    tree.add(c, "D", "d", "tv");
    tree.add(0, "F", "f", "device");
    tree.remove(c);
    EXPECT_EQ(tree.count(), 2);
    EXPECT_EQ(tree.find("F"), 2);
    EXPECT_EQ(tree.roots(), (std::vector<int>{1, 2}));
}

TEST(TreeModel, KeysAreUniqueAndChildOrderIsKept)
{
    TreeModel tree;
    tree.add(0, "A", "a", "home");
    EXPECT_EQ(tree.add(0, "A", "again", "home"), 0);
    const int b = tree.add(1, "B", "b", "tv");
    const int c = tree.add(1, "C", "c", "tv");
    EXPECT_EQ(tree.last_child(1), c);
    EXPECT_EQ(tree.previous_sibling(c), b);
    EXPECT_EQ(tree.next_sibling(b), c);
    EXPECT_EQ(tree.next_sibling(c), 0);
    EXPECT_EQ(tree.child_count(1), 2);
}

TEST(TreeModel, TheFirstSelectedNodeInTreeOrderIsTheSelection)
{
    TreeModel tree;
    tree.add(0, "A", "a", "home");
    tree.add(0, "B", "b", "device");
    tree.add(1, "C", "c", "tv");
    EXPECT_EQ(tree.tree_order(), (std::vector<int>{1, 3, 2}));
    tree.select(3);
    EXPECT_EQ(tree.selected(), 3);
    tree.select(2);
    EXPECT_EQ(tree.selected(), 2);
    EXPECT_FALSE(tree.node(3).selected);
}

TEST(NodeKeys, KeysJoinDeviceNumberAndDocumentNumberWithoutASeparator)
{
    EXPECT_EQ(device_key(1, 9), "DEVICE110");
    EXPECT_EQ(device_key(11, 0), "DEVICE111");
    EXPECT_EQ(home_key(2), "HOME3");
    EXPECT_EQ(home_page_key(0, 2), "HOME1\\PAGE2");
    EXPECT_EQ(device_page_key("DEVICE11", 3), "DEVICE11\\PAGE3");
    EXPECT_EQ(properties_key("DEVICE11"), "DEVICE11PROPERTIES");
}

TEST(NodeKeys, TheTail110IsDevice1OfDocument10OrDevice11OfDocument0)
{
    // Code that splits such a key strips the document number by its length.
    EXPECT_EQ(device_number_of_key("DEVICE110", 9), 1);
    EXPECT_EQ(device_number_of_key("DEVICE110", 0), 11);
    EXPECT_EQ(device_number_of_key("DEVICE110\\PAGE4", 9), 1);
    EXPECT_EQ(page_number_of_key("DEVICE110\\PAGE4"), 4);
    EXPECT_EQ(page_number_of_key("DEVICE110\\PAGE12"), 12);
    EXPECT_EQ(page_number_of_key("DEVICE110"), 0);
}

TEST(NodeKeys, KeysOfDevice12InDocument3AndDevice1InDocument23CannotMeet)
{
    // Both would read "DEVICE123"; document numbers end at 10 and each tree
    // holds one document, so the second cannot exist.
    EXPECT_EQ(device_key(12, 2), "DEVICE123");
    EXPECT_EQ(device_number_of_key("DEVICE123", 2), 12);
    EXPECT_EQ(document_slots, 10);
    EXPECT_EQ(document_number(document_slots - 1), "10");
}

TEST(NodeKeys, TheDefaultNameIsDEVICEAndTheNumberInGlyphs)
{
    const KeyLabel one = default_device_name(1);
    EXPECT_EQ(one.bytes, (std::array<std::uint8_t, 10>{7, 4, 5, 22, 9, 3, 5, 28, 0, 0}));
    const KeyLabel twelve = default_device_name(12);
    EXPECT_EQ(twelve.bytes, (std::array<std::uint8_t, 10>{8, 4, 5, 22, 9, 3, 5, 28, 29, 0}));
    const KeyLabel hundred = default_device_name(100);
    EXPECT_EQ(hundred.bytes, (std::array<std::uint8_t, 10>{9, 4, 5, 22, 9, 3, 5, 28, 27, 27}));
    EXPECT_EQ(decode_device_name(hundred), "DEVICE100");
}

TEST(NodeKeys, ANameDecodesCode0AsABlankAndCodesAbove69AsEquals)
{
    KeyLabel name;
    name.bytes = {4, 1, 0, 75, 27, 0, 0, 0, 0, 0};
    EXPECT_EQ(decode_device_name(name), "A =0");
}

TEST(NodeKeys, PageCountersHaveThreeDigits)
{
    EXPECT_EQ(three_digits(2), "002");
    EXPECT_EQ(three_digits(26), "026");
    EXPECT_EQ(three_digits(128), "128");
}

}  // namespace
}  // namespace tesselo
