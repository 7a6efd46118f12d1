#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

struct CliTree : ::testing::Test {
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }
    std::string file(const std::string& name) const { return (home.path() / name).string(); }

    // A file of two devices, the first with two pages, made by a script.
    std::string built()
    {
        const auto out = file("built.kcf");
        const auto r = run_cli("script - " + arg(), "new\nadd-device\nadd-device\nselect DEVICE11\nadd-page\nsave-as " + out + "\n");
        EXPECT_EQ(r.status, 0) << r.out;
        return out;
    }
};

const std::string built_tree =
    "1\t0\tHOME1\tHOME\thome\n"
    "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
    "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n"
    "4\t0\tDEVICE11\tDEVICE1\tdevice\n"
    "5\t4\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
    "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n"
    "7\t4\tDEVICE11\\PAGE2\tPAGE2\ttv\n"
    "8\t0\tDEVICE21\tDEVICE2\tdevice\n"
    "9\t8\tDEVICE21PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
    "10\t8\tDEVICE21\\PAGE1\tPAGE1\ttv\n";

TEST_F(CliTree, TreePrintsOneNodeALine)
{
    const auto r = run_cli("tree " + shell_quote(built()) + " " + arg());
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, built_tree);
}

TEST_F(CliTree, DumpPrintsEveryTableWholeInTheContractsOrder)
{
    const auto r = run_cli("dump " + shell_quote(built()) + " " + arg());
    ASSERT_EQ(r.status, 0);
    const auto j = nlohmann::ordered_json::parse(r.out);
    std::vector<std::string> keys;
    for (const auto& [key, value] : j.items()) keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{
                        "slot", "title", "section_pointers", "format_stamp", "clock_block", "device_table",
                        "device_name_table", "device_extra", "page_table", "home_pages", "device_pages", "softkey_labels",
                        "hardkeys", "hardkey_labels", "hardkey_index", "punch_through", "action_lists", "action_steps",
                        "ir_formats", "ir_format_ids", "ir_data", "ir_data_index", "learning_bitmap", "learning_memory",
                        "learning_keys", "device_numbers_used"}));
    EXPECT_EQ(j["slot"], 0);
    EXPECT_EQ(j["title"], file("built.kcf"));
    EXPECT_EQ(j["device_table"].size(), 129u);
    EXPECT_EQ(j["page_table"].size(), 155u);
    EXPECT_EQ(j["home_pages"].size(), 26u);
    EXPECT_EQ(j["home_pages"][0]["slots"].size(), 12u);
    EXPECT_EQ(j["home_pages"][0]["slots"][2]["node_key"], "DEVICE21");
    EXPECT_EQ(j["device_pages"].size(), 128u);
    EXPECT_EQ(j["device_pages"][1]["node_key"], "DEVICE11\\PAGE2");
    EXPECT_EQ(j["softkey_labels"].size(), 924u);
    EXPECT_EQ(j["hardkeys"].size(), 5289u);
    EXPECT_EQ(j["hardkey_labels"][0].size(), 10u);
    EXPECT_EQ(j["punch_through"].size(), 41u);
    EXPECT_EQ(j["action_lists"]["entries"].size(), 8000u);
    EXPECT_EQ(j["action_lists"]["list_count"], 2);
    EXPECT_EQ(j["action_steps"]["steps"].size(), 9000u);
    EXPECT_EQ(j["action_steps"]["steps"][1]["step_type"], 6);
    EXPECT_EQ(j["ir_formats"]["records"].size(), 400u);
    EXPECT_EQ(j["ir_format_ids"].size(), 400u);
    EXPECT_EQ(j["ir_data"]["record_count"], 0);
    EXPECT_TRUE(j["ir_data"]["records"].empty());
    EXPECT_EQ(j["learning_memory"].size(), 1000u);
    EXPECT_EQ(j["learning_keys"].size(), 1000u);
    EXPECT_EQ(j["device_numbers_used"][1], 1);
    EXPECT_EQ(j["device_name_table"][1]["name"], (std::vector<int>{7, 4, 5, 22, 9, 3, 5, 28, 0, 0}));
    EXPECT_EQ(j["section_pointers"][0], 4096);
}

TEST_F(CliTree, ResaveWritesTheSameBytes)
{
    const auto in = built();
    const auto out = file("again.kcf");
    const auto r = run_cli("resave " + shell_quote(in) + " " + shell_quote(out) + " " + arg());
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(read_bytes(out), read_bytes(in));
}

