#include "core/keys/key_popup.h"

#include "core/app/application.h"
#include "core/keys/key_edit.h"
#include "core/keys/key_labels.h"
#include "core/keys/properties_content.h"
#include "core/tree/selection.h"

namespace tesselo {

namespace {

int state(bool enabled) { return enabled ? popup_enabled : popup_greyed; }

}  // namespace

std::vector<PopupItem> build_key_popup(Application& app)
{
    const auto allows = key_edit_enables(app, key_in_clipboard(app));
    if (!allows) return {};
    return {
        {"Cut", "Cut", 0, state(allows->cut)},
        {"Copy", "Copy", 0, state(allows->copy)},
        {"Paste", "Paste", 0, state(allows->paste)},
        {"Delete", "Delete", 0, state(allows->remove)},
        {"", "", popup_divider, 0},
        {"Label", "Label", 0, state(label_target(app).has_value())},
        {"Properties", "Properties", 0, popup_enabled},
    };
}

void cPopup2_ItemClick(Application& app, const std::string& item)
{
    for (const PopupItem& entry : build_key_popup(app))
        if (entry.key == item && entry.type != popup_divider && entry.state == popup_greyed) return;
    if (item == "Properties") muproperties_Click(app);
    else if (item == "Cut") run_edit_entry(app, "muCut");
    else if (item == "Delete") run_edit_entry(app, "muDelete");
    else if (item == "Copy") {
        app.selection().drag_mode = drag_move;
        run_edit_entry(app, "muCopy");
    } else if (item == "Paste") run_edit_entry(app, "muPaste");
    else if (item == "Label") labelproperties(app);
}

}  // namespace tesselo
