#include "core/document/restore_default.h"

#include <memory>

#include "core/app/application.h"
#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "core/model/configuration.h"
#include "core/tree/journal.h"
#include "core/tree/tree_view.h"

namespace tesselo {

bool muRestore(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return false;
    const int slot = doc->slot;
    const std::string title = doc->title;
    if (app.ui().ask(title_main, restore_question, Buttons::yes_no, Icon::question) != Answer::yes) return false;

    app.write_log("restore default configuration (start) " + title);
    begin_edit(app);
    close_page_windows(app, slot);
    clear_document_selection(app, slot);
    // The new content goes through the journal's own copy, so that a restore
    // changes exactly what an Undo gives back: the learned-key numbers and
    // the header of the last image stay the document's.
    auto fresh = std::make_unique<Configuration>();
    init_new_configuration(*fresh, slot);
    restore_document_tables(app.config(slot), *fresh);
    init_document_tree(app, slot);
    app.write_log(title + " - restore default configuration");
    return true;
}

}  // namespace tesselo
