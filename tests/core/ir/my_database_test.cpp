// My Database: the three files byte by byte as their layouts give them,
// registering with its refusals and its overwrite question, new names, and
// picking a code with its chain verified.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/ir/edit_ir.h"
#include "core/ir/my_database_forms.h"
#include "core/ir/my_database_store.h"
#include "core/ir/rc56_edit.h"
#include "core/ir/rc_formats.h"
#include "core/keys/ir_step_names.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

namespace fs = std::filesystem;

std::uint32_t u32(const std::vector<std::uint8_t>& b, std::size_t at)
{
    return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | static_cast<std::uint32_t>(b[at + 3]) << 24;
}

std::string name_at(const std::vector<std::uint8_t>& b, std::size_t at)
{
    return std::string(reinterpret_cast<const char*>(&b[at]), 50);
}

std::string blank_filled(const std::string& name) { return name + std::string(50 - name.size(), ' '); }

// Record n (from 1) of a file with records of `length` bytes.
std::size_t record(int n, int length) { return static_cast<std::size_t>((n - 1) * length); }

struct MyDatabaseTest : ::testing::Test {
    TestApp t;
    void SetUp() override
    {
        fs::create_directories(t.home.path() / "Data base");
        fs::copy_file(fs::path(TESSELO_SOURCE_DIR) / "data" / "Data base" / "default.mdb",
                      t.home.path() / "Data base" / "default.mdb");
    }
    std::vector<std::uint8_t> file(const char* name) { return read_bytes(t.home.path() / name); }
    // An RC5 code as the current code.
    void rc5(int system, int command)
    {
        RC56Edit edit(t.app.ui(), t.app.current_ir);
        edit.Text3 = std::to_string(system);
        edit.Text1 = std::to_string(command);
        ASSERT_TRUE(edit.ok());
    }
    void add_name(int level, const std::string& name)
    {
        AddDataBase form(t.app, level);
        form.Text1 = name;
        ASSERT_TRUE(form.ok());
    }
    bool register_as(const MyDbNames& names)
    {
        MyDatabase form(t.app);
        for (int level = level_brand; level <= level_function; ++level)
            if (!form.choose(level, names[static_cast<std::size_t>(level - level_brand)])) return false;
        return form.ok();
    }
    void names_for(const MyDbNames& names)
    {
        add_name(level_brand, names[0]);
        add_name(level_model, names[2]);
        add_name(level_function, names[3]);
    }
};

TEST_F(MyDatabaseTest, FreshNameFilesHaveTheirFirstRecordsAndTheFourHeads)
{
    t.app.my_database();
    for (const auto& [name, length] : {std::pair{"mylist.fil", 116}, std::pair{"mydata.fil", 124}}) {
        const auto b = file(name);
        ASSERT_EQ(b.size(), static_cast<std::size_t>(14 * length)) << name;
        // Record 1: "_##FREE##_", the next record to use 15.
        EXPECT_EQ(u32(b, record(1, length) + 0), 1u);
        EXPECT_EQ(u32(b, record(1, length) + 4), 1u);
        EXPECT_EQ(name_at(b, record(1, length) + 8), blank_filled("_##FREE##_"));
        EXPECT_EQ(u32(b, record(1, length) + 62), 15u);
        // Record 2: "_##END##_" with the value 14.
        EXPECT_EQ(u32(b, record(2, length) + 0), 2u);
        EXPECT_EQ(name_at(b, record(2, length) + 8), blank_filled("_##END##_"));
        EXPECT_EQ(u32(b, record(2, length) + 58), 14u);
        // Records 3 to 10 are unused.
        for (std::size_t i = record(3, length); i < record(11, length); ++i) ASSERT_EQ(b[i], 0) << name << " byte " << i;
        for (int head = 11; head <= 14; ++head) {
            EXPECT_EQ(u32(b, record(head, length) + 0), static_cast<std::uint32_t>(head));
            EXPECT_EQ(u32(b, record(head, length) + 4), static_cast<std::uint32_t>(head));
            EXPECT_EQ(name_at(b, record(head, length) + 8), blank_filled("Select one"));
            EXPECT_EQ(u32(b, record(head, length) + 58), static_cast<std::uint32_t>(head));
        }
    }
    // In mydata.fil the heads are chained 11, 12, 13, 14 through previous and next.
    const auto d = file("mydata.fil");
    const std::uint32_t previous[] = {0, 11, 12, 13}, next[] = {12, 13, 14, 0};
    for (int head = 11; head <= 14; ++head) {
        EXPECT_EQ(u32(d, record(head, 124) + 66), previous[head - 11]) << head;
        EXPECT_EQ(u32(d, record(head, 124) + 70), next[head - 11]) << head;
    }
}

