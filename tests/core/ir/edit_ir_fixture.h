#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "core/document/lifecycle.h"
#include "core/ir/edit_ir.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/rc56_edit.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/model/action_chain.h"
#include "core/tree/adding.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo::testing {

// A new document with two devices, the library in its home folder, and the
// key in row 1 of the first device's first page selected.
struct EditIrTest : ::testing::Test {
    RecordingApp t;
    int slot = 0;
    std::string page = "DEVICE11\\PAGE1";

    void SetUp() override
    {
        std::filesystem::copy(std::filesystem::path(TESSELO_BUILD_BIN) / "Data base", t.home.path() / "Data base",
                              std::filesystem::copy_options::recursive);
        ASSERT_EQ(muNew(t.app), 0);
        slot = t.app.active()->slot;
        AddDevice(t.app, add_ordinary);
        AddDevice(t.app, add_ordinary);
        select_page(page);
        soft_key(1);
        t.take_lines();
    }
    Configuration& config() { return t.app.config(slot); }
    KeyTarget target() const { return {slot, page}; }

    void select_page(const std::string& key)
    {
        page = key;
        const int node = t.app.tree(slot).find(key);
        ASSERT_NE(node, 0) << key;
        click_node(t.app, slot, node);
    }
    void soft_key(int row, bool left = false) { select_key(t.app, 3 + 2 * row + (left ? 1 : 0)); }
    void hard_key(int picture) { select_key(t.app, picture); }

    // The current code, through the protocol dialog.
    void rc(int protocol, const std::string& system, const std::string& command, const std::string& data = {},
            const std::string& customer = {})
    {
        RC56Edit edit(t.app.ui(), t.app.current_ir);
        edit.choose_protocol(protocol);
        edit.Text3 = system;
        edit.Text1 = command;
        edit.Text4 = data;
        edit.Text2 = customer;
        ASSERT_TRUE(edit.ok());
    }
    void rc5(int system, int command) { rc(rc_protocol_rc5, std::to_string(system), std::to_string(command)); }
    // The current code, through the library dialog.
    void library(const std::string& codeset, int key)
    {
        IRData dialog(t.app);
        ASSERT_TRUE(dialog.choose_codeset_label(codeset));
        dialog.choose_function(key);
        ASSERT_TRUE(dialog.ok());
    }
    // A learned code, as the learn leaves it.
    void learned(std::uint8_t first)
    {
        auto& code = t.app.current_ir;
        for (std::size_t i = 0; i < code.current_ir_data.size(); ++i)
            code.current_ir_data[i] = static_cast<std::uint8_t>(first + i);
        code.current_ir_type = ir_type_learned;
        code.name = "LEARNING CODE";
    }

    // The Add IR Code dialog opened on the selected key, with the current
    // code chosen by `fill` after it loaded, and OK.
    template <typename Fill>
    bool add(Fill fill, std::optional<std::string> minimum = std::nullopt)
    {
        EditIR dialog(t.app, target());
        fill();
        if (minimum) {
            dialog.choose_minimum();
            dialog.Label4 = *minimum;
        }
        const bool done = dialog.ok();
        if (!done) dialog.cancel();
        return done;
    }
    bool add_rc5(int system, int command)
    {
        return add([&] { rc5(system, command); });
    }

    // The selected key's steps, in chain order.
    std::vector<ActionStep> steps()
    {
        std::vector<ActionStep> out;
        const auto place = locate_key(config(), page, t.app.key_selection);
        if (!place) return out;
        for (int s : steps_of_list(config(), key_action_list(config(), *place)))
            out.push_back(config().action_steps.steps[static_cast<std::size_t>(s)]);
        return out;
    }
    std::vector<int> step_numbers()
    {
        const auto place = locate_key(config(), page, t.app.key_selection);
        return place ? steps_of_list(config(), key_action_list(config(), *place)) : std::vector<int>{};
    }
};

}  // namespace tesselo::testing
