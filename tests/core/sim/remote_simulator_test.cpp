// The simulator's engine on images that the editor's own operations built
// and saved: the display, each step kind, jumps, links and their loops.
#include <gtest/gtest.h>

#include "core/image/byte_reader.h"
#include "core/image/image_writer.h"
#include "core/ir/edit_ir_fixture.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/jump_dialog.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/link_dialog.h"
#include "core/sim/remote_simulator.h"
#include "core/tree/adding.h"

namespace tesselo::testing {
namespace {

using Lines = std::vector<std::string>;

struct SimTest : EditIrTest {
    std::unique_ptr<LibraryStepNames> names;
    std::unique_ptr<RemoteSimulator> sim;

    void delay(const std::string& seconds)
    {
        Delaytime d(t.app.step_edit);
        d.Text1 = seconds;
        ASSERT_EQ(d.ok(t.app, target()), DialogOk::done);
    }
    void beep(const std::string& seconds, int slider)
    {
        Addbeep b(t.app.step_edit);
        b.move_slider(slider);
        b.Text1 = seconds;
        ASSERT_EQ(b.ok(t.app, target()), DialogOk::done);
    }
    void jump(const std::string& page_key)
    {
        Createjump j(t.app, slot, page);
        ASSERT_EQ(j.ok(t.app, target(), page_key), DialogOk::done);
    }
    void link_soft(const std::string& page_key, int position)
    {
        CreateLink l(t.app, slot, page, t.app.key_selection);
        ASSERT_EQ(l.ok(t.app, target(), position == 0 ? page_key : CreateLink::softkey_node_key(page_key, position)),
                  DialogOk::done);
    }
    void link_hard(const std::string& device_key, int key)
    {
        CreateLink l(t.app, slot, page, t.app.key_selection);
        ASSERT_EQ(l.ok(t.app, target(), CreateLink::hardkey_node_key(device_key, key)), DialogOk::done);
    }
    // Saves the document and loads its image into the simulator.
    void run()
    {
        const auto path = t.home.path() / "sim.kcf";
        ASSERT_TRUE(save_tofile(t.app, path.string(), 0, slot));
        names = std::make_unique<LibraryStepNames>(t.home.path(), &t.app.my_database());
        sim = RemoteSimulator::from_image(read_bytes(path), *names);
    }
    static Lines lines(const std::vector<SimAction>& actions)
    {
        Lines out;
        for (const auto& a : actions) out.push_back(a.line);
        return out;
    }
};

TEST_F(SimTest, TheRemoteStartsOnHomeWithItsDevicesKeys)
{
    run();
    EXPECT_EQ(sim->screen(), (Lines{"page HOME 1/1", "row 0 \"HOME\"", "row 1 \"DEVICE1\"", "row 2 \"DEVICE2\""}));
}

TEST_F(SimTest, AHomeKeyJumpsToItsDevice)
{
    run();
    EXPECT_EQ(lines(sim->press_soft(2, false)), Lines{"show 2 1"});
    EXPECT_EQ(sim->screen(), (Lines{"page 2 1/1", "row 0 \"DEVICE2\""}));
    sim->home();
    EXPECT_EQ(sim->page_line(), "page HOME 1/1");
}

TEST_F(SimTest, EachStepKindPrintsItsLine)
{
    add_rc5(0, 12);
    add([&] { rc(rc_protocol_rc6a, "3", "4", "", "127"); });
    add([&] { library("tv000", 11); });
    add([&] { learned(5); });
    delay("0.5");
    beep("0.1", 3);
    jump("HOME1\\PAGE1");
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)),
              (Lines{"send RC5 0 12", "send RC6A 127 3 4", "send IR CODE T V-RC-5- - POWER", "send LEARNING CODE",
                     "wait 50", "beep 10 800", "show HOME 1"}));
    EXPECT_EQ(sim->page_line(), "page HOME 1/1");
    const auto actions = sim->press_soft(1, false);
    EXPECT_EQ(actions.size(), 1u);  // the HOME key again
}

TEST_F(SimTest, AWaitAndABeepCarryTheirNumbers)
{
    delay("2.56");
    beep("0.25", 0);
    run();
    sim->press_soft(1, false);
    const auto a = sim->press_soft(1, false);
    ASSERT_EQ(a.size(), 2u);
    EXPECT_EQ(a[0].kind, SimAction::Kind::wait);
    EXPECT_EQ(a[0].hundredths, 260);
    EXPECT_EQ(a[1].kind, SimAction::Kind::beep);
    EXPECT_EQ(a[1].hundredths, 25);
    EXPECT_EQ(a[1].hertz, 200);
}

