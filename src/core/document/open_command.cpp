#include "core/document/open_command.h"

#include <memory>
#include <new>
#include <stdexcept>

#include "core/app/application.h"
#include "core/document/lifecycle.h"
#include "core/document/recovery.h"
#include "core/document/ui.h"
#include "core/image/byte_reader.h"
#include "core/image/image_file.h"
#include "core/image/image_check.h"
#include "core/image/image_reader.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"

namespace tesselo {

void ErrorWindow(Application& app, const std::vector<std::string>& rows)
{
    std::uint8_t& flag = app.open_state().corruption_flag;
    switch (app.ui().error_window(error_window_title, {error_window_intro, error_window_advice, error_window_question}, rows)) {
    case ErrorWindowAnswer::go_on: flag = corruption_go_on; break;
    case ErrorWindowAnswer::give_up: flag = corruption_cancelled; break;
    case ErrorWindowAnswer::closed:
        if (flag != corruption_go_on) flag = corruption_cancelled;
        break;
    }
}

namespace {

int slots_in_use(const Application& app)
{
    int count = 0;
    for (auto used : app.slot_in_use) count += used ? 1 : 0;
    return count;
}

int load_checked(Application& app, const std::string& path, std::vector<std::uint8_t>& buffer)
{
    Ui& ui = app.ui();
    OpenState& state = app.open_state();
    if (!check_opened_image(app, buffer)) return -1;
    if (slots_in_use(app) > 9) {
        ui.message(title_files, "Exceed files open", Icon::exclamation);
        state.corruption_flag = corruption_none;
        return -1;
    }
    app.write_log("open file (start) " + path);

    ui.status("Load Configuration");
    WaitCursor wait(ui);
    ui.progress(0, 100);
    // The image is read into tables of its own first: a file that cannot be
    // read takes no slot and leaves no half-loaded document.
    int slot = -1;
    for (int s = 0; s < document_slots && slot < 0; ++s)
        if (!app.slot_in_use[static_cast<std::size_t>(s)]) slot = s;
    if (slot < 0) return -1;
    auto loaded = load_image(buffer, slot, [&ui](int value) { ui.progress(value, 100); });

    const int document = create_mainform(app, path);
    if (document < 0) return -1;
    commit_image(app, *loaded, app.documents()[static_cast<std::size_t>(document)].slot);
    app.recovery().matches_file(app.documents()[static_cast<std::size_t>(document)].slot);
    app.write_log("Open file-" + app.documents()[static_cast<std::size_t>(document)].title);
    return document;
}

}  // namespace

bool check_opened_image(Application& app, const std::vector<std::uint8_t>& buffer)
{
    OpenState& state = app.open_state();
    std::vector<std::string> rows;
    state.corruption_flag = corruption_none;
    if (check_image(buffer, state.error_list, rows)) {
        ErrorWindow(app, rows);
        if (state.corruption_flag == corruption_cancelled) {
            state.corruption_flag = corruption_none;
            return false;
        }
    }
    return true;
}

void file_is_corrupted(Application& app)
{
    app.open_state().corruption_flag = corruption_none;
    app.open_state().file_corrupted = true;
    app.ui().message(title_files, "file is corrupted", Icon::exclamation);
}

bool read_or_corrupted(Application& app, const std::function<void()>& read)
{
    app.open_state().file_corrupted = false;
    try {
        read();
        return true;
    } catch (const ImageBoundsError&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::runtime_error&) {
    }
    file_is_corrupted(app);
    return false;
}

int open_image(Application& app, const std::string& path, std::vector<std::uint8_t> buffer)
{
    int document = -1;
    read_or_corrupted(app, [&] { document = load_checked(app, path, buffer); });
    return document;
}

int open_configuration(Application& app, const std::string& path)
{
    std::vector<std::uint8_t> buffer;
    if (read_image_file(path, buffer)) {
        file_is_corrupted(app);
        return -1;
    }
    return open_image(app, path, std::move(buffer));
}

int muOpen(Application& app)
{
    const auto path = app.ui().open_file("Open", config_file_filter);
    if (!path || path->empty()) return -1;
    return open_configuration(app, *path);
}

}  // namespace tesselo
