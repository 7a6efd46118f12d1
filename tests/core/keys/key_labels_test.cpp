#include <gtest/gtest.h>

#include "core/image/image_writer.h"
#include "core/document/open_command.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/link_dialog.h"
#include "core/keys/page_canvas.h"
#include "core/model/glyphs.h"
#include "core/model/softkey_labels.h"
#include "keys_document.h"

namespace tesselo {
namespace {

using testing::glyphs_of;
using testing::KeysDocument;

// The tags of glyphs 37 to 69 as the glyph list gives them.
const std::vector<int> punctuation_tags = {45, 61, 91, 93, 96, 59, 39,  44, 46, 47, 92, 33, 64, 35, 36, 37, 94,
                                           38, 231, 40, 41, 95, 43, 123, 125, 58, 34, 126, 60, 62, 63, 124, 42};

TEST(CharPicList, TagsFollowTheListInOrder)
{
    for (int g = 1; g <= 26; ++g) EXPECT_EQ(glyph_tag(g), 64 + g);
    for (int g = 27; g <= 36; ++g) EXPECT_EQ(glyph_tag(g), 48 + g - 27);
    for (int g = 37; g <= 69; ++g) EXPECT_EQ(glyph_tag(g), punctuation_tags[static_cast<std::size_t>(g - 37)]) << g;
    for (int g = 70; g <= 100; ++g) EXPECT_EQ(glyph_tag(g), 200 + g - 70);
    EXPECT_EQ(glyph_tag(0), 0);
    EXPECT_EQ(glyph_tag(101), 0);
    EXPECT_EQ(glyph_key_name(27), "ZERO");
    EXPECT_EQ(glyph_key_name(36), "NINE");
    EXPECT_EQ(glyph_key_name(42), "SEMI COLLON");
    EXPECT_EQ(glyph_key_name(39), "OPEN QUOTA");
    EXPECT_EQ(glyph_key_name(70), "");
    EXPECT_EQ(glyph_key_name(74), "PAUSE");
    EXPECT_EQ(glyph_key_name(100), "WHITE LEFT");
}

TEST(CharPicList, TheTwoTablesDifferAtGlyphs49_50_55And58Only)
{
    std::vector<int> differ;
    for (int g = 1; g <= 69; ++g)
        if (glyph_tag(g) != check_bmptag(g)) differ.push_back(g);
    EXPECT_EQ(differ, (std::vector<int>{49, 50, 55, 58}));
    EXPECT_EQ(glyph_tag(49), '@');
    EXPECT_EQ(check_bmptag(49), '#');
    EXPECT_EQ(glyph_tag(58), '_');
    EXPECT_EQ(check_bmptag(58), '.');
}

TEST(CharToGlyph, LowerCaseLettersProduceTheSameGlyphAsUpperCaseOnes)
{
    for (int c = 'a'; c <= 'z'; ++c) EXPECT_EQ(char_to_glyph(c), char_to_glyph(c - 32)) << char(c);
    EXPECT_EQ(char_to_glyph('a'), 1);
    EXPECT_EQ(char_to_glyph('Z'), 26);
}

TEST(CharToGlyph, SearchesFromTheFirstGlyphAndReturnsOneBeyondTheLastWhenNothingMatches)
{
    EXPECT_EQ(char_to_glyph('0'), 27);
    EXPECT_EQ(char_to_glyph('@'), 49);
    EXPECT_EQ(char_to_glyph('#'), 50);
    EXPECT_EQ(char_to_glyph(231), 55);
    EXPECT_EQ(char_to_glyph('_'), 58);
    EXPECT_EQ(char_to_glyph('*'), 69);
    EXPECT_EQ(char_to_glyph('.'), 45);
    EXPECT_EQ(char_to_glyph(204), 74);  // the tags of the symbols are character codes too
    EXPECT_EQ(char_to_glyph(233), 101);
    EXPECT_EQ(char_to_glyph('\t'), 101);
}

TEST(LabelToText, BlankForZeroEqualsAboveSixtyNineAndTheTagOtherwise)
{
    KeyLabel label;
    label.bytes = {6, 1, 0, 49, 76, 55, 58};
    EXPECT_EQ(label_to_text(label, 6), "A @=\xC3\xA7_");
    EXPECT_EQ(label_to_text(label, 1), "A");
}

TEST_F(KeysDocument, TheNinthGlyphIsAcceptedAndTheTenthGivesMaxCharacterIsExceed)
{
    click_key(page1, 5);
    auto field = type("ABCDEFGHI");
    EXPECT_EQ(field.length, 9);
    EXPECT_TRUE(t.take_lines().empty());
    auto where = label();
    EXPECT_FALSE(Text1_KeyPress(t.app, where, field, 'J'));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\""});
    // The glyph keyboard meets the same refusal in change_keyname, before anything changes.
    const int undo = t.app.journal().undo.count;
    EXPECT_FALSE(Command9_Click(t.app, where, field, 74));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\""});
    EXPECT_EQ(t.app.journal().undo.count, undo);
    EXPECT_EQ(label_to_text(read_label(*c, where), 9), "ABCDEFGHI");
}

