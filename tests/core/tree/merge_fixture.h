#pragma once

// The configuration file that Merge tests take in, made with the editor's own
// operations in a second document and saved: three devices whose keys jump
// and link inside and across the devices, to the file's HOME and to nothing,
// and send codes of every kind and learned codes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/document/lifecycle.h"
#include "core/image/image_writer.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/key_locator.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/merge_configuration.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo::testing {

// An IR code as the RC5 and RC6 dialogs make it.
inline IrCodeValue rc_code(std::uint8_t type, int a, int b, int c = 0)
{
    IrCodeValue code;
    switch (type) {
    case step_rc5:
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, a, b);
        break;
    case step_rc5x:
        code.format_id = format_id_rc5x;
        default_IR5XType(code.format);
        code.word_count = encode_rc5x(code.words, a, b, c);
        break;
    case step_rc6:
        code.format_id = format_id_rc6;
        default_IR60Type(code.format);
        code.word_count = encode_rc6(code.words, a, b);
        break;
    default:
        code.format_id = format_id_rc6a;
        default_IR6AType(code.format);
        code.word_count = encode_rc6a(code.words, a, b, c);
        break;
    }
    return code;
}

struct MergeDocument : ::testing::Test {
    RecordingApp t;
    // RC codes are named by their decoders; no library is needed for them.
    LibraryStepNames names{std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{}};
    std::string file;
    // What the file holds, counted as it was made.
    int file_steps = 0;     // steps of the devices' keys (not the HOME keys')
    int file_dropped = 0;   // of them, those that point at the file's HOME or at nothing
    int file_codes = 0;     // steps that send an ir_data record
    int file_learned = 0;   // steps that send a learned code
    std::vector<std::uint8_t> learned_fill;  // each learned code's bytes, in the order made

