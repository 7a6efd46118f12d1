#pragma once

namespace tesselo {

class Application;

// An image holds only the ids of the IR formats: after an upload the formats
// themselves are filled in again, the four RC formats from their fixed
// records and every other one from the IR library.
void rebuild_ir_formats(Application& app, int slot);

}  // namespace tesselo
