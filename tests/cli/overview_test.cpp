// overview FILE OUT: the printable overview of a full configuration, read
// back as text, and its first sheet kept as a picture for a reviewer.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "cli/cli_runner.h"
#include "core/document/lifecycle.h"
#include "core/image/image_writer.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/tree/adding.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

// The output of a shell command.
std::string output_of(const std::string& command)
{
    std::string out;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return out;
    std::array<char, 4096> buffer{};
    std::size_t n;
    while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) out.append(buffer.data(), n);
    pclose(pipe);
    return out;
}

// Where a line of the text begins with `words`, from `from` on; a sheet
// begins with a form feed.
std::size_t line_beginning_with(const std::string& text, const std::string& words, std::size_t from)
{
    for (auto at = text.find(words, from); at != std::string::npos; at = text.find(words, at + 1))
        if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\f') return at;
    return std::string::npos;
}

std::string three_digits(int n)
{
    std::string s = std::to_string(n);
    return std::string(3 - s.size(), '0') + s;
}

std::string device_name(int d) { return "DEV" + three_digits(d); }

// Hundredths of a second as the step rows show them: at most two decimals,
// no trailing zeros.
std::string seconds(int hundredths)
{
    std::string text = std::to_string(hundredths / 100);
    const int rest = hundredths % 100;
    if (rest == 0) return text;
    text += "." + std::to_string(rest / 10);
    if (rest % 10) text += std::to_string(rest % 10);
    return text;
}

struct CliOverview : ::testing::Test {
    // Every device page counts against the 127 that adding allows.
    static constexpr int devices = 127;
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }
    void SetUp() override
    {
#ifndef TESSELO_WITH_WINDOWS
        // The overview is drawn with Qt: without it tesselo-cli has no overview.
        GTEST_SKIP() << "tesselo-cli is built without Qt";
#endif
    }
    std::string file(const std::string& name) const { return (home.path() / name).string(); }
    // Every row that the overview must show, without their trailing blanks.
    std::vector<std::string> rows;

    int add_code(Configuration& c, int protocol, int system, int command)
    {
        IrCodeValue code;
        code.format_id = protocol == step_rc5 ? format_id_rc5 : format_id_rc6;
        if (protocol == step_rc5) default_IR5Type(code.format);
        else default_IR60Type(code.format);
        code.word_count = protocol == step_rc5 ? encode_rc5(code.words, system, command) : encode_rc6(code.words, system, command);
        return *append_ir_record(c, code);
    }

    // The fullest document the limits allow in pages: 127 devices of one page
    // each (26 HOME pages), every device named, with soft and hard keys that
    // carry every kind of step.
    std::string full_configuration()
    {
        TestApp t;
        EXPECT_EQ(muNew(t.app), 0);
        for (int d = 1; d <= devices; ++d) AddDevice(t.app, add_ordinary);
        Configuration& c = t.app.config(0);
        EXPECT_EQ(c.device_table[0].page_count, 26);
        EXPECT_EQ(c.device_name_table[devices].node_key, "DEVICE" + std::to_string(devices) + "1");
        for (int d = 1; d <= devices; ++d) {
            // The device's name and its HOME key's label are the same ten bytes.
            const KeyLabel name = label_of(device_name(d));
            c.device_name_table[static_cast<std::size_t>(d)].name = name;
            for (auto& home_page : c.home_pages)
                for (std::size_t s = 1; s < home_page.slots.size(); ++s)
                    if (home_page.node_key[s] == c.device_name_table[static_cast<std::size_t>(d)].node_key)
                        c.softkey_labels[static_cast<std::size_t>(home_page.slots[s].label_index)] = name;
            // Each HOME key jumps to its device's first page.
            rows.push_back("JUMP TO " + device_name(d) + " PAGE1");
        }
        for (int d = 1; d <= devices; ++d) {
            const std::string page = "DEVICE" + std::to_string(d) + "1\\PAGE1";
            const int next = d % devices + 1;
            add_step(c, soft_place(c, page, 1), step_jump, next);
            rows.push_back("JUMP TO " + device_name(next) + " PAGE1");
            add_step(c, soft_place(c, page, 2), step_delay, d * 5);
            rows.push_back("DELAY " + seconds(d * 5) + " S");
            const int protocol = d % 2 ? step_rc5 : step_rc6;
            add_step(c, hard_place(c, d, 0), static_cast<std::uint8_t>(protocol), add_code(c, protocol, d % 32, d % 64));
            rows.push_back(std::string(protocol == step_rc5 ? "RC5 " : "RC6 ") + std::to_string(d % 32) + " " +
                           std::to_string(d % 64));
            // A link to hard key 0 (ON) of the next device.
            add_step(c, hard_place(c, d, 1), step_link, next + 256 * 255, 1, 0);
            rows.push_back("LINK TO " + device_name(next) + "ON-HARD-");
            add_step(c, hard_place(c, d, 2), step_beep, d, 1000);
            rows.push_back("BEEP SOUND " + seconds(d) + "Sec");
            if (d % 8 == 0) {
                IrCodeValue learned;
                learned.learned = true;
                learned.learned_bytes.fill(static_cast<std::uint8_t>(d));
                add_step(c, hard_place(c, d, 2), step_learning, store_learned_code(c, learned, 2));
                rows.push_back("LEARNING CODE");
            }
        }
        const auto path = file("full.kcf");
        EXPECT_TRUE(save_tofile(t.app, path, 0, 0));
        return path;
    }
};

