#pragma once

#include <string>

namespace tesselo {

class Application;

// Gives the editor the link that `choice` names: "usb", the remote on the USB
// bus (the default); "tcp:HOST:PORT", a remote emulator in another process.
// False, with the words in `why`, for anything else.
bool install_gui_link(Application& app, const std::string& choice, std::string& why);

}  // namespace tesselo