TEST_F(MyDatabaseTest, AFreshKeyFileCountsNoCodeAndOffersRecord11)
{
    t.app.my_database();
    const auto b = file("mykey.fil");
    ASSERT_EQ(b.size(), 10u * 212u);
    EXPECT_EQ(u32(b, record(1, 212)), 1u);
    EXPECT_EQ(u32(b, record(1, 212) + 4), 0u);
    EXPECT_EQ(u32(b, record(2, 212)), 2u);
    EXPECT_EQ(u32(b, record(2, 212) + 4), 11u);
}

TEST_F(MyDatabaseTest, FreshFilesOfferSelectOneInEachBox)
{
    MyDatabase form(t.app);
    EXPECT_EQ(form.names(level_brand), std::vector<std::string>{"Select one"});
    EXPECT_EQ(form.names(level_model), std::vector<std::string>{"Select one"});
    EXPECT_EQ(form.names(level_function), std::vector<std::string>{"Select one"});
    EXPECT_EQ(form.chosen, (MyDbNames{"Select one", "Select one", "Select one", "Select one"}));
    NewIRData pick(t.app);
    for (int level = level_brand; level <= level_function; ++level)
        EXPECT_EQ(pick.names(level), std::vector<std::string>{"Select one"}) << level;
}

TEST_F(MyDatabaseTest, TheDeviceBoxOffersTheStandardNamesWithTheirTrailingBlanks)
{
    EXPECT_EQ(MyDatabase(t.app).names(level_device),
              (std::vector<std::string>{"Select one", "CABLE ", "SATELLITE TUNER", "CD PLAYER / CD RECORDER", "DVD PLAYER",
                                        "DVD RECORDER ", "LD PLAYER", "MD RECORDER", "RECEIVER (TUNER)", "TAPE DECK",
                                        "AMPLIFIER"}));
}

TEST_F(MyDatabaseTest, ANewNameGoesIntoMylistAndAnExistingOneIsRefused)
{
    AddDataBase form(t.app, level_brand);
    EXPECT_EQ(form.caption(), "Add New Brand Name");
    EXPECT_EQ(AddDataBase(t.app, level_device).caption(), "Add New Device Name");
    EXPECT_EQ(AddDataBase(t.app, level_model).caption(), "Add New Model Name");
    EXPECT_EQ(AddDataBase(t.app, level_function).caption(), "Add New Function Name");
    form.Text1 = "ACME";
    ASSERT_TRUE(form.ok());
    const auto b = file("mylist.fil");
    ASSERT_EQ(b.size(), 15u * 116u);
    EXPECT_EQ(u32(b, record(15, 116)), 15u);
    EXPECT_EQ(u32(b, record(15, 116) + 4), 15u);
    EXPECT_EQ(name_at(b, record(15, 116) + 8), blank_filled("ACME"));
    EXPECT_EQ(u32(b, record(15, 116) + 58), 11u);  // the level it belongs to
    EXPECT_EQ(u32(b, record(1, 116) + 62), 16u);
    EXPECT_EQ(u32(b, record(2, 116) + 58), 15u);
    t.take_lines();
    AddDataBase again(t.app, level_brand);
    again.Text1 = "ACME";
    EXPECT_FALSE(again.ok());
    AddDataBase standard(t.app, level_device);
    standard.Text1 = "CABLE";
    EXPECT_FALSE(standard.ok());
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"<ACME> already exist\"",
                                                        "message \"Kelvaro Tesselo 3\" \"<CABLE> already exist\""}));
    EXPECT_EQ(MyDatabase(t.app).names(level_brand), (std::vector<std::string>{"Select one", "ACME"}));
}