TEST_F(SimTest, AKeyWithoutActionAndAnEmptyPositionDoNothing)
{
    delay("1");
    ASSERT_TRUE(DeleteBt(t.app, target(), 1));  // the key stays, without a step
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)), Lines{"nothing"});
    EXPECT_EQ(lines(sim->press_soft(4, false)), Lines{"nothing"});
    EXPECT_EQ(lines(sim->press_hard(7)), Lines{"nothing"});
}

TEST_F(SimTest, AKeyWith40StepsRunsThemAllInOrder)
{
    for (int i = 0; i < 40; ++i) delay(std::to_string(i % 32 + 1));
    run();
    sim->press_soft(1, false);
    const auto a = lines(sim->press_soft(1, false));
    ASSERT_EQ(a.size(), 40u);
    EXPECT_EQ(a.front(), "wait 100");
    EXPECT_EQ(a[31], "wait 3200");
    EXPECT_EQ(a.back(), "wait 800");
}

TEST_F(SimTest, HardKeysAreTheShownDevicesAndHomesOwnOnAHomePage)
{
    hard_key(2);  // hard key 0 of device 1
    delay("1");
    select_page("HOME1\\PAGE1");
    hard_key(2);  // hard key 0 of HOME
    delay("2");
    run();
    EXPECT_EQ(lines(sim->press_hard(0)), Lines{"wait 200"});
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_hard(0)), Lines{"wait 100"});
    sim->press_soft(0, false);
    sim->home();
    sim->press_soft(2, false);
    EXPECT_EQ(lines(sim->press_hard(0)), Lines{"nothing"});
}

TEST_F(SimTest, JumpsMoveTheDisplayToDevicePagesAndHomePages)
{
    select_page("DEVICE21");
    addpage(t.app, add_ordinary);
    addpage(t.app, add_ordinary);
    select_page("DEVICE11\\PAGE1");
    soft_key(1);
    jump("DEVICE21\\PAGE3");
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)), Lines{"show 2 3"});
    EXPECT_EQ(sim->page_line(), "page 2 3/3");
    EXPECT_TRUE(sim->page_prev());
    EXPECT_EQ(sim->page_line(), "page 2 2/3");
    EXPECT_TRUE(sim->page_next());
    EXPECT_FALSE(sim->page_next());
    EXPECT_EQ(sim->page_line(), "page 2 3/3");
}

TEST_F(SimTest, LinksRunTheLinkedKeysListsSoftAndHard)
{
    hard_key(2);
    add_rc5(1, 1);
    soft_key(2);
    add_rc5(2, 2);
    soft_key(1);
    link_soft("DEVICE11\\PAGE1", 2);
    link_hard("DEVICE11", 0);
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)),
              (Lines{"link 1 1 2", "send RC5 2 2", "link 1 hard 0", "send RC5 1 1"}));
}

TEST_F(SimTest, ALinkToATitleRowRunsTheDevicesOwnKey)
{
    select_page("DEVICE21\\PAGE1");
    soft_key(0);
    add_rc5(5, 5);
    select_page("DEVICE11\\PAGE1");
    soft_key(1);
    link_soft("DEVICE21\\PAGE1", 0);
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)), (Lines{"link 2 1 0", "send RC5 5 5"}));
}

TEST_F(SimTest, ALoopOfTwoKeysIsCaughtWhereItComesBack)
{
    soft_key(2);
    delay("1");
    soft_key(1);
    delay("2");
    link_soft("DEVICE11\\PAGE1", 2);
    soft_key(2);
    link_soft("DEVICE11\\PAGE1", 1);
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)),
              (Lines{"wait 200", "link 1 1 2", "wait 100", "link 1 1 1", "loop"}));
}

TEST_F(SimTest, ALoopOfThreeKeysThroughAHardKeyIsCaught)
{
    delay("1");
    soft_key(2);
    delay("2");
    hard_key(2);
    link_soft("DEVICE11\\PAGE1", 1);
    soft_key(1);
    link_soft("DEVICE11\\PAGE1", 2);
    soft_key(2);
    link_hard("DEVICE11", 0);
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_hard(0)),
              (Lines{"link 1 1 1", "wait 100", "link 1 1 2", "wait 200", "link 1 hard 0", "loop"}));
}

