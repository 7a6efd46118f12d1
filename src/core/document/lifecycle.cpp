#include "core/document/lifecycle.h"

#include "core/app/application.h"
#include "core/document/launcher.h"
#include "core/document/recovery.h"
#include "core/document/ui.h"
#include "core/image/image_writer.h"
#include "core/model/configuration.h"
#include "core/tree/journal.h"
#include "core/tree/selection.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

int slots_in_use(const Application& app)
{
    int count = 0;
    for (auto used : app.slot_in_use) count += used ? 1 : 0;
    return count;
}

// Writes the document's file under its title, with the status text and the
// wait cursor around the work.
bool save_document(Application& app, int document, const std::string& path)
{
    Ui& ui = app.ui();
    ui.status("Save Configuration");
    WaitCursor wait(ui);
    const int slot = app.documents()[static_cast<std::size_t>(document)].slot;
    if (!save_tofile(app, path, 0, slot)) return false;
    // What the file holds now needs no recovery copy.
    app.recovery().matches_file(slot);
    return true;
}

}  // namespace

bool is_untitled(const std::string& title) { return title.compare(0, 8, "Untitled") == 0; }

void clear_document_selection(Application& app, int slot)
{
    app.key_selection.clear();
    app.key_error.key_error_shown = false;
    app.step_edit.clear();
    TreeSelection& tree = app.selection();
    tree.drag_mode = 0;
    if (tree.slot == slot) tree.clear();
    app.notify([slot](ApplicationListener& l) { l.selection_changed(slot); });
}

std::string document_display_name(const std::string& title)
{
    if (is_untitled(title)) return title;
    const auto cut = title.find_last_of('/');
    return cut == std::string::npos ? title : title.substr(cut + 1);
}

int create_mainform(Application& app, const std::string& title)
{
    int slot = -1;
    for (int s = 0; s < document_slots; ++s)
        if (!app.slot_in_use[static_cast<std::size_t>(s)]) {
            slot = s;
            break;
        }
    if (slot < 0) return -1;
    app.slot_in_use[static_cast<std::size_t>(slot)] = 1;
    init_new_configuration(app.config(slot), slot);
    init_document_tree(app, slot);
    return app.add_document(slot, title.empty() ? "Untitled" + std::to_string(slot + 1) : title);
}

int muNew(Application& app)
{
    if (slots_in_use(app) > 9) {
        app.ui().message(title_files, "Exceed files open", Icon::exclamation);
        return -1;
    }
    app.write_log("add new (start) ");
    const int document = create_mainform(app);
    if (document < 0) return -1;
    app.write_log("open new file - " + app.documents()[static_cast<std::size_t>(document)].title);
    return document;
}

bool muSaveas(Application& app, int document)
{
    if (document < 0) document = app.active_document();
    if (document < 0) return false;
    const std::string old_title = app.documents()[static_cast<std::size_t>(document)].title;
    const auto chosen = app.ui().save_file("Save As", config_file_filter, is_untitled(old_title) ? std::string{} : old_title);
    if (!chosen || chosen->empty()) return false;
    // The title changes only with a file that was written.
    if (!save_document(app, document, *chosen)) return false;
    app.set_title(document, *chosen);
    app.write_log("save Data Config File as - " + *chosen);
    return true;
}

bool muSave(Application& app)
{
    const int document = app.active_document();
    if (document < 0) return false;
    const std::string title = app.documents()[static_cast<std::size_t>(document)].title;
    if (is_untitled(title)) return muSaveas(app, document);
    if (!save_document(app, document, title)) return false;
    app.write_log("save Data Config File - " + title);
    return true;
}

bool close_document(Application& app, int document)
{
    if (document < 0 || document >= static_cast<int>(app.documents().size())) return false;
    const int slot = app.documents()[static_cast<std::size_t>(document)].slot;
    app.slot_in_use[static_cast<std::size_t>(slot)] = 0;
    const std::string name = document_display_name(app.documents()[static_cast<std::size_t>(document)].title);
    app.notify([document](ApplicationListener& l) { l.document_views_hidden(document); });

    const Answer answer = app.ui().ask(title_main, "Do you want to save the changes to " + name + "?",
                                       Buttons::yes_no_cancel, Icon::exclamation);
    const auto views_back = [&app, document] {
        app.notify([document](ApplicationListener& l) { l.document_views_restored(document); });
    };
    // Cancel keeps the document open with its slot counted as free.
    if (answer == Answer::cancel) {
        views_back();
        return false;
    }
    if (answer == Answer::yes && !muSaveas(app, document)) {
        // A Save As that was not carried out keeps the document, and its slot.
        app.slot_in_use[static_cast<std::size_t>(slot)] = 1;
        views_back();
        return false;
    }
    clear_document_selection(app, slot);
    app.write_log("close file " + name);
    app.remove_document(document);
    // Another window may still hold the slot after a refused close: its
    // snapshots are its own.
    if (app.document_of_slot(slot) < 0) forget_document(app, slot);
    return true;
}

bool close_frame(Application& app)
{
    app.launcher().end_process(app.launcher().program_path(simulator_program_name));
    while (!app.documents().empty()) {
        // In turn from the front window.
        if (!close_document(app, app.active_document() >= 0 ? app.active_document() : 0)) return false;
    }
    app.write_log("close tessel");
    return true;
}

void muSimulator(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return;
    // The simulator stands beside the editor's own program, and reads the
    // scratch image of the home folder.
    Launcher& launcher = app.launcher();
    const std::string program = launcher.program_path(simulator_program_name);
    if (launcher.is_running(program)) {
        launcher.bring_forward(program);
    } else {
        const std::string image = (app.home() / scratch_image_name).string();
        if (!save_tofile(app, image, 0, doc->slot)) return;
        if (!launcher.start(program, {image}, app.home().string())) {
            app.ui().message(title_main, shell_error_text(2), Icon::exclamation);
            return;
        }
    }
    app.write_log("run simulator - " + doc->title);
}

void open_pdf(Application& app)
{
    const int result = app.launcher().open_document((app.home() / help_file_name).string());
    if (result <= 32) app.ui().message(title_main, shell_error_text(result), Icon::exclamation);
}

}  // namespace tesselo