TEST_F(KeysDocument, TypingMakesTheKeyAndWritesOneGlyphAJournalEntryAKeyPress)
{
    click_key(page1, 5);
    const int before = c->page_table[1].key_count;
    const int label = search_softkeyno(*c);
    t.app.journal().undo.count = 0;  // forget the devices' additions
    type("Tv 1");
    EXPECT_EQ(c->page_table[1].key_count, before + 1);
    const auto& key = c->device_pages[0].slots[static_cast<std::size_t>(before)];
    EXPECT_EQ(key.position, 1);
    EXPECT_EQ(key.label_index, label);
    const KeyLabel& l = c->softkey_labels[static_cast<std::size_t>(label)];
    EXPECT_EQ(l.header(), 4);  // centered, four glyphs
    EXPECT_EQ(glyphs_of(l, 4), (std::vector<int>{20, 22, 0, 28}));
    EXPECT_EQ(t.app.journal().undo.count, 4);
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[log.size() - 2], "\"change keyname (start) DEVICE11\\PAGE1\"");
    EXPECT_EQ(log.back(), "\"change key name DEVICE11\\PAGE1 row 1\"");
    muUndo_Click(t.app);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(label)].header(), 3);
}

TEST_F(KeysDocument, AGlyphGoesAtTheCaretAndBackspaceTakesTheOneBeforeIt)
{
    click_key(page1, 7);
    auto field = type("AC");
    const auto where = label();
    field.move_caret(1);
    EXPECT_TRUE(Text1_KeyPress(t.app, where, field, 'b'));
    EXPECT_EQ(field.caret, 2);
    EXPECT_EQ(label_to_text(read_label(*c, where), 3), "ABC");
    EXPECT_TRUE(Text1_KeyPress(t.app, where, field, backspace_code));
    EXPECT_EQ(field.caret, 1);
    EXPECT_EQ(field.removed[0], 2);  // the B, remembered
    EXPECT_EQ(label_to_text(read_label(*c, where), 2), "AC");
    EXPECT_EQ(log_back(), "\"delete character - DEVICE11\\PAGE1\"");
    // Emptied, the key keeps its slot.
    field.move_caret(2);
    Text1_KeyPress(t.app, where, field, backspace_code);
    Text1_KeyPress(t.app, where, field, backspace_code);
    EXPECT_EQ(field.length, 0);
    EXPECT_FALSE(Text1_KeyPress(t.app, where, field, backspace_code));
    const auto place = locate_key(*c, page1, t.app.key_selection);
    EXPECT_GE(place->slot, 0);
}

