#pragma once

namespace tesselo {

class Application;

// Hide Device and Hide Page: toggle the tree's selected device or page of the
// active document. A hidden one stays in the document but does not show on
// the remote: its node shows "hide device" or "hide tv" and its text in
// square brackets, its hidden flag is 255; a hidden device's HOME key has 128
// added to its first byte, and a hidden page leaves the device's HOME key
// jumping to its first page that is shown. True when toggled.
bool hide_device(Application& app);
bool hide_page(Application& app);

}  // namespace tesselo
