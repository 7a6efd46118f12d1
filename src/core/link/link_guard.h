#pragma once

#include "core/app/application.h"

namespace tesselo {

// At every end of an exchange the link is closed, whichever way the exchange
// left; the download also clears learn_in_progress there.
class LinkGuard {
public:
    explicit LinkGuard(Application& app, bool clears_learn = false) : app_(app), clears_learn_(clears_learn) {}
    ~LinkGuard()
    {
        app_.link().close_usb();
        if (clears_learn_) app_.flags().learn_in_progress = false;
    }
    LinkGuard(const LinkGuard&) = delete;
    LinkGuard& operator=(const LinkGuard&) = delete;

private:
    Application& app_;
    bool clears_learn_;
};

}  // namespace tesselo
