#include <gtest/gtest.h>

#include "core/image/image_writer.h"
#include "core/document/open_command.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/link_dialog.h"
#include "core/keys/overview_content.h"
#include "core/keys/page_canvas.h"
#include "core/sim/remote_simulator.h"
#include "core/tree/node_keys.h"
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

TEST(CharPicList, OneTableTypesAndReadsEveryGlyph)
{
    // Whatever the Label field types a glyph by is what the tree reads it as.
    for (int g = 1; g <= char_pic_count; ++g) EXPECT_EQ(check_bmptag(g), glyph_tag(g)) << g;
    EXPECT_EQ(check_bmptag(49), '@');
    EXPECT_EQ(check_bmptag(50), '#');
    EXPECT_EQ(check_bmptag(55), 231);
    EXPECT_EQ(check_bmptag(58), '_');
    EXPECT_EQ(check_bmptag(69), '*');
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
    const std::size_t logged = t.log_lines().size();
    EXPECT_FALSE(Text1_KeyPress(t.app, where, field, 'J'));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\""});
    // Typed, the tenth glyph is refused before change_keyname runs: no log line.
    EXPECT_EQ(t.log_lines().size(), logged);
    // The glyph keyboard meets the same refusal in change_keyname, which has
    // logged its opening line first; nothing changes.
    const int undo = t.app.journal().undo.count;
    EXPECT_FALSE(Command9_Click(t.app, where, field, 74));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\""});
    ASSERT_EQ(t.log_lines().size(), logged + 1);
    EXPECT_EQ(log_back(), "\"change keyname (start) DEVICE11\\PAGE1\"");
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

TEST_F(KeysDocument, AKeyPressThatCannotGetALabelEntrySaysSo)
{
    for (int i = 0; i < softkey_label_rows; ++i)
        if (c->softkey_labels[static_cast<std::size_t>(i)].is_free()) c->softkey_labels[static_cast<std::size_t>(i)].bytes[0] = 0;
    ASSERT_EQ(search_softkeyno(*c), softkey_label_rows);
    click_key(page1, 5);
    const int keys = c->page_table[1].key_count;
    const int undo = t.app.journal().undo.count;
    auto field = type("A");
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Exceed key labels\""});
    EXPECT_EQ(log_back(), "\"change keyname (start) DEVICE11\\PAGE1\"");
    EXPECT_EQ(field.length, 0);
    EXPECT_EQ(c->page_table[1].key_count, keys);
    EXPECT_EQ(t.app.journal().undo.count, undo);
    // The glyph keyboard says the same.
    EXPECT_FALSE(Command9_Click(t.app, label(), field, 76));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Exceed key labels\""});
    // A key that has its entry takes glyphs as before.
    click_key(page1, 3);
    type("X");
    EXPECT_TRUE(t.take_lines().empty());
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

// The glyph that the list gives character `tag`, found in the list as the
// rules lay it out (letters, digits, then the punctuation in order).
int glyph_of_tag(int tag)
{
    if (tag >= 'A' && tag <= 'Z') return tag - 'A' + 1;
    if (tag >= '0' && tag <= '9') return tag - '0' + 27;
    for (std::size_t i = 0; i < punctuation_tags.size(); ++i)
        if (punctuation_tags[i] == tag) return static_cast<int>(37 + i);
    return 0;
}

TEST(LabelToText, EveryCharacterOfTheGlyphKeyboardReadsBackAsTyped)
{
    for (int g = 1; g <= 69; ++g) {
        KeyLabel label;
        label.bytes[0] = 1;
        label.bytes[1] = static_cast<std::uint8_t>(g);
        const int tag = g <= 26 ? 'A' + g - 1 : g <= 36 ? '0' + g - 27 : punctuation_tags[static_cast<std::size_t>(g - 37)];
        const std::string typed = tag < 128 ? std::string(1, static_cast<char>(tag)) : std::string("\xC3\xA7");
        EXPECT_EQ(label_to_text(label, 1), typed) << g;
        EXPECT_EQ(decode_device_name(label), typed) << g;
        EXPECT_EQ(key_label_text(label, 1), typed) << g;
    }
}