TEST_F(CliOverview, EveryDeviceNameAndStepRowOfAFullConfigurationIsInThePdf)
{
    const auto kcf = full_configuration();
    const auto pdf = file("full.pdf");
    const auto r = run_cli("overview " + shell_quote(kcf) + " " + shell_quote(pdf) + " " + arg());
    ASSERT_EQ(r.status, 0) << r.out;
    ASSERT_TRUE(fs::exists(pdf));
    const std::string text = output_of("pdftotext -layout " + shell_quote(pdf) + " -");
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.find("Overview of full.kcf"), std::string::npos);
    // Each device under its own name, in tree order, after HOME.
    std::size_t last = text.find("HOME");
    ASSERT_NE(last, std::string::npos);
    for (int d = 1; d <= devices; ++d) {
        const auto at = line_beginning_with(text, device_name(d), last);
        ASSERT_NE(at, std::string::npos) << device_name(d);
        last = at;
    }
    for (const auto& row : rows) EXPECT_NE(text.find(row), std::string::npos) << row;

    // The first sheet, for a reviewer's eye.
    const std::string shots = TESSELO_SCREENSHOTS;
    fs::create_directories(shots);
    const auto png = shots + "/overview_first_page";
    output_of("pdftoppm -png -r 110 -f 1 -l 1 -singlefile " + shell_quote(pdf) + " " + shell_quote(png));
    EXPECT_TRUE(fs::exists(png + ".png"));
}

TEST_F(CliOverview, HiddenDevicesArePrintedAndMarked)
{
    const auto kcf = file("hidden.kcf");
    {
        TestApp t;
        ASSERT_EQ(muNew(t.app), 0);
        AddDevice(t.app, add_ordinary);
        AddDevice(t.app, add_ordinary);
        t.app.config(0).device_table[1].hidden = hidden_flag;
        t.app.config(0).device_table[1].visible_pages = 0;
        ASSERT_TRUE(save_tofile(t.app, kcf, 0, 0));
    }
    const auto pdf = file("hidden.pdf");
    ASSERT_EQ(run_cli("overview " + shell_quote(kcf) + " " + shell_quote(pdf) + " " + arg()).status, 0);
    const std::string text = output_of("pdftotext -layout " + shell_quote(pdf) + " -");
    EXPECT_NE(text.find("DEVICE1 (hidden)"), std::string::npos) << text;
    EXPECT_NE(text.find("DEVICE2"), std::string::npos);
    EXPECT_EQ(text.find("DEVICE2 (hidden)"), std::string::npos);
}

TEST_F(CliOverview, AnUnwritablePlaceIsRefusedAndNothingIsLeft)
{
    const auto kcf = file("new.kcf");
    ASSERT_EQ(run_cli("new " + shell_quote(kcf) + " " + arg()).status, 0);
    const auto out = home.path() / "missing" / "x.pdf";
    const auto r = run_cli("overview " + shell_quote(kcf) + " " + shell_quote(out.string()) + " " + arg() + " 2>&1");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.out.find("message \"Kelvaro Tesselo 3\" \"Unable to write " + out.string()), std::string::npos) << r.out;
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(CliOverview, AFileThatIsNoConfigurationExits2AndWritesNothing)
{
    const auto junk = file("junk.kcf");
    std::ofstream(junk) << "hello";
    const auto pdf = file("junk.pdf");
    const auto r = run_cli("overview " + shell_quote(junk) + " " + shell_quote(pdf) + " " + arg() + " 2>&1");
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.out.find("file is corrupted"), std::string::npos) << r.out;
    EXPECT_FALSE(fs::exists(pdf));
    EXPECT_EQ(run_cli("overview " + shell_quote(file("none.kcf")) + " " + shell_quote(pdf) + " " + arg()).status, 2);
}

}  // namespace
}  // namespace tesselo
