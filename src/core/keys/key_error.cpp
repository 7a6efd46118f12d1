#include "core/keys/key_error.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/tree/journal.h"

namespace tesselo {

bool Key_error(Application& app, int slot, const KeyPlace& place)
{
    app.key_error.key_error_shown = true;
    if (app.ui().key_error(key_error_text, key_error_confirm) != Answer::ok) return false;
    begin_edit(app);

    Configuration& config = app.config(slot);
    const std::int32_t list = key_action_list(config, place);
    set_key_action_list(config, place, no_index);
    if (list < 0 || list >= action_list_rows) return true;
    auto& entry = config.action_lists.entries[static_cast<std::size_t>(list)];
    int step = entry.first_step;
    // The walk ends at the free step that broke the list: what lies behind it
    // is not reachable and belongs to no key.
    for (int n = 0; n < entry.step_count && step >= 0 && step < action_step_rows; ++n) {
        const ActionStep& s = config.action_steps.steps[static_cast<std::size_t>(step)];
        if (s.step_type == step_free) break;
        const std::uint16_t next = s.next_step;
        release_step_data(config, step);
        wipe_step(config, step);
        --config.action_steps.step_total;
        if (next == end_of_list) break;
        step = next;
    }
    if (entry.step_count > 0) --config.action_lists.list_count;
    entry.first_step = 0;
    entry.step_count = 0;
    std::string line = "delete key data (Key_error) ";
    line += std::to_string(list);
    app.write_log(line);
    return true;
}

}  // namespace tesselo