TEST_F(CliTree, CheckReportsNoFaultOnAGoodFileAndStatus2OnGarbage)
{
    const auto r = run_cli("check " + shell_quote(built()));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "");
    const auto junk = file("junk.kcf");
    std::ofstream(junk) << "not an image";
    EXPECT_EQ(run_cli("check " + shell_quote(junk)).status, 2);
    EXPECT_EQ(run_cli("dump " + shell_quote(junk) + " " + arg()).status, 2);
    EXPECT_EQ(run_cli("check " + shell_quote(file("missing.kcf"))).status, 2);
}

TEST_F(CliTree, CheckRunsTheReadersBoundsAsOpenDoes)
{
    // The end mark's header entry points past the end of the file: the check's
    // own sections are whole, but Open's reader falls outside the buffer.
    auto bytes = read_bytes(built());
    const auto past = static_cast<std::uint32_t>(bytes.size() + 10000 + 4096);
    bytes[4 * 24] = static_cast<std::uint8_t>(past & 0xFF);
    bytes[4 * 24 + 1] = static_cast<std::uint8_t>((past >> 8) & 0xFF);
    bytes[4 * 24 + 2] = static_cast<std::uint8_t>(past >> 16);
    const auto cut = file("past.kcf");
    std::ofstream(cut, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    const auto opened = run_cli("dump " + shell_quote(cut) + " " + arg() + " 2>&1");
    EXPECT_EQ(opened.status, 2);
    EXPECT_EQ(opened.out, "status \"Load Configuration\"\nmessage \"Kelvaro Tessel 3\" \"file is corrupted\"\n");
    const auto r = run_cli("check " + shell_quote(cut) + " 2>&1");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "tesselo-cli: " + cut + ": file is corrupted\n");
}

// A file whose first device page has two keys with one label and one list.
std::string faulty(const std::string& good, const std::string& out)
{
    auto bytes = read_bytes(good);
    auto entry = [&bytes](int e) { return bytes[4 * e] | (bytes[4 * e + 1] << 8) | (bytes[4 * e + 2] << 16); };
    // The page table: HOME's page, then DEVICE1's two pages; give DEVICE1\PAGE1 three keys.
    const std::size_t pages = static_cast<std::size_t>(entry(16) - 4096);
    const std::size_t flat = static_cast<std::size_t>(entry(14) - 4096);
    // Soft keys in the image: HOME (3), DEVICE1 PAGE1 (1), PAGE2 (1), DEVICE2 PAGE1 (1): six records.
    std::vector<std::uint8_t> keys(bytes.begin() + static_cast<long>(flat), bytes.begin() + static_cast<long>(flat + 7 * 6));
    const std::vector<std::uint8_t> shared = {0, 1, 5, 0, 9, 0, 0, 0, 2, 5, 0, 9, 0, 0};
    keys.insert(keys.begin() + 7 * 4, shared.begin(), shared.end());
    std::vector<std::uint8_t> out_bytes(bytes.begin(), bytes.begin() + static_cast<long>(flat));
    out_bytes.insert(out_bytes.end(), keys.begin(), keys.end());
    out_bytes.insert(out_bytes.end(), bytes.begin() + static_cast<long>(flat + 7 * 6), bytes.end());
    for (int e = 15; e < 25; ++e) {
        const int v = entry(e) + 14;
        out_bytes[static_cast<std::size_t>(4 * e)] = static_cast<std::uint8_t>(v & 0xFF);
        out_bytes[static_cast<std::size_t>(4 * e + 1)] = static_cast<std::uint8_t>((v >> 8) & 0xFF);
        out_bytes[static_cast<std::size_t>(4 * e + 2)] = static_cast<std::uint8_t>(v >> 16);
    }
    out_bytes[pages + 14 + 4 + 2] = 3;  // DEVICE1\PAGE1's key_count
    std::ofstream f(out, std::ios::binary);
    f.write(reinterpret_cast<const char*>(out_bytes.data()), static_cast<std::streamsize>(out_bytes.size()));
    return out;
}

TEST_F(CliTree, CheckPrintsOneLineAFaultWithExit1)
{
    const auto bad = faulty(built(), file("bad.kcf"));
    const auto r = run_cli("check " + shell_quote(bad));
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "1\t5\t0\tDEVICE1/PAGE1/KEY2\n2\t5\t9\tDEVICE1/PAGE1/KEY2\n");
}

