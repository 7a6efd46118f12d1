#include "app/cli/link_setup.h"

#include <memory>

#include "emulator/emulator_transport.h"
#include "platform/tcp_transport.h"
#include "usb/libusb_transport.h"

namespace tesselo::cli {

void install_link(CliContext& ctx, const std::string& choice)
{
    if (choice == "usb") {
        ctx.app.link().set_transport(std::make_unique<usb::LibusbTransport>());
    } else if (choice == "emulator") {
        ctx.clock.skip_waits = true;
        auto remote = std::make_shared<emulator::RemoteEmulator>(ctx.app.home() / emulator_flash_name);
        ctx.app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(remote, ctx.clock));
    } else if (choice.rfind("tcp:", 0) == 0) {
        const auto endpoint = parse_endpoint(choice.substr(4));
        if (!endpoint) {
            ctx.link_error = "the link tcp:HOST:PORT wants a host and a port number, not " + choice;
            return;
        }
        ctx.app.link().set_transport(std::make_unique<TcpTransport>(*endpoint));
    } else {
        ctx.link_error = "the link is usb, tcp:HOST:PORT or emulator, not " + choice;
    }
}

bool link_unusable(const CliContext& ctx)
{
    if (ctx.link_error.empty()) return false;
    std::cerr << "tesselo-cli: " << ctx.link_error << '\n';
    return true;
}

}  // namespace tesselo::cli