TEST_F(MyDatabaseTest, RegisteringRefusesEachSelectOneInOrder)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    const std::vector<std::pair<MyDbNames, std::string>> cases{
        {{"Select one", "Select one", "Select one", "Select one"}, "Please enter Brand name"},
        {{"ACME", "Select one", "X1", "POWER"}, "Please enter Device name"},
        {{"ACME", "CABLE ", "Select one", "POWER"}, "Please enter Model name"},
        {{"ACME", "CABLE ", "X1", "Select one"}, "Please enter Function name"},
    };
    for (const auto& [names, words] : cases) {
        EXPECT_FALSE(register_as(names));
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"" + words + "\""});
    }
    EXPECT_EQ(t.app.my_database().code_count(), 0);
}

TEST_F(MyDatabaseTest, RegisteringWalksAndAddsTheFourLevelsAndWritesTheCode)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    const auto d = file("mydata.fil");
    ASSERT_EQ(d.size(), 18u * 124u);
    const std::string names[] = {"ACME", "CABLE", "X1", "POWER"};
    for (int i = 0; i < 4; ++i) {
        const std::size_t at = record(15 + i, 124);
        EXPECT_EQ(u32(d, at), static_cast<std::uint32_t>(15 + i));
        EXPECT_EQ(name_at(d, at + 8), blank_filled(names[i]));
        // The head of its list: the brands' head 11, else the node above it.
        EXPECT_EQ(u32(d, at + 58), i == 0 ? 11u : static_cast<std::uint32_t>(14 + i));
        // Previous and next: the records in use chained in the order they were made.
        EXPECT_EQ(u32(d, at + 66), static_cast<std::uint32_t>(14 + i));
        EXPECT_EQ(u32(d, at + 70), i == 3 ? 0u : static_cast<std::uint32_t>(16 + i));
    }
    EXPECT_EQ(u32(d, record(14, 124) + 70), 15u);  // the last head leads on to the first node
    EXPECT_EQ(u32(d, record(2, 124) + 58), 18u);   // "_##END##_": the last record in use

    const auto k = file("mykey.fil");
    ASSERT_EQ(k.size(), 11u * 212u);
    EXPECT_EQ(u32(k, record(1, 212) + 4), 1u);   // one code
    EXPECT_EQ(u32(k, record(2, 212) + 4), 12u);  // the next record to use
    const std::size_t at = record(11, 212);
    EXPECT_EQ(u32(k, at), 11u);
    // The kind: 4, the word count 8, and nothing more.
    EXPECT_EQ(u32(k, at + 4), 4u | 8u << 8);
    // The data: the RC5 words of system 0 and command 12, low byte first.
    const int w3 = (~0 & 31) * 256, w7 = ((~12 & 63) * 4) * 256;
    const int words[] = {2, 0x8010, 0x0806, w3, w3 | 0x2000, w3, w3 | 0x2000, w7};
    std::uint32_t data_sum = 0;
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(k[at + 8 + 2 * i], words[i] & 0xFF) << i;
        EXPECT_EQ(k[at + 9 + 2 * i], (words[i] >> 8) & 0xFF) << i;
        data_sum += static_cast<std::uint32_t>((words[i] & 0xFF) + ((words[i] >> 8) & 0xFF));
    }
    for (std::size_t i = at + 8 + 16; i < at + 136; ++i) EXPECT_EQ(k[i], 0) << i;
    // The format: RC5's row.
    const int format[] = {0x0A13, 0x0000, 0x1002, 0x0515, 0x0515, 0x0536, 0x0000, 0xA641};
    std::uint32_t format_sum = 0;
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(k[at + 136 + 2 * i], format[i] & 0xFF) << i;
        EXPECT_EQ(k[at + 137 + 2 * i], (format[i] >> 8) & 0xFF) << i;
        format_sum += static_cast<std::uint32_t>((format[i] & 0xFF) + ((format[i] >> 8) & 0xFF));
    }
    EXPECT_EQ(u32(k, at + 200), data_sum);
    EXPECT_EQ(u32(k, at + 204), format_sum);
    EXPECT_EQ(u32(k, at + 208), 18u);  // owned by the function's record
}