TEST_F(KeysDocument, ACharacterWithNoGlyphIsIgnoredWithoutAWordAndTheCaretGoesToTheEnd)
{
    click_key(page1, 5);
    auto field = type("AB");
    field.move_caret(0);
    const int undo = t.app.journal().undo.count;
    EXPECT_FALSE(Text1_KeyPress(t.app, label(), field, 0xE9));
    EXPECT_EQ(field.caret, 2);
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_EQ(t.app.journal().undo.count, undo);
}

TEST_F(KeysDocument, AGlyphAboveSixtyNineIsKeptButShowsAsEqualsInAStepRowAndInTheTree)
{
    // In the tree: a device's name.
    select("DEVICE11");
    LabelField field;
    auto where = label();
    field.load(*c, where);
    Command9_Click(t.app, where, field, 76);
    EXPECT_EQ(c->device_name_table[1].name.bytes[8], 76);
    EXPECT_EQ(node_text("DEVICE11"), "DEVICE1=");
    EXPECT_EQ(node_text("DEVICE11PROPERTIES"), "DEVICE1= PROPERTIES");
    EXPECT_EQ(log_back(), "\"change device name DEVICE1=\"");
    // In a step row: a link to a key labelled with the play sign.
    click_key(page2, 9);
    field = type("");
    Command9_Click(t.app, label(), field, 76);
    EXPECT_EQ(read_label(*c, label()).bytes[1], 76);
    click_key(page1, 5);
    CreateLink link(t.app, 0, page1, t.app.key_selection);
    ASSERT_EQ(link.ok(t.app, target(page1), CreateLink::softkey_node_key(page2, 3)), DialogOk::done);
    EXPECT_EQ(rows(page1), std::vector<std::string>{"LINK TO DEVICE2PAGE-1-="});
}

TEST_F(KeysDocument, ClearingTheAlignmentOfAnEmptyLabelKeepsTheLengthAtZero)
{
    click_key(page1, 9);
    const auto where = label();
    EXPECT_TRUE(align_label(t.app, where, align_left));
    EXPECT_EQ(log_back(), "\"to left alignment\"");
    EXPECT_EQ(read_label(*c, label()).header(), 0x20);
    EXPECT_TRUE(align_label(t.app, label(), align_centre));
    EXPECT_EQ(read_label(*c, label()).header(), 0x00);
    EXPECT_EQ(read_label(*c, label()).glyph_count(), 0);
    EXPECT_EQ(log_back(), "\"to center alignment\"");
    type("OK");
    EXPECT_TRUE(align_label(t.app, label(), align_right));
    EXPECT_EQ(read_label(*c, label()).header(), 0x32);
    EXPECT_EQ(log_back(), "\"to right alignment\"");
    // Hard keys have no alignment; a second press of the same button changes nothing.
    const int undo = t.app.journal().undo.count;
    EXPECT_FALSE(align_label(t.app, label(), align_right));
    click_key(page1, 22);
    EXPECT_FALSE(align_label(t.app, label(), align_left));
    EXPECT_EQ(t.app.journal().undo.count, undo);
}

TEST_F(KeysDocument, Entry923IsTheLastThatSearchSoftkeynoReturnsAndKeysBeyond768AreLostOnSaving)
{
    for (int i = 0; i < softkey_label_rows - 1; ++i)
        if (c->softkey_labels[static_cast<std::size_t>(i)].is_free()) c->softkey_labels[static_cast<std::size_t>(i)].bytes[0] = 0;
    EXPECT_EQ(search_softkeyno(*c), 923);
    click_key(page1, 5);
    type("LOST");
    const auto place = locate_key(*c, page1, t.app.key_selection);
    EXPECT_EQ(softkey_at(*c, *place)->label_index, 923);
    EXPECT_EQ(search_softkeyno(*c), 924);
    const auto path = (t.home.path() / "full.kcf").string();
    ASSERT_TRUE(save_tofile(t.app, path, 0, 0));
    const int document = open_configuration(t.app, path);
    ASSERT_GE(document, 0);
    const Configuration& reopened = t.app.config(t.app.documents()[static_cast<std::size_t>(document)].slot);
    EXPECT_NE(label_to_text(reopened.softkey_labels[923], 4), "LOST");
}

