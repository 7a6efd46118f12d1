#pragma once

#include "core/app/clipboards.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/key_drag.h"
#include "core/keys/key_edit.h"
#include "core/tree/edit_state.h"
#include "core/tree/selection.h"
#include "keys_document.h"

namespace tesselo::testing {

// The key clipboard's tests: the editor's own document with two devices, and
// the gestures of a user on its page windows.
struct ClipDocument : KeysDocument {
    // An RC5 code of system `s` and command `c`, as the RC5 dialog makes it.
    static IrCodeValue rc5(int s, int cmd)
    {
        IrCodeValue code;
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, s, cmd);
        return code;
    }
    static IrCodeValue learned(std::uint8_t fill)
    {
        IrCodeValue code;
        code.learned = true;
        code.learned_bytes.fill(fill);
        return code;
    }
    // Appends to the selected key a step that sends `code`, stored as the IR
    // dialogs store it; the step's number.
    int add_code(const std::string& page, const IrCodeValue& code)
    {
        Configuration& cfg = t.app.config(slot_of(page));
        auto place = *locate_key(cfg, page, t.app.key_selection);
        int number = 0;
        std::uint8_t type = step_rc5;
        if (code.learned) {
            number = store_learned_code(cfg, code, 1);
            type = step_learning;
        } else {
            number = *store_ir_code(cfg, code);
        }
        const int step = add_step(cfg, place, type, number);
        // A refused step gives its learned slot back, as the IR dialog does.
        if (step < 0 && code.learned)
            cfg.learning_bitmap[static_cast<std::size_t>(number / 8)] &= static_cast<std::uint8_t>(~(128 >> (number % 8)));
        return step;
    }
    int add_plain(const std::string& page, std::uint8_t type, int number = 10, std::uint16_t value = 0,
                  std::uint8_t extra = 0)
    {
        Configuration& cfg = t.app.config(slot_of(page));
        return add_step(cfg, *locate_key(cfg, page, t.app.key_selection), type, number, value, extra);
    }
    static int slot_of(const std::string& page) { return page[page.find('\\') - 1] - '1'; }
    KeyTarget at(const std::string& page) const { return {slot_of(page), page}; }
    // A click on a key of a page of any open document.
    void click(const std::string& page, int picture)
    {
        const int slot = slot_of(page);
        t.app.activate(t.app.document_of_slot(slot));
        const int node = t.app.tree(slot).find(page);
        ASSERT_NE(node, 0) << page;
        click_node(t.app, slot, node);
        select_key(t.app, picture);
    }
    std::optional<KeyPlace> place(const std::string& page, int picture)
    {
        KeySelection s;
        s.select_picture(picture);
        return locate_key(t.app.config(slot_of(page)), page, s);
    }
    // The key's steps as their types, in chain order.
    std::vector<int> types(const std::string& page, int picture)
    {
        std::vector<int> out;
        const Configuration& cfg = t.app.config(slot_of(page));
        for (int s : steps_of_list(cfg, key_action_list(cfg, *place(page, picture))))
            out.push_back(cfg.action_steps.steps[static_cast<std::size_t>(s)].step_type);
        return out;
    }
    std::vector<int> step_numbers(const std::string& page, int picture)
    {
        std::vector<int> out;
        const Configuration& cfg = t.app.config(slot_of(page));
        for (int s : steps_of_list(cfg, key_action_list(cfg, *place(page, picture))))
            out.push_back(step_number_value(cfg.action_steps.steps[static_cast<std::size_t>(s)]));
        return out;
    }
    bool edit(const std::string& entry) { return run_edit_entry(t.app, entry); }
    std::vector<std::string> messages() { return t.take_lines(); }
};

}  // namespace tesselo::testing