TEST_F(MyDatabaseTest, TheSameFourNamesTwiceAskTheOverwriteQuestion)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    const MyDbNames names{"ACME", "TAPE DECK", "X1", "POWER"};
    ASSERT_TRUE(register_as(names));
    t.take_lines();
    rc5(1, 13);
    t.ui.queue_answer("cancel");
    EXPECT_TRUE(register_as(names));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"ask \"Kelvaro Tesselo 3\" \"Do you want to overwirte the code?\" -> cancel"});
    MyKeyRecord kept;
    ASSERT_EQ(t.app.my_database().get_mykey_record(11, kept), 1);
    EXPECT_EQ(code_of_key_record(kept).words[3], static_cast<std::int16_t>((~0 & 31) * 256));
    t.ui.queue_answer("ok");
    EXPECT_TRUE(register_as(names));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"ask \"Kelvaro Tesselo 3\" \"Do you want to overwirte the code?\" -> ok"});
    MyKeyRecord rewritten;
    ASSERT_EQ(t.app.my_database().get_mykey_record(11, rewritten), 1);
    EXPECT_EQ(code_of_key_record(rewritten).words[3], static_cast<std::int16_t>((~1 & 31) * 256));
    EXPECT_EQ(t.app.my_database().code_count(), 1);
    EXPECT_EQ(file("mykey.fil").size(), 11u * 212u);
}

// A name record of mydata.fil as the earlier layout wrote it.
std::vector<char> earlier_record(int number, const std::string& name, int at58, int at66, int at70)
{
    std::vector<char> r(124, 0);
    const auto put = [&](int at, int v) {
        for (int i = 0; i < 4; ++i) r[static_cast<std::size_t>(at + i)] = static_cast<char>((v >> (8 * i)) & 0xFF);
    };
    put(0, number);
    put(4, number);
    for (int i = 0; i < 50; ++i) r[static_cast<std::size_t>(8 + i)] = i < static_cast<int>(name.size()) ? name[static_cast<std::size_t>(i)] : ' ';
    put(58, at58);
    put(66, at66);
    put(70, at70);
    return r;
}

