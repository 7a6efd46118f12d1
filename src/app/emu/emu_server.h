#pragma once

#include <cstdint>
#include <ostream>

#include "emulator/remote_emulator.h"
#include "platform/tcp_messages.h"

namespace tesselo::emulator {

// Serves the remote's side of the link over tcp, one connection at a time:
// a connection is the open link, a message one USB transfer. Stops after
// `stop_after_ms` (0: never).
int serve(RemoteEmulator& remote, Socket& listener, std::uint32_t stop_after_ms, std::ostream& log);

}  // namespace tesselo::emulator
