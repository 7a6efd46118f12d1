#include <gtest/gtest.h>

#include <fstream>

#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliLabels : ::testing::Test {
    TempFolder home;
    std::string dump_path() const { return (home.path() / "d.json").string(); }
    CliResult script(const std::string& lines)
    {
        return run_cli("script - --home " + shell_quote(home.path().string()), lines);
    }
    nlohmann::json dumped() const { return nlohmann::json::parse(std::ifstream(dump_path())); }
    // The glyphs of a label in the dump, as numbers.
    static std::vector<int> glyphs(const nlohmann::json& label)
    {
        std::vector<int> g;
        const int count = label[0].get<int>() & 15;
        for (int i = 1; i <= count; ++i) g.push_back(label[static_cast<std::size_t>(i)].get<int>());
        return g;
    }
};

const std::string device_page = "new\nadd-device\nselect DEVICE11\\PAGE1\n";

TEST_F(CliLabels, LabelTypesIntoTheKeysLabelFieldWithBackspacesAndTheGlyphKeyboard)
{
    const auto r = script(device_page + "key soft 1\nlabel \"tx\\bv 1\"\nglyph 76\nalign left\ndump " + dump_path() + "\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "");
    const auto j = dumped();
    const int label = j["device_pages"][0]["slots"][1]["label_index"].get<int>();
    const auto& bytes = j["softkey_labels"][static_cast<std::size_t>(label)];
    EXPECT_EQ(bytes[0].get<int>(), 0x20 | 5);
    // T V blank 1 and the play sign.
    EXPECT_EQ(glyphs(bytes), (std::vector<int>{20, 22, 0, 28, 76}));
}

TEST_F(CliLabels, TheTenthGlyphIsRefusedAndTheScriptGoesOn)
{
    const auto r = script(device_page + "key soft 2\nlabel ABCDEFGHIJ\nlabel K\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\"\n"
              "message \"Kelvarzo Tesselo 3\" \"Max. Character is exceed\"\n");
}

TEST_F(CliLabels, OnADeviceNodeLabelEditsTheDeviceNameAndItsTreeTexts)
{
    const auto r = script("new\nadd-device\nselect DEVICE11\nlabel \"\\b\\b\\b\\b\\b\\b\\btv\"\nglyph 80\ntree\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out,
              "1\t0\tHOME1\tHOME\thome\n"
              "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
              "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n"
              "4\t0\tDEVICE11\tTV=\tdevice\n"
              "5\t4\tDEVICE11PROPERTIES\tTV= PROPERTIES\tproperties\n"
              "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n");
}

TEST_F(CliLabels, TheKeysSwitches)
{
    const auto r = script("new\nadd-device\nadd-device\nselect DEVICE21\\PAGE1\nkey hard 22\nadd-delay 1\n"
                          "select DEVICE11\\PAGE1\nkey hard 22\nanswer ok\npunch on\n"
                          "select DEVICE21\\PAGE1\nkey hard 22\nsteps\nsleep on\npunch off\nsteps\nsleep off\n"
                          "key soft 2 left\nlink-right off\nlabel L\nkey soft 3\nsleep on\ndump " + dump_path() + "\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out,
              "ask \"Kelvarzo Tesselo 3\" \"If you set up the Punch Through for this key, this action link to same key "
              "in all mode automatically. And if you had set up the action for the same key in another device mode, "
              "setup action will be deleted by this operation.\\n\\nIf you want to assign the another action to this "
              "key in another device, check off the Punch Through and assign the new action in the property of  "
              "required mode and key.\" -> ok\n"
              "Punch from DEVICE1\n");
    const auto j = dumped();
    EXPECT_EQ(j["punch_through"][36][0], 1);
    EXPECT_EQ(j["punch_through"][36][1], 0xDF);
    EXPECT_EQ(j["hardkeys"][2 * 41 + 36]["action_list"], 65535);
    EXPECT_EQ(j["hardkeys"][2 * 41 + 36]["sleep_flag"], 0);
    // Device 2's page: the left key in front of the right key that it needs, and row 3's key.
    const auto& page = j["device_pages"][1];
    EXPECT_EQ(page["slots"][1]["position"], 130);
    EXPECT_EQ(page["slots"][2]["position"], 2);
    EXPECT_EQ(page["slots"][3]["position"], 3);
    EXPECT_EQ(page["slots"][3]["key_state"], 1);
    EXPECT_EQ(glyphs(j["softkey_labels"][page["slots"][1]["label_index"].get<std::size_t>()]), std::vector<int>{12});
}

TEST_F(CliLabels, TheDevicesSettings)
{
    const auto r = script("new\nadd-device\nselect DEVICE11PROPERTIES\ndevice rf\nchannel 3\ngroup 2\nblaster on\n"
                          "blaster on\nselect HOME1\nblaster on\ndump " + dump_path() + "\n");
    ASSERT_EQ(r.status, 0) << r.out;
    const auto j = dumped();
    EXPECT_EQ(j["device_extra"][1]["option_a"], 1);
    EXPECT_EQ(j["device_extra"][1]["option_b"], 0x80 | 0x04 | 0x02);
    EXPECT_EQ(j["device_extra"][0]["option_b"], 0x80);
}

TEST_F(CliLabels, LinesThatNameNothingAreBadUsage)
{
    EXPECT_EQ(script(device_page + "label A\n").status, 2);               // a page, no key
    EXPECT_EQ(script(device_page + "key hard 22\nalign left\n").status, 2);  // hard keys have no alignment
    EXPECT_EQ(script(device_page + "key soft 1\npunch on\n").status, 2);   // Punch Through is a hard key's
    EXPECT_EQ(script(device_page + "key soft 1\nlink-right on\n").status, 2);
    EXPECT_EQ(script(device_page + "key soft 1\nglyph 101\n").status, 2);
    EXPECT_EQ(script("new\nadd-device\nselect DEVICE11\nchannel 5\n").status, 2);
    EXPECT_EQ(script("new\nadd-device\nselect DEVICE11\ngroup 3\n").status, 2);
    EXPECT_EQ(script("new\nselect HOME1\ndevice rf\n").status, 2);  // HOME has the blaster alone
    EXPECT_EQ(script("new\nadd-device\nselect DEVICE11\nsleep on\n").status, 2);
    // Punch Through's question needs an answer.
    EXPECT_EQ(script("new\nadd-device\nselect DEVICE11\\PAGE1\nkey hard 22\npunch on\n").status, 3);
}

}  // namespace
}  // namespace tesselo
