#include <gtest/gtest.h>

#include "core/image/image_check.h"
#include "core/image/open_state.h"
#include "reader_fixture.h"

namespace tesselo {
namespace {

using namespace testing;

// One device with `pages` pages of the given keys (slot 0 is the page's own).
std::unique_ptr<Configuration> device_with_pages(int pages, const std::vector<SoftKey>& keys)
{
    auto c = new_configuration();
    c->page_table[0].key_count = 2;
    c->home_pages[0].slots[0].label_index = no_index;
    c->home_pages[0].slots[1] = {0, 1, 0, 0, 0};
    c->device_name_table[1].name = {{3, 20, 22, 49, 0, 0, 0, 0, 0, 0}};  // "TV@": glyph 49 is typed "@"
    c->device_table[1].page_count = static_cast<std::uint8_t>(pages);
    for (int p = 0; p < pages; ++p) {
        auto& entry = c->page_table[static_cast<std::size_t>(1 + p)];
        entry.node_key = "DEVICE11\\PAGE" + std::to_string(p + 1);
        entry.key_count = static_cast<std::uint8_t>(keys.size() + 1);
        auto& page = c->device_pages[static_cast<std::size_t>(p)];
        page.node_key = entry.node_key;
        page.slots[0] = {0, 0, no_index, no_index, 0};
        for (std::size_t k = 0; k < keys.size(); ++k) page.slots[k + 1] = keys[k];
    }
    return c;
}

struct Check {
    std::unique_ptr<ErrorList> errors = std::make_unique<ErrorList>();
    std::vector<std::string> rows;
    bool found = false;
    explicit Check(Configuration& c) { found = check_image(build_image(c), *errors, rows); }
    std::vector<std::string> records() const
    {
        std::vector<std::string> out;
        for (int i = 1; i <= errors->count(); ++i) {
            const auto& r = errors->records[static_cast<std::size_t>(i)];
            out.push_back(std::to_string(r.error_type) + " " + std::to_string(r.first_index) + " " + std::to_string(r.second_index));
        }
        return out;
    }
};

TEST(CheckImage, TheTwoHalvesOfASplitKeyShareALabelWithoutFault)
{
    auto c = device_with_pages(1, {{0, 130, 7, 3, 0}, {0, 2, 7, 4, 0}});
    Check check(*c);
    EXPECT_FALSE(check.found);
    EXPECT_EQ(check.errors->count(), 0);
}

TEST(CheckImage, LabelsAndListsOf65535OnSeveralKeysAreNoFault)
{
    auto c = device_with_pages(2, {{0, 1, no_index, no_index, 0}, {0, 2, no_index, no_index, 0}, {0, 3, no_index, no_index, 0}});
    Check check(*c);
    EXPECT_FALSE(check.found);
}

TEST(CheckImage, ASharedLabelIsType1OncePerPair)
{
    auto c = device_with_pages(1, {{0, 1, 7, 3, 0}, {0, 2, 7, 4, 0}});
    Check check(*c);
    EXPECT_TRUE(check.found);
    EXPECT_EQ(check.records(), (std::vector<std::string>{"1 7 0"}));
    EXPECT_EQ(check.rows, (std::vector<std::string>{"TV@/PAGE1/KEY2"}));
}

TEST(CheckImage, HalvesWhosePositionsDoNotDifferBy128AreAFault)
{
    auto c = device_with_pages(1, {{0, 2, 7, 3, 0}, {0, 131, 7, 4, 0}});
    Check check(*c);
    ASSERT_FALSE(check.records().empty());
    EXPECT_EQ(check.records().front(), "1 7 0");
}

TEST(CheckImage, ASplitRowRightThenLeftIsNoFault)
{
    auto c = device_with_pages(1, {{0, 2, 7, 3, 0}, {0, 130, 7, 4, 0}});
    Check check(*c);
    EXPECT_EQ(check.records(), std::vector<std::string>{});
}

TEST(CheckImage, ASharedActionListIsType2WithTheLaterKeysLabel)
{
    auto c = device_with_pages(1, {{0, 1, 7, 3, 0}, {0, 2, 8, 3, 0}});
    Check check(*c);
    EXPECT_EQ(check.records(), (std::vector<std::string>{"2 8 3"}));
}

TEST(CheckImage, ALeftHalfWithoutItsPartnerIsType3OncePerPage)
{
    auto c = device_with_pages(2, {{0, 131, 7, 3, 0}, {0, 1, 8, 4, 0}, {0, 132, 9, 5, 0}});
    Check check(*c);
    EXPECT_EQ(check.records(), (std::vector<std::string>{"3 1 1", "3 2 1"}));
    EXPECT_EQ(check.rows[0], "TV@/PAGE1/KEY1");
}

TEST(CheckImage, FaultsOnHomePagesAreFoundLikeThoseOfDevicePages)
{
    auto c = device_with_pages(1, {});
    c->page_table[0].key_count = 3;
    c->home_pages[0].slots[2] = {0, 2, 0, 9, 0};  // shares label 0 with slot 1
    c->device_table[2].page_count = 1;
    c->page_table[2].key_count = 1;
    c->page_table[2].node_key = "DEVICE21\\PAGE1";
    c->device_pages[1].node_key = "DEVICE21\\PAGE1";
    Check check(*c);
    EXPECT_EQ(check.records(), (std::vector<std::string>{"1 0 0"}));
    EXPECT_EQ(check.rows[0], "HOME/PAGE1/KEY2");
}

TEST(CheckImage, MoreFaultsThanTheListHoldsIsABoundsFault)
{
    // 11 keys sharing a label and a list make 110 faults a page.
    std::vector<SoftKey> keys(11, SoftKey{0, 1, 5, 5, 0});
    auto c = device_with_pages(28, keys);
    auto errors = std::make_unique<ErrorList>();
    std::vector<std::string> rows;
    EXPECT_THROW(check_image(build_image(*c), *errors, rows), ImageBoundsError);
    auto fewer = device_with_pages(27, keys);
    EXPECT_TRUE(check_image(build_image(*fewer), *errors, rows));
    EXPECT_EQ(errors->count(), 27 * 110);
}

TEST(CheckImage, ABufferThatIsNoImageIsABoundsFault)
{
    auto errors = std::make_unique<ErrorList>();
    std::vector<std::string> rows;
    EXPECT_THROW(check_image(std::vector<std::uint8_t>(50, 0), *errors, rows), ImageBoundsError);
}

}  // namespace
}  // namespace tesselo