TEST_F(MyDatabaseTest, FilesOfTheEarlierLayoutAreConvertedOnFirstUseKeepingEveryCode)
{
    // Two codes under ACME / CABLE / X1, written as the earlier layout did:
    // a node's level at 58, its parent at 66, a function's code at 70, and
    // the format's id (RC5, 5) in the kind's two high bytes.
    {
        std::ofstream d(t.home.path() / "mydata.fil", std::ios::binary);
        const auto write = [&](const std::vector<char>& r) { d.write(r.data(), 124); };
        write(earlier_record(1, "_##FREE##_", 0, 0, 0));
        auto end = earlier_record(2, "_##END##_", 19, 0, 0);
        end[62] = 0;
        write(end);
        for (int n = 3; n <= 10; ++n) write(std::vector<char>(124, 0));
        for (int head = 11; head <= 14; ++head)
            write(earlier_record(head, "Select one", head, head == 11 ? 0 : head - 1, head == 14 ? 0 : head + 1));
        write(earlier_record(15, "ACME", 11, 0, 0));
        write(earlier_record(16, "CABLE", 12, 15, 0));
        write(earlier_record(17, "X1", 13, 16, 0));
        write(earlier_record(18, "POWER", 14, 17, 12));  // its code is record 12
        write(earlier_record(19, "MUTE", 14, 17, 11));   // and this one record 11
    }
    {
        std::ofstream k(t.home.path() / "mykey.fil", std::ios::binary);
        std::vector<std::vector<std::uint8_t>> records(12, std::vector<std::uint8_t>(212, 0));
        records[0][0] = 1;
        records[0][4] = 2;   // two codes
        records[1][0] = 2;
        records[1][4] = 13;  // the next record to use
        IrFormatRecord rc5_format{};
        default_IR5Type(rc5_format);
        for (int n = 11; n <= 12; ++n) {
            auto& r = records[static_cast<std::size_t>(n - 1)];
            r[0] = static_cast<std::uint8_t>(n);
            r[4] = 4;
            r[5] = 2;   // two words
            r[6] = 5;   // the format's id, as the earlier layout kept it
            r[8] = 0x10;
            r[9] = static_cast<std::uint8_t>(n);  // the codes differ in their first word
            r[10] = 0x22;
            for (int i = 0; i < 32; ++i) {
                r[static_cast<std::size_t>(136 + 2 * i)] = static_cast<std::uint8_t>(rc5_format[static_cast<std::size_t>(i)] & 0xFF);
                r[static_cast<std::size_t>(137 + 2 * i)] = static_cast<std::uint8_t>((rc5_format[static_cast<std::size_t>(i)] >> 8) & 0xFF);
            }
            r[208] = static_cast<std::uint8_t>(n == 11 ? 19 : 18);
        }
        for (const auto& r : records) k.write(reinterpret_cast<const char*>(r.data()), 212);
    }
    ASSERT_TRUE(t.app.my_database().error().empty());

    // Converted: the kinds hold 4 and the word count alone.
    const auto k = file("mykey.fil");
    ASSERT_EQ(k.size(), 12u * 212u);
    for (int n = 11; n <= 12; ++n) EXPECT_EQ(u32(k, record(n, 212) + 4), 4u | 2u << 8) << n;
    EXPECT_EQ(u32(k, record(11, 212) + 208), 19u);
    EXPECT_EQ(u32(k, record(12, 212) + 208), 18u);
    // mydata.fil: 58 the head of each node's list, 66 and 70 the chain of records in use.
    const auto d = file("mydata.fil");
    ASSERT_EQ(d.size(), 19u * 124u);
    const std::uint32_t heads[] = {11, 15, 16, 17, 17};
    for (int n = 15; n <= 19; ++n) {
        EXPECT_EQ(u32(d, record(n, 124) + 58), heads[n - 15]) << n;
        EXPECT_EQ(u32(d, record(n, 124) + 66), static_cast<std::uint32_t>(n - 1)) << n;
        EXPECT_EQ(u32(d, record(n, 124) + 70), n == 19 ? 0u : static_cast<std::uint32_t>(n + 1)) << n;
    }
    EXPECT_EQ(u32(d, record(14, 124) + 70), 15u);
    EXPECT_EQ(u32(d, record(2, 124) + 58), 19u);

    // Every code is picked as it was registered, its format's id found again.
    for (const auto& [function, first] : {std::pair{"POWER", 12}, std::pair{"MUTE", 11}}) {
        NewIRData pick(t.app);
        for (const auto& [level, name] : {std::pair{level_brand, "ACME"}, std::pair{level_device, "CABLE"},
                                          std::pair{level_model, "X1"}, std::pair{level_function, function}})
            ASSERT_TRUE(pick.choose_name(level, name)) << name;
        ASSERT_TRUE(pick.ok()) << function;
        EXPECT_EQ(t.app.current_ir.name, std::string("MYDATABASE CODE ACME-CABLE-X1-") + function);
        EXPECT_EQ(t.app.current_ir.format_id, 5);
        EXPECT_EQ(t.app.current_ir.current_ir_word_count, 2);
        EXPECT_EQ(t.app.current_ir.current_ir_data[0], 0x10);
        EXPECT_EQ(t.app.current_ir.current_ir_data[1], first);
        EXPECT_EQ(t.app.current_ir.current_ir_data[2], 0x22);
    }
    // A second start finds the files in this layout and leaves them as they are.
    MyDatabaseStore again(t.home.path());
    ASSERT_TRUE(again.load());
    EXPECT_EQ(file("mydata.fil"), d);
    EXPECT_EQ(file("mykey.fil"), k);
}

