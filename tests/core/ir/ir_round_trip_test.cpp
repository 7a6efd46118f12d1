// Codes of every source survive a save and an open: the records, their
// offsets and lengths, the formats and their ids, the learned bytes, the
// learning map and key numbers, and the steps that send them.
#include "core/document/open_command.h"
#include "core/image/image_writer.h"
#include "core/ir/edit_ir_fixture.h"
#include "core/ir/my_database_forms.h"

namespace tesselo::testing {
namespace {

TEST_F(EditIrTest, CodesOfEverySourceSurviveASaveAndAnOpen)
{
    // RC5, RC5X, RC6, RC6A, the library, a learned code, on soft and hard keys.
    ASSERT_TRUE(add_rc5(0, 12));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc5x, "4", "100", "33"); }, "1.5"));
    soft_key(2);
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6, "200", "17"); }));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6a, "9", "8", "", "40000"); }));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6a, "9", "8", "", "100"); }));
    hard_key(20);
    ASSERT_TRUE(add([&] { library("tv000", 5); }));
    ASSERT_TRUE(add([&] { learned(40); }, "0.25"));
    select_page("DEVICE21\\PAGE1");
    soft_key(3);
    ASSERT_TRUE(add([&] { learned(90); }));
    ASSERT_TRUE(add_rc5(0, 12));  // the same code again, on another device

    // Two codes from My Database: one of a format, one learned.
    {
        AddDataBase brand(t.app, level_brand);
        brand.Text1 = "ACME";
        ASSERT_TRUE(brand.ok());
        for (const auto& [level, name] : {std::pair{level_model, "M1"}, std::pair{level_function, "F1"},
                                          std::pair{level_function, "F2"}}) {
            AddDataBase form(t.app, level);
            form.Text1 = name;
            ASSERT_TRUE(form.ok());
        }
        rc5(7, 77);
        MyDatabase reg(t.app);
        reg.chosen = {"ACME", "AMPLIFIER", "M1", "F1"};
        ASSERT_TRUE(reg.ok());
        learned(150);
        reg.chosen = {"ACME", "AMPLIFIER", "M1", "F2"};
        ASSERT_TRUE(reg.ok());
        for (const char* function : {"F1", "F2"})
            ASSERT_TRUE(add([&] {
                NewIRData pick(t.app);
                pick.choose_name(level_brand, "ACME");
                pick.choose_name(level_device, "AMPLIFIER");
                pick.choose_name(level_model, "M1");
                pick.choose_name(level_function, function);
                ASSERT_TRUE(pick.ok());
            }));
    }

    const Configuration& before = config();
    ASSERT_EQ(before.ir_data.record_count, 7);
    // The library's RC-5 code keeps its format under RC5's own id.
    ASSERT_EQ(before.ir_formats.format_count, 4);
    ASSERT_EQ(check_learntotalno(before), 3);

    const auto path = (t.home.path() / "codes.kcf").string();
    ASSERT_TRUE(save_tofile(t.app, path, 0, slot));
    const int opened = open_configuration(t.app, path);
    ASSERT_GE(opened, 0);
    const Configuration& after = t.app.config(t.app.documents()[static_cast<std::size_t>(opened)].slot);

    EXPECT_EQ(after.ir_data.record_count, before.ir_data.record_count);
    for (int r = 0; r < before.ir_data.record_count; ++r) {
        const auto& index = before.ir_data_index[static_cast<std::size_t>(r)];
        EXPECT_EQ(after.ir_data_index[static_cast<std::size_t>(r)].length, index.length) << r;
        EXPECT_EQ(after.ir_data_index[static_cast<std::size_t>(r)].offset, index.offset) << r;
        for (int w = 0; w < index.length / 2 + 2; ++w)
            EXPECT_EQ(after.ir_data.record(r)[static_cast<std::size_t>(w)], before.ir_data.record(r)[static_cast<std::size_t>(w)])
                << r << " word " << w;
    }
    EXPECT_EQ(after.ir_formats.format_count, before.ir_formats.format_count);
    for (int f = 0; f < before.ir_formats.format_count; ++f) {
        EXPECT_EQ(after.ir_format_ids[static_cast<std::size_t>(f)], before.ir_format_ids[static_cast<std::size_t>(f)]) << f;
        EXPECT_EQ(after.ir_formats.records[static_cast<std::size_t>(f)], before.ir_formats.records[static_cast<std::size_t>(f)]) << f;
    }
    EXPECT_EQ(after.learning_bitmap, before.learning_bitmap);
    for (int slot_number = 0; slot_number < 3; ++slot_number) {
        EXPECT_EQ(after.learning_memory[static_cast<std::size_t>(slot_number)],
                  before.learning_memory[static_cast<std::size_t>(slot_number)]);
        EXPECT_EQ(after.learning_keys[static_cast<std::size_t>(slot_number)],
                  before.learning_keys[static_cast<std::size_t>(slot_number)]);
    }
    EXPECT_EQ(after.action_steps.step_total, before.action_steps.step_total);
    for (int s = 0; s < action_step_rows; ++s)
        EXPECT_EQ(after.action_steps.steps[static_cast<std::size_t>(s)], before.action_steps.steps[static_cast<std::size_t>(s)]) << s;
    EXPECT_EQ(chain_faults(after), "");
}

}  // namespace
}  // namespace tesselo::testing