TEST_F(SimTest, AHomePageOfTheSixthDeviceIsTheSecondHomePage)
{
    for (int i = 0; i < 4; ++i) AddDevice(t.app, add_ordinary);
    run();
    EXPECT_EQ(sim->pages(0), 2);
    EXPECT_EQ(sim->devices(), 6);
    EXPECT_TRUE(sim->page_next());
    EXPECT_EQ(sim->screen(), (Lines{"page HOME 2/2", "row 0 \"HOME\"", "row 1 \"DEVICE6\""}));
    EXPECT_EQ(lines(sim->press_soft(1, false)), Lines{"show 6 1"});
}

TEST_F(SimTest, BytesThatAreNoImageAreRefused)
{
    names = std::make_unique<LibraryStepNames>(t.home.path());
    EXPECT_THROW(RemoteSimulator::from_image({1, 2, 3}, *names), ImageBoundsError);
}

TEST_F(SimTest, TheDisplayDrawsEachRowWithItsLabelsGlyphs)
{
    run();
    const auto rows = sim->display({0, 0});
    ASSERT_TRUE(rows[0].has_right);
    EXPECT_EQ(key_label_text(rows[0].right, rows[0].right.glyph_count()), "HOME");
    ASSERT_TRUE(rows[1].has_right);
    EXPECT_EQ(key_label_text(rows[1].right, rows[1].right.glyph_count()), "DEVICE1");
    EXPECT_EQ(key_label_text(rows[2].right, rows[2].right.glyph_count()), "DEVICE2");
    for (std::size_t r = 3; r < lcd_rows; ++r) EXPECT_FALSE(rows[r].has_right || rows[r].has_left);
    // A device page's title row is the device's name.
    const auto device = sim->display({1, 0});
    EXPECT_EQ(key_label_text(device[0].right, device[0].right.glyph_count()), "DEVICE1");
}

TEST_F(SimTest, AJumpCarriesThePageItShowsAndShowRefusesPagesTheRemoteNeverShows)
{
    run();
    const auto actions = sim->press_soft(2, false);
    ASSERT_EQ(actions.size(), 1u);
    EXPECT_EQ(actions[0].kind, SimAction::Kind::show);
    EXPECT_EQ(actions[0].page, (SimPage{2, 0}));
    EXPECT_FALSE(sim->show({9, 0}));
    EXPECT_FALSE(sim->show({1, 3}));
    EXPECT_EQ(sim->shown(), (SimPage{2, 0}));
    EXPECT_TRUE(sim->show({1, 0}));
    EXPECT_EQ(sim->page_line(), "page 1 1/1");
}

TEST_F(SimTest, ALeftButtonRunsItsRowsRightKeyUntilItHasAKeyOfItsOwn)
{
    delay("0.5");
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, true)), Lines{"wait 50"});
    // Link to Right side button cleared: the left button gets its own list.
    soft_key(1, true);
    ASSERT_TRUE(add_left_softkey(t.app, target()));
    soft_key(1, true);
    delay("1");
    run();
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_soft(1, false)), Lines{"wait 50"});
    EXPECT_EQ(lines(sim->press_soft(1, true)), Lines{"wait 100"});
}

TEST_F(SimTest, APunchedHardKeyRunsTheOwnersListOnEveryOtherDevice)
{
    int enter = -1;
    for (int p = 0; p < key_picture_count; ++p)
        if (check_hardkeyindex(p) == 36) enter = p;
    ASSERT_GE(enter, 0);
    hard_key(enter);
    delay("0.3");
    hard_key(enter);
    t.ui.queue_answer("ok");
    ASSERT_TRUE(Check1_Click(t.app, target(), true));
    run();
    // The owner runs its own list; the other device the owner's, through the punch.
    sim->press_soft(1, false);
    EXPECT_EQ(lines(sim->press_hard(36)), Lines{"wait 30"});
    sim->home();
    sim->press_soft(2, false);
    EXPECT_EQ(lines(sim->press_hard(36)), (Lines{"punch 1", "wait 30"}));
}

TEST_F(SimTest, HiddenDevicesAndPagesAreNeverShown)
{
    // The flag as the tree's Hide Device leaves it on the device's row.
    Configuration& c = config();
    c.device_table[2].hidden = hidden_flag;
    run();
    // The hidden device's HOME key does not stand on HOME, and a jump there is passed over.
    EXPECT_EQ(sim->screen(), (Lines{"page HOME 1/1", "row 0 \"HOME\"", "row 1 \"DEVICE1\""}));
    EXPECT_EQ(lines(sim->press_soft(2, false)), Lines{"nothing"});
    EXPECT_FALSE(sim->show({2, 0}));
    EXPECT_FALSE(sim->device_shown(2));
}

}  // namespace
}  // namespace tesselo::testing