TEST_F(CliTree, DumpAnswersTheErrorWindowAsOnFaultSays)
{
    const auto bad = faulty(built(), file("bad.kcf"));
    EXPECT_EQ(run_cli("dump " + shell_quote(bad) + " " + arg()).status, 1);
    const auto keep = run_cli("dump " + shell_quote(bad) + " --on-fault keep " + arg());
    ASSERT_EQ(keep.status, 0);
    auto j = nlohmann::json::parse(keep.out);
    EXPECT_EQ(j["device_pages"][0]["slots"][2]["label_index"], 5);
    const auto correct = run_cli("dump " + shell_quote(bad) + " --on-fault correct " + arg());
    ASSERT_EQ(correct.status, 0);
    j = nlohmann::json::parse(correct.out);
    EXPECT_EQ(j["device_pages"][0]["slots"][2]["label_index"], 65535);
    EXPECT_EQ(j["device_pages"][0]["slots"][1]["action_list"], 65535);
    EXPECT_TRUE(fs::exists(home.path() / "correct.log"));
}

TEST_F(CliTree, ScriptOperationsOfTheTree)
{
    const auto in = built();
    const auto dump = file("d.json");
    const auto r = run_cli("script - " + arg(),
                           "open " + in + "\n"
                           "select DEVICE21\n"
                           "popup \"Move Up\"\n"
                           "popup \"Add Page\"\n"
                           "add-device\n"
                           "undo\n"
                           "undo\n"
                           "redo\n"
                           "tree\n"
                           "dump " + dump + "\n");
    EXPECT_EQ(r.status, 0) << r.out;
    // DEVICE2 moved up, then its new page came back with redo; the tree is
    // built again from the tables, the moved device first.
    EXPECT_EQ(r.out, "status \"Load Configuration\"\n"
                     "1\t0\tHOME1\tHOME\thome\n"
                     "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
                     "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n"
                     "4\t0\tDEVICE21\tDEVICE2\tdevice\n"
                     "5\t4\tDEVICE21PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
                     "6\t4\tDEVICE21\\PAGE1\tPAGE1\ttv\n"
                     "7\t4\tDEVICE21\\PAGE2\tPAGE2\ttv\n"
                     "8\t0\tDEVICE11\tDEVICE1\tdevice\n"
                     "9\t8\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
                     "10\t8\tDEVICE11\\PAGE1\tPAGE1\ttv\n"
                     "11\t8\tDEVICE11\\PAGE2\tPAGE2\ttv\n");
    const auto j = nlohmann::json::parse(std::ifstream(dump));
    EXPECT_EQ(j["device_table"][1]["page_count"], 2);
    EXPECT_EQ(j["device_name_table"][1]["node_key"], "DEVICE21");
}

TEST_F(CliTree, TreePrintsTheNodesInTheTreesOrderAndMoveUpChangesIt)
{
    // Move Up makes the page anew in front of its sibling: its copy is the
    // last node made (index 10, after the old node 7 has gone and the nodes
    // behind it dropped one), and the tree shows it before PAGE1.
    const auto r = run_cli("script - " + arg(), "open " + built() + "\nselect DEVICE11\\PAGE2\nmove-up\ntree\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "status \"Load Configuration\"\n"
                     "1\t0\tHOME1\tHOME\thome\n"
                     "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
                     "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n"
                     "4\t0\tDEVICE11\tDEVICE1\tdevice\n"
                     "5\t4\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
                     "10\t4\tDEVICE11\\PAGE2\tPAGE2\ttv\n"
                     "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n"
                     "7\t0\tDEVICE21\tDEVICE2\tdevice\n"
                     "8\t7\tDEVICE21PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
                     "9\t7\tDEVICE21\\PAGE1\tPAGE1\ttv\n");
}

TEST_F(CliTree, ScriptRefusalsAndUnknownNodes)
{
    EXPECT_EQ(run_cli("script - " + arg(), "new\nselect DEVICE99\n").status, 2);
    EXPECT_EQ(run_cli("script - " + arg(), "new\nselect HOME1PROPERTIES\npopup \"Add Device\"\ntree\n").out,
              "1\t0\tHOME1\tHOME\thome\n2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n");
    const auto r = run_cli("script - " + arg(), "open " + file("missing.kcf") + "\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "message \"Kelvaro Tessel 3\" \"file is corrupted\"\n");
    const auto bad = faulty(built(), file("bad.kcf"));
    EXPECT_EQ(run_cli("script - " + arg(), "open " + bad + "\n").status, 3);
}

}  // namespace
}  // namespace tesselo
