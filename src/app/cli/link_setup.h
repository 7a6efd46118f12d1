#pragma once

#include <string>

#include "app/cli/cli_context.h"

namespace tesselo::cli {

// The file in the home folder that keeps the in-process emulator's flash.
inline const std::string emulator_flash_name = "remote-flash.bin";

// Gives the application the transport that `choice` names: "usb", the remote
// on the USB bus; "tcp:HOST:PORT", an emulator in another process;
// "emulator", the emulator in this process. A choice that is none of them
// leaves no transport and its words in `link_error`.
void install_link(CliContext& ctx, const std::string& choice);

// Exit status 2 with the words when the link could not be set up, else nothing.
bool link_unusable(const CliContext& ctx);

}  // namespace tesselo::cli