TEST_F(MyDatabaseTest, GetMykeyRecordRefusesRecord10AndRecordsBeyondTheEnd)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    MyKeyRecord r;
    EXPECT_EQ(t.app.my_database().get_mykey_record(10, r), 2);
    EXPECT_EQ(t.app.my_database().get_mykey_record(1, r), 2);
    EXPECT_EQ(t.app.my_database().get_mykey_record(12, r), 2);
    EXPECT_EQ(t.app.my_database().get_mykey_record(11, r), 1);
}

TEST_F(MyDatabaseTest, AKindWhoseLowByteIsNeither4Nor5Gives0)
{
    t.app.my_database();
    // Record 11 written by another program with kind 7.
    {
        std::fstream f(t.home.path() / "mykey.fil", std::ios::binary | std::ios::in | std::ios::out);
        f.seekp(0, std::ios::end);
        std::vector<char> rec(212, 0);
        rec[0] = 11;
        rec[4] = 7;
        f.write(rec.data(), 212);
    }
    MyDatabaseStore store(t.home.path());
    ASSERT_TRUE(store.load());
    MyKeyRecord r;
    EXPECT_EQ(store.get_mykey_record(11, r), 0);
}

TEST_F(MyDatabaseTest, PickingFillsTheListsLevelByLevelAndTakesTheCode)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    add_name(level_function, "MUTE");
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    rc5(0, 13);
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "MUTE"}));
    NewIRData pick(t.app);
    EXPECT_EQ(pick.names(level_brand), (std::vector<std::string>{"Select one", "ACME"}));
    EXPECT_EQ(pick.names(level_device), std::vector<std::string>{"Select one"});
    pick.choose(level_brand, 1);
    EXPECT_EQ(pick.names(level_device), (std::vector<std::string>{"Select one", "CABLE"}));
    pick.choose(level_device, 1);
    pick.choose(level_model, 1);
    EXPECT_EQ(pick.names(level_function), (std::vector<std::string>{"Select one", "POWER", "MUTE"}));
    EXPECT_FALSE(pick.ok());  // no function chosen
    pick.choose(level_function, 2);
    t.app.current_ir = CurrentIrCode{};
    ASSERT_TRUE(pick.ok());
    const CurrentIrCode& code = t.app.current_ir;
    EXPECT_EQ(code.current_ir_type, 128);
    EXPECT_EQ(code.name, "MYDATABASE CODE ACME-CABLE-X1-MUTE");
    EXPECT_EQ(code.current_ir_word_count, 8);
    EXPECT_EQ(code.format_id, 5);
    // The data: word 7 of RC5 command 13, low byte first.
    EXPECT_EQ(code.current_ir_data[15], ((~13 & 63) * 4) & 0xFF);
    EXPECT_EQ(code.current_ir_format[0], 0x13);
    EXPECT_EQ(code.current_ir_format[1], 0x0A);
    pick.cmdClear();
    EXPECT_EQ(pick.chosen(level_brand), 0);
    EXPECT_EQ(pick.names(level_function), std::vector<std::string>{"Select one"});
}

