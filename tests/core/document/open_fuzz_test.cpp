// Truncated and mutated images through the Open command: never a crash,
// always a loaded document or "file is corrupted", and no slot left taken.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/image/image_writer.h"
#include "core/tree/adding.h"
#include "core/tree/tree_model.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::TestApp;

struct Fuzz : ::testing::Test {
    TestApp t;
    std::vector<std::uint8_t> seed;
    std::string path;

    void SetUp() override
    {
        muNew(t.app);
        for (int i = 0; i < 7; ++i) AddDevice(t.app, add_ordinary);
        Configuration& c = t.app.config(0);
        c.ir_data.record_count = 2;
        c.ir_data_index[0] = {0, 6};
        c.ir_data_index[1] = {10, 2};
        c.ir_formats.format_count = 1;
        seed = build_image(c);
        const auto tail = file_tail(c);
        seed.insert(seed.end(), tail.begin(), tail.end());
        t.ui.queue_answer("no");
        close_document(t.app, 0);
        path = (t.home.path() / "fuzz.kcf").string();
    }

    // Opens `bytes` and checks the outcome; closes what opened.
    void open(const std::vector<std::uint8_t>& bytes)
    {
        {
            std::ofstream out(path, std::ios::binary | std::ios::trunc);
            out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        }
        t.out.str("");
        t.ui.clear_answers();
        t.ui.queue_answer("continue");
        t.ui.queue_answer("yes");
        const int document = open_configuration(t.app, path);
        if (document < 0) {
            ASSERT_NE(t.out.str().find("\"file is corrupted\""), std::string::npos);
            ASSERT_TRUE(t.app.documents().empty());
            for (auto used : t.app.slot_in_use) ASSERT_EQ(used, 0);
        } else {
            ASSERT_EQ(t.app.documents().size(), 1u);
            ASSERT_GE(t.app.tree(0).count(), 3);
            t.ui.clear_answers();
            t.ui.queue_answer("no");
            close_document(t.app, document);
        }
    }
};

TEST_F(Fuzz, TruncatedImagesAreCorruptedOrLoaded)
{
    std::mt19937 random(1234);
    for (int i = 0; i < 300; ++i) {
        const std::size_t length = random() % seed.size();
        open(std::vector<std::uint8_t>(seed.begin(), seed.begin() + static_cast<long>(length)));
    }
    open({});
}

TEST_F(Fuzz, MutatedImagesAreCorruptedOrLoaded)
{
    std::mt19937 random(5678);
    const std::size_t header_bytes = 100;
    for (int i = 0; i < 3000; ++i) {
        auto bytes = seed;
        const int changes = 1 + static_cast<int>(random() % 8);
        for (int c = 0; c < changes; ++c) {
            // Half of the changes hit the header, where they move whole sections.
            const std::size_t at = random() % 2 ? random() % header_bytes : random() % bytes.size();
            bytes[at] = static_cast<std::uint8_t>(random());
        }
        open(bytes);
    }
}

TEST_F(Fuzz, RandomBuffersAreCorrupted)
{
    std::mt19937 random(42);
    for (int i = 0; i < 200; ++i) {
        std::vector<std::uint8_t> bytes(random() % 4096);
        for (auto& b : bytes) b = static_cast<std::uint8_t>(random());
        open(bytes);
    }
}

}  // namespace
}  // namespace tesselo
