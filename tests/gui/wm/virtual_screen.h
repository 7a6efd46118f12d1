#pragma once

// A virtual display with a real window manager on it, started by the test
// itself: Xvfb on a display number of its own choosing, and openbox. The
// editor's windows then meet decorations, placement and frame extents as a
// user's desktop gives them.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <xcb/xcb.h>

namespace tesselo::testing {

// One top-level window as the X server holds it: a frame of the window
// manager, or an undecorated window of its own.
struct ScreenWindow {
    int x = 0, y = 0, width = 0, height = 0;
};

class VirtualScreen {
public:
    VirtualScreen(int width, int height) : width_(width), height_(height)
    {
        if (!start_server() || !start_window_manager()) stop();
    }
    ~VirtualScreen() { stop(); }
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    bool ready() const { return wm_ > 0; }
    const std::string& why() const { return why_; }
    const std::string& display() const { return display_; }
    int width() const { return width_; }
    int height() const { return height_; }

    // Every top-level window that is mapped, as the X server places it.
    std::vector<ScreenWindow> mapped_windows() const
    {
        std::vector<ScreenWindow> found;
        xcb_connection_t* c = xcb_connect(display_.c_str(), nullptr);
        if (xcb_connection_has_error(c)) {
            xcb_disconnect(c);
            return found;
        }
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
        xcb_query_tree_reply_t* tree = xcb_query_tree_reply(c, xcb_query_tree(c, root), nullptr);
        if (tree) {
            const xcb_window_t* children = xcb_query_tree_children(tree);
            for (int i = 0; i < xcb_query_tree_children_length(tree); ++i) {
                xcb_get_window_attributes_reply_t* a =
                    xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, children[i]), nullptr);
                const bool viewable = a && a->map_state == XCB_MAP_STATE_VIEWABLE;
                std::free(a);
                if (!viewable) continue;
                xcb_get_geometry_reply_t* g = xcb_get_geometry_reply(c, xcb_get_geometry(c, children[i]), nullptr);
                if (!g) continue;
                found.push_back({g->x, g->y, g->width + 2 * g->border_width, g->height + 2 * g->border_width});
                std::free(g);
            }
            std::free(tree);
        }
        xcb_disconnect(c);
        return found;
    }

private:
    bool start_server()
    {
        int ready[2];
        if (pipe(ready) != 0) return fail("no pipe");
        const std::string fd = std::to_string(ready[1]);
        const std::string screen = std::to_string(width_) + "x" + std::to_string(height_) + "x24";
        server_ = fork();
        if (server_ == 0) {
            ::close(ready[0]);
            quiet();
            execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(), "-nolisten", "tcp",
                   static_cast<char*>(nullptr));
            _exit(127);
        }
        ::close(ready[1]);
        std::string number;
        pollfd p{ready[0], POLLIN, 0};
        while (poll(&p, 1, 10000) > 0) {
            char c = 0;
            if (::read(ready[0], &c, 1) != 1 || c == '\n') break;
            number += c;
        }
        ::close(ready[0]);
        if (number.empty()) return fail("Xvfb did not start (is it installed? scripts/install-deps)");
        display_ = ":" + number;
        setenv("DISPLAY", display_.c_str(), 1);
        return true;
    }

    bool start_window_manager()
    {
        wm_ = fork();
        if (wm_ == 0) {
            quiet();
            execlp("openbox", "openbox", "--sm-disable", static_cast<char*>(nullptr));
            _exit(127);
        }
        // The manager is at work once it has put up its check window.
        xcb_connection_t* c = xcb_connect(display_.c_str(), nullptr);
        if (xcb_connection_has_error(c)) {
            xcb_disconnect(c);
            return fail("cannot reach the virtual display");
        }
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
        const char name[] = "_NET_SUPPORTING_WM_CHECK";
        xcb_intern_atom_reply_t* atom =
            xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, sizeof name - 1, name), nullptr);
        bool managed = false;
        for (int i = 0; atom && i < 500 && !managed; ++i) {
            xcb_get_property_reply_t* r = xcb_get_property_reply(
                c, xcb_get_property(c, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, 1), nullptr);
            managed = r && xcb_get_property_value_length(r) > 0;
            std::free(r);
            if (!managed) usleep(10000);
            int status = 0;
            if (waitpid(wm_, &status, WNOHANG) == wm_) break;
        }
        std::free(atom);
        xcb_disconnect(c);
        if (!managed) {
            wm_ = -1;
            return fail("openbox did not start (is it installed? scripts/install-deps)");
        }
        return true;
    }

    static void quiet()
    {
        const int null = ::open("/dev/null", O_RDWR);
        dup2(null, 1);
        dup2(null, 2);
    }

    bool fail(const char* why)
    {
        why_ = why;
        return false;
    }

    void stop()
    {
        for (pid_t* p : {&wm_, &server_}) {
            if (*p <= 0) continue;
            kill(*p, SIGTERM);
            int status = 0;
            waitpid(*p, &status, 0);
            *p = -1;
        }
    }

    int width_;
    int height_;
    pid_t server_ = -1;
    pid_t wm_ = -1;
    std::string display_;
    std::string why_;
};

}  // namespace tesselo::testing