TEST_F(MyDatabaseTest, ALearnedCodeIsPickedAsKind133)
{
    auto& code = t.app.current_ir;
    for (std::size_t i = 0; i < 64; ++i) code.current_ir_data[i] = static_cast<std::uint8_t>(200 - i);
    code.current_ir_type = ir_type_learned;
    code.name = "LEARNING CODE";
    names_for({"ACME", "", "X1", "POWER"});
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    const auto k = file("mykey.fil");
    EXPECT_EQ(u32(k, record(11, 212) + 4), 0x4005u);
    for (std::size_t i = record(11, 212) + 136; i < record(11, 212) + 200; ++i) EXPECT_EQ(k[i], 0);
    t.app.current_ir = CurrentIrCode{};
    NewIRData pick(t.app);
    for (const auto& [level, name] : {std::pair{level_brand, "ACME"}, std::pair{level_device, "CABLE"},
                                      std::pair{level_model, "X1"}, std::pair{level_function, "POWER"}})
        ASSERT_TRUE(pick.choose_name(level, name));
    ASSERT_TRUE(pick.ok());
    EXPECT_EQ(t.app.current_ir.current_ir_type, 133);
    EXPECT_EQ(t.app.current_ir.current_ir_data[1], 199);
}

TEST_F(MyDatabaseTest, ABrokenChainFromTheFunctionToTheBrandGivesNoCode)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    ASSERT_TRUE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    // The model's record (16 is the device, 17 the model) now stands on the
    // list that the devices' head 12 heads.
    {
        std::fstream f(t.home.path() / "mydata.fil", std::ios::binary | std::ios::in | std::ios::out);
        f.seekp(static_cast<std::streamoff>(record(17, 124) + 58));
        const char level[4] = {12, 0, 0, 0};
        f.write(level, 4);
    }
    MyDatabaseStore store(t.home.path());
    ASSERT_TRUE(store.load());
    EXPECT_FALSE(store.code_of_function(18));
    EXPECT_FALSE(store.names_of_code(t.app.current_ir.value()));
}

TEST_F(MyDatabaseTest, AnEmptyMyDatabaseSaysSoInAddIRCode)
{
    EditIR dialog(t.app, KeyTarget{0, ""});
    EXPECT_FALSE(dialog.my_database_available());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Mydatabase is empty!\""});
}

TEST_F(MyDatabaseTest, StepRowsOfMyDatabaseCodesShowTheirNames)
{
    rc5(0, 12);
    names_for({"ACME", "", "X1", "POWER"});
    ASSERT_TRUE(register_as({"ACME", "DVD RECORDER ", "X1", "POWER"}));
    Configuration c;
    clear_configuration(c);
    const IrCodeValue value = t.app.current_ir.value();
    ASSERT_TRUE(store_ir_code(c, value));
    ActionStep step{step_mydatabase, 0, 0, 3000, 0, end_of_list};
    const LibraryStepNames names(t.home.path(), &t.app.my_database());
    EXPECT_EQ(names.ir_parts(c, step), (std::array<std::string, 3>{"MYDATABASE CODE", "ACME-DVD RECORDER-", "X1- POWER"}));
    // A code that My Database does not hold shows the kind's words alone.
    step.param_low = 1;
    EXPECT_EQ(names.ir_parts(c, step), (std::array<std::string, 3>{"MYDATABASE CODE", "", ""}));
    ActionStep learned{step_mydatabase_learning, 0, 0, 3000, 0, end_of_list};
    EXPECT_EQ(names.ir_parts(c, learned), (std::array<std::string, 3>{"MYDATABASE LEARNING CODE", "", ""}));
}

TEST_F(MyDatabaseTest, RegisteringNeedsACurrentCode)
{
    names_for({"ACME", "", "X1", "POWER"});
    EXPECT_FALSE(register_as({"ACME", "CABLE ", "X1", "POWER"}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"Invalid IRcode\""});
}

TEST_F(MyDatabaseTest, AFolderWhereAFileShouldBeIsReportedAndNothingIsWritten)
{
    fs::create_directories(t.home.path() / "mykey.fil");
    MyDatabaseStore store(t.home.path());
    EXPECT_FALSE(store.load());
    EXPECT_NE(store.error().find("mykey.fil"), std::string::npos);
}

}  // namespace
}  // namespace tesselo::testing