TEST_F(KeysDocument, ANameTypedWithAtReadsBackWithAtInTreeRowsFieldOverviewAndSimulator)
{
    select("DEVICE11PROPERTIES");
    type(std::string(7, char(backspace_code)) + "A@B");
    EXPECT_EQ(glyphs_of(c->device_name_table[1].name, 3), (std::vector<int>{1, glyph_of_tag('@'), 2}));
    // A key of the second device, labelled with the other glyphs the two
    // readings once told apart: "#", the character 231, "_" and "*".
    click_key(page2, 5);
    auto field = type("#");
    Command9_Click(t.app, label(), field, 55);
    type("_*");
    EXPECT_EQ(glyphs_of(read_label(*c, label()), 4),
              (std::vector<int>{glyph_of_tag('#'), glyph_of_tag(231), glyph_of_tag('_'), glyph_of_tag('*')}));
    const std::string key_text = "#\xC3\xA7_*";
    // The overview lists keys with steps: the key gets one.
    CreateLink to_hard(t.app, 0, page2, t.app.key_selection);
    ASSERT_EQ(to_hard.ok(t.app, target(page2), CreateLink::hardkey_node_key("DEVICE11", 20)), DialogOk::done);
    // A link to that key from DEVICE11.
    click_key(page1, 5);
    CreateLink link(t.app, 0, page1, t.app.key_selection);
    ASSERT_EQ(link.ok(t.app, target(page1), CreateLink::softkey_node_key(page2, 1)), DialogOk::done);

    const auto path = (t.home.path() / "typed.kcf").string();
    ASSERT_TRUE(save_tofile(t.app, path, 0, 0));
    const int document = open_configuration(t.app, path);
    ASSERT_GE(document, 0);
    const int slot = t.app.documents()[static_cast<std::size_t>(document)].slot;
    const Configuration& reopened = t.app.config(slot);
    const TreeModel& tree = t.app.tree(slot);
    const std::string device = device_key(1, slot);
    EXPECT_EQ(tree.node(tree.find(device)).text, "A@B");
    EXPECT_EQ(tree.node(tree.find(properties_key(device))).text, "A@B PROPERTIES");
    // The Label field, loaded from the reopened name.
    LabelTarget name;
    name.kind = LabelTarget::Kind::device;
    name.slot = slot;
    name.device = 1;
    LabelField reloaded;
    reloaded.load(reopened, name);
    EXPECT_EQ(label_to_text(reloaded.label, reloaded.length), "A@B");
    // The step row of the link names the key as typed.
    std::vector<std::string> texts;
    for (const auto& r : load_step_rows(t.app, {slot, device_page_key(device, 1)}, names)) texts.push_back(r.text);
    EXPECT_EQ(texts, std::vector<std::string>{"LINK TO DEVICE2PAGE-1-" + key_text});
    // The overview.
    const auto sections = overview_sections(reopened, names, &tree);
    ASSERT_GE(sections.size(), 3u);
    EXPECT_EQ(sections[1].name, "A@B");
    const auto& keys = sections[2].keys;
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [](const OverviewKey& k) { return k.place == softkey_place_text("PAGE1", 1); });
    ASSERT_NE(key, keys.end());
    EXPECT_EQ(key->label_text, key_text);
    // The simulator: HOME's first key shows A@B; the second device's page
    // shows the key as typed.
    auto sim = RemoteSimulator::from_image(testing::read_bytes(path), names);
    auto row_text = [&](int row) {
        for (const SimRow& r : sim->rows())
            if (r.row == row && !r.left) return r.text;
        return std::string("no row");
    };
    EXPECT_EQ(row_text(1), "A@B");
    sim->press_soft(2, false);
    EXPECT_EQ(row_text(1), key_text);
}

TEST_F(KeysDocument, AFileWrittenWithTheGlyphKeyboardsCodesReadsWithTheSameCharacters)
{
    // The name's glyphs as the system types them, from the list's tags.
    KeyLabel typed;
    const std::string text = "A@B#_";
    typed.bytes[0] = static_cast<std::uint8_t>(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        typed.bytes[1 + i] = static_cast<std::uint8_t>(glyph_of_tag(static_cast<unsigned char>(text[i])));
    c->device_name_table[1].name = typed;
    const auto path = (t.home.path() / "system.kcf").string();
    ASSERT_TRUE(save_tofile(t.app, path, 0, 0));
    const int document = open_configuration(t.app, path);
    ASSERT_GE(document, 0);
    const int slot = t.app.documents()[static_cast<std::size_t>(document)].slot;
    EXPECT_EQ(t.app.tree(slot).node(t.app.tree(slot).find(device_key(1, slot))).text, text);
}

}  // namespace
}  // namespace tesselo
