#pragma once

#include <array>

#include "core/keys/key_clipboard.h"
#include "core/tree/device_buffers.h"

namespace tesselo {

// The clipboard kind: what muPaste_Click finds in the clipboards. 1 and 2
// are the device and page clipboard's page and device.
inline constexpr int clipboard_key = 3;
// The source noted with the clipboard, against "treeview" for tree content.
inline const std::string clipboard_source_key = "key";

// The program's own clipboards, one for all documents and for the life of
// the process: never the system's clipboard. Their kind and paste state are
// in EditState, beside the enable states they drive.
struct Clipboards {
    // One record per key slot of a page: a single key uses record 0.
    std::array<KeyClipRecord, softkeys_per_page> key_clipboard{};
    // The device and page clipboard: a page, or a device with its pages and
    // hard keys, unfolded so that it can be pasted into any open document.
    PageBuffer page_buffer;
    DeviceBuffer device_buffer;
};

}  // namespace tesselo
