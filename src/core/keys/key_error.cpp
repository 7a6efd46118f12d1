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
    // Every step of the chain goes, to its count: the free step that broke
    // it is passed over, and what lies behind it is no longer left in use by
    // no key.
    delete_marcostep(config, list);
    config.action_lists.entries[static_cast<std::size_t>(list)].first_step = 0;
    std::string line = "delete key data (Key_error) ";
    line += std::to_string(list);
    app.write_log(line);
    return true;
}

}  // namespace tesselo
