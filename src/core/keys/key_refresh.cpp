#include "core/keys/key_refresh.h"

#include "core/app/application.h"
#include "core/keys/page_canvas.h"
#include "core/tree/page_windows.h"

namespace tesselo {

namespace {

template <typename F>
void each_open_page(Application& app, int slot, F&& f)
{
    const Configuration& config = app.config(slot);
    // A copy: a listener may close windows while it is told.
    const auto windows = app.page_windows().all();
    for (const PageWindow& window : windows) {
        if (window.slot != slot) continue;
        if (const auto page = find_page(config, window.caption)) f(window.caption, *page);
    }
}

void tell(Application& app, int slot, const std::string& caption, int picture)
{
    app.notify([slot, &caption, picture](ApplicationListener& l) { l.page_key_changed(slot, caption, picture); });
}

}  // namespace

void refresh_page_key(Application& app, int slot, const std::string& page_key, int picture)
{
    if (app.page_windows().find(slot, page_key) >= 0) tell(app, slot, page_key, picture);
}

void refresh_hardkey(Application& app, int slot, int device, int picture)
{
    each_open_page(app, slot, [&](const std::string& caption, const PageRef& page) {
        if (page.device == device) tell(app, slot, caption, picture);
    });
}

void refresh_device_name(Application& app, int slot, int device)
{
    const Configuration& config = app.config(slot);
    const std::string& key = config.device_name_table[static_cast<std::size_t>(device)].node_key;
    each_open_page(app, slot, [&](const std::string& caption, const PageRef& page) {
        if (page.device == device) tell(app, slot, caption, picture_of_position(0));
        if (!page.home || device == 0 || key.empty()) return;
        const HomePage& home = config.home_pages[static_cast<std::size_t>(page.home_page)];
        for (int s = 1; s < softkeys_per_page; ++s)
            if (home.node_key[static_cast<std::size_t>(s)] == key)
                tell(app, slot, caption, picture_of_position(home.slots[static_cast<std::size_t>(s)].position));
    });
}

}  // namespace tesselo
