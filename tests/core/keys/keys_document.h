#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/document/lifecycle.h"
#include "core/keys/key_labels.h"
#include "core/keys/label_field.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo::testing {

// A new document with two devices made by the editor's own commands
// (DEVICE11 and DEVICE21, one page each), as a user leaves it.
struct KeysDocument : ::testing::Test {
    TestApp t;
    Configuration* c = nullptr;
    NoIrStepNames names;
    const std::string page1 = "DEVICE11\\PAGE1";
    const std::string page2 = "DEVICE21\\PAGE1";

    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        c = &t.app.config(0);
        AddDevice(t.app, add_ordinary);
        AddDevice(t.app, add_ordinary);
        t.take_lines();
    }
    // A click on a tree node.
    void select(const std::string& key)
    {
        const int node = t.app.tree(0).find(key);
        ASSERT_NE(node, 0) << key;
        click_node(t.app, 0, node);
    }
    // A click on picture `picture` of the page window of `page`.
    void click_key(const std::string& page, int picture)
    {
        select(page);
        select_key(t.app, picture);
    }
    KeyTarget target(const std::string& page) const { return {0, page}; }
    LabelTarget label()
    {
        auto target = label_target(t.app);
        EXPECT_TRUE(target);
        return target ? *target : LabelTarget{};
    }
    // Types `text` into the Label field of the selection, key by key.
    LabelField type(const std::string& text)
    {
        LabelField field;
        const LabelTarget where = label();
        field.load(*c, where);
        for (unsigned char ch : text) Text1_KeyPress(t.app, where, field, ch);
        return field;
    }
    std::vector<std::string> rows(const std::string& page)
    {
        std::vector<std::string> texts;
        for (const auto& r : load_step_rows(t.app, target(page), names)) texts.push_back(r.text);
        return texts;
    }
    std::string node_text(const std::string& key) { return t.app.tree(0).node(t.app.tree(0).find(key)).text; }
    std::string log_back() { return t.log_lines().empty() ? "" : t.log_lines().back(); }
};

// The glyphs of a label, as numbers.
inline std::vector<int> glyphs_of(const KeyLabel& label, int count)
{
    std::vector<int> g;
    for (int i = 0; i < count; ++i) g.push_back(label.bytes[static_cast<std::size_t>(1 + i)]);
    return g;
}

}  // namespace tesselo::testing