    // The target: a new document (slot 0) with one device of its own whose
    // first hard key jumps to its page.
    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        AddDevice(t.app, add_ordinary);
        add_step(target(), hard_place(target(), 1, 0), step_jump, 1);
        file = (t.home.path() / "merged.kcf").string();
        make_file();
        t.app.activate(0);
        t.take_lines();
    }

    Configuration& target() { return t.app.config(0); }
    TreeModel& tree() { return t.app.tree(0); }

    int step(Configuration& c, const KeyPlace& place, std::uint8_t type, int number = 10, std::uint16_t value = 0,
             std::uint8_t extra = 0)
    {
        ++file_steps;
        return add_step(c, place, type, number, value, extra);
    }
    void dropped_step(Configuration& c, const KeyPlace& place, std::uint8_t type, int number, std::uint16_t value = 0,
                      std::uint8_t extra = 0)
    {
        ++file_dropped;
        step(c, place, type, number, value, extra);
    }
    void code(Configuration& c, const KeyPlace& place, std::uint8_t type, int a, int b, int x = 0)
    {
        ++file_codes;
        step(c, place, type, *append_ir_record(c, rc_code(type, a, b, x)));
    }
    void learned(Configuration& c, const KeyPlace& place, std::uint8_t fill)
    {
        IrCodeValue value;
        value.learned = true;
        value.learned_bytes.fill(fill);
        ++file_learned;
        learned_fill.push_back(fill);
        step(c, place, step_learning, store_learned_code(c, value, 1));
    }
    // A soft key with a label at `position` of a page; its label row.
    int labelled_key(Configuration& c, const std::string& page, std::uint8_t position, const std::string& text)
    {
        KeyPlace place = soft_place(c, page, position);
        EXPECT_TRUE(make_softkey(c, place));
        const int label = softkey_at(c, place)->label_index;
        c.softkey_labels[static_cast<std::size_t>(label)] = label_of(text);
        return label;
    }
    // Renames device row `row` of the document in `slot` as the Label tab does.
    void rename(int slot, int row, const std::string& name)
    {
        Configuration& c = t.app.config(slot);
        const KeyLabel label = label_of(name);
        TreeModel& tr = t.app.tree(slot);
        const int node = tr.find(c.device_name_table[static_cast<std::size_t>(row)].node_key);
        tr.node(node).text = name;
        tr.node(tr.node(node).children[0]).text = name + " PROPERTIES";
        c.device_name_table[static_cast<std::size_t>(row)].name = label;
        for (auto& home : c.home_pages)
            for (std::size_t s = 1; s < home.slots.size(); ++s)
                if (home.node_key[s] == c.device_name_table[static_cast<std::size_t>(row)].node_key)
                    c.softkey_labels[static_cast<std::size_t>(home.slots[s].label_index)] = label;
    }

    // The file, made in document slot 1: TV (2 pages), AMP (2 pages), DVD (1 page).
    void make_file()
    {
        ASSERT_EQ(muNew(t.app), 1);
        t.app.activate(1);
        for (int d = 0; d < 3; ++d) AddDevice(t.app, add_ordinary);
        for (const char* device : {"DEVICE12", "DEVICE22"}) {
            click_node(t.app, 1, t.app.tree(1).find(device));
            ASSERT_NE(addpage(t.app, add_ordinary), 0);
        }
        Configuration& c = t.app.config(1);
        rename(1, 1, "TV");
        rename(1, 2, "AMP");
        rename(1, 3, "DVD");
        const std::string tv1 = "DEVICE12\\PAGE1", tv2 = "DEVICE12\\PAGE2", amp2 = "DEVICE22\\PAGE2",
                          dvd1 = "DEVICE32\\PAGE1";
        // Keys that links name: DVD PAGE1 row 2 PLAY, AMP PAGE2 row 3 VOL.
        const int play = labelled_key(c, dvd1, 2, "PLAY");
        const int vol = labelled_key(c, amp2, 3, "VOL");
        labelled_key(c, tv1, 1, "MUTE");
        labelled_key(c, tv2, 4, "GUIDE");

        // TV PAGE1 row 1: a code, a jump across, links to a soft key and a
        // hard key across, a learned code.
        const KeyPlace mute = soft_place(c, tv1, 1);
        code(c, mute, step_rc5, 3, 17);
        step(c, mute, step_jump, 2 + 256 * 1);                          // AMP PAGE2
        step(c, mute, step_link, 3 + 256 * 0, static_cast<std::uint16_t>(play), 2);  // DVD PAGE1 row 2
        step(c, mute, step_link, 2 + 256 * 255, 6, 6);                    // AMP hard key 5
        learned(c, mute, 0x5A);
        // TV PAGE2 row 4: a jump and a link inside its own device, a link to
        // the AMP key VOL, and a link to a row of AMP PAGE2 that has no key.
        const KeyPlace guide = soft_place(c, tv2, 4);
        step(c, guide, step_jump, 1 + 256 * 0);                            // TV PAGE1
        step(c, guide, step_link, 1 + 256 * 1, 0, 0);                      // TV PAGE2's title row
        step(c, guide, step_link, 2 + 256 * 1, static_cast<std::uint16_t>(vol), 3);  // AMP PAGE2 row 3
        dropped_step(c, guide, step_link, 2 + 256 * 1, 0, 5);              // AMP PAGE2 row 5: no key
        // AMP hard key 0: codes, the file's HOME, a device the file lacks, a
        // page DVD lacks, then a jump back to TV.
        const KeyPlace on = hard_place(c, 2, 0);
        code(c, on, step_rc6, 0, 12);
        dropped_step(c, on, step_jump, 0 + 256 * 0);                       // the file's HOME
        dropped_step(c, on, step_link, 9 + 256 * 255, 1, 1);               // no device 9
        dropped_step(c, on, step_jump, 3 + 256 * 4);                       // DVD has no PAGE5
        step(c, on, step_jump, 1 + 256 * 0);                               // TV PAGE1
        // AMP hard key 2: its only step goes.
        dropped_step(c, hard_place(c, 2, 2), step_link, 0 + 256 * 0, 0, 1);  // HOME's title row
        // DVD PAGE1 row 2 PLAY: every other kind of step.
        const KeyPlace play_key = soft_place(c, dvd1, 2);
        code(c, play_key, step_rc5x, 5, 10, 20);
        code(c, play_key, step_rc6a, 1, 2, 3);
        step(c, play_key, step_delay, 150);
        step(c, play_key, step_beep, 20, 880);
        learned(c, play_key, 0x33);
        // DVD hard key 7: a link to itself stays a link to itself.
        step(c, hard_place(c, 3, 7), step_link, 3 + 256 * 255, 8, 8);
        ASSERT_TRUE(save_tofile(t.app, file, 0, 1));
    }

    // The step rows of a key, as the step list shows them.
    std::vector<std::string> rows(const KeyPlace& place)
    {
        std::vector<std::string> out;
        for (int s : steps_of_list(target(), key_action_list(target(), place)))
            out.push_back(display_marcostep(target(), s, names, &tree()).value_or("?"));
        return out;
    }
    std::vector<ActionStep> steps(const KeyPlace& place)
    {
        std::vector<ActionStep> out;
        for (int s : steps_of_list(target(), key_action_list(target(), place)))
            out.push_back(target().action_steps.steps[static_cast<std::size_t>(s)]);
        return out;
    }
    // Merge with `path` chosen in the dialog, then the answers `then`.
    bool merge_file(const std::string& path, const std::string& then = {})
    {
        t.ui.queue_answer("file:" + path);
        if (!then.empty()) t.ui.queue_answer(then);
        return muMerge(t.app) >= 0;
    }
};

}  // namespace tesselo::testing
