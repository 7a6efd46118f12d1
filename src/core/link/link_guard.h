#pragma once

#include "core/document/application.h"

namespace tesselo {

// At every end of an exchange the link is closed and learn_in_progress is
// cleared, whichever way the exchange left.
class LinkGuard {
public:
    explicit LinkGuard(Application& app) : app_(app) {}
    ~LinkGuard()
    {
        app_.link().close_usb();
        app_.flags().learn_in_progress = false;
    }
    LinkGuard(const LinkGuard&) = delete;
    LinkGuard& operator=(const LinkGuard&) = delete;

private:
    Application& app_;
};

}  // namespace tesselo