TEST_F(KeysDocument, AHardKeysLabelIsItsPlainLengthAndItsLogLinesAreItsOwn)
{
    click_key(page1, 22);  // hard key 36, "ENTER"
    auto field = type("");
    EXPECT_EQ(field.length, 5);
    const auto where = label();
    EXPECT_EQ(where.kind, LabelTarget::Kind::hardkey);
    Text1_KeyPress(t.app, where, field, '!');
    EXPECT_EQ(c->hardkey_labels[41 + 36].header(), 6);
    EXPECT_EQ(label_to_text(c->hardkey_labels[41 + 36], 6), "ENTER!");
    const auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"change keyname(hardkey) (start) DEVICE11\\PAGE1\"");
    EXPECT_EQ(log.back(), "\"chang hardkey name DEVICE11\\PAGE1 hard 22\"");
    // The device's other hard keys are left alone.
    EXPECT_EQ(c->hardkey_labels[82 + 36].header(), 5);
}

TEST_F(KeysDocument, ADeviceNameStaysOneWithItsHomeKeysLabelItsTitleRowsAndItsTreeTexts)
{
    select("DEVICE11PROPERTIES");
    auto field = type(std::string(7, char(backspace_code)) + "tv");
    EXPECT_EQ(field.length, 2);
    const KeyLabel& name = c->device_name_table[1].name;
    EXPECT_EQ(glyphs_of(name, 2), (std::vector<int>{20, 22}));
    const int home_label = c->home_pages[0].slots[1].label_index;
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(home_label)], name);
    EXPECT_EQ(node_text("DEVICE11"), "TV");
    EXPECT_EQ(node_text("DEVICE11PROPERTIES"), "TV PROPERTIES");
    EXPECT_EQ(log_back(), "\"change device name TV\"");
    const auto page = find_page(*c, page1);
    EXPECT_EQ(lcd_page_rows(*c, *page)[0].right, name);
    // The device's key on HOME edits the same name, logged as a key.
    click_key("HOME1\\PAGE1", 5);
    EXPECT_EQ(label().kind, LabelTarget::Kind::device);
    EXPECT_EQ(label().device, 1);
    type("1");
    EXPECT_EQ(node_text("DEVICE11"), "TV1");
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(home_label)], c->device_name_table[1].name);
    EXPECT_EQ(log_back(), "\"change key name HOME1\\PAGE1 row 1\"");
    // So does the title row of the device's page, and its alignment too.
    click_key(page1, 3);
    EXPECT_EQ(label().device, 1);
    EXPECT_TRUE(align_label(t.app, label(), align_left));
    EXPECT_EQ(c->device_name_table[1].name.header(), 0x23);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(home_label)].header(), 0x23);
    // Undo brings name, label and texts back together.
    muUndo_Click(t.app);
    muUndo_Click(t.app);
    EXPECT_EQ(node_text("DEVICE11"), "TV");
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(home_label)], c->device_name_table[1].name);
}

TEST_F(KeysDocument, NothingToLabelOnAPageNodeAnEmptyHomePlaceOrALeftButtonWithoutKey)
{
    select(page1);
    EXPECT_FALSE(label_target(t.app));
    click_key("HOME1\\PAGE1", 11);  // row 4: no device there
    EXPECT_FALSE(label_target(t.app));
    click_key(page1, 6);  // row 1, left: the right button's key serves the row
    EXPECT_FALSE(label_target(t.app));
    select("HOME1");
    EXPECT_EQ(label().device, 0);
    EXPECT_TRUE(label().device_node);
}

}  // namespace
}  // namespace tesselo
