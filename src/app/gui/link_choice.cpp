#include "app/gui/link_choice.h"

#include <memory>

#include "core/app/application.h"
#include "platform/tcp_transport.h"
#include "usb/libusb_transport.h"

namespace tesselo {

bool install_gui_link(Application& app, const std::string& choice, std::string& why)
{
    if (choice.empty() || choice == "usb") {
        app.link().set_transport(std::make_unique<usb::LibusbTransport>());
        return true;
    }
    if (choice.rfind("tcp:", 0) == 0) {
        const auto endpoint = parse_endpoint(choice.substr(4));
        if (endpoint) {
            app.link().set_transport(std::make_unique<TcpTransport>(*endpoint));
            return true;
        }
    }
    why = "the link is usb or tcp:HOST:PORT, not " + choice;
    return false;
}

}  // namespace tesselo
