#pragma once

namespace tesselo {

class Application;
struct DeviceBuffer;
struct OwnPlaces;
struct TreeCommands;

// The clipboard kinds of the tree's content.
inline constexpr int clipboard_page = 1;
inline constexpr int clipboard_device = 2;

// cut_devicepage's modes.
inline constexpr int cut_mode_delete = 0;
inline constexpr int cut_mode_cut = 1;

// copy_devicepage: the noted page, or device (also by its properties node),
// of the active document into the program's own clipboard. True when copied.
bool copy_devicepage(Application& app);

// cut_devicepage: the tree's selected page or device of the active document
// leaves it (mode 1 copies it first). The only page of a device takes the
// device with it. True when something was removed.
bool cut_devicepage(Application& app, int mode);

// paste_devicepage: a page from the clipboard behind the pages of the
// selected device (or of the selected page's device), or paste_device for a
// device. Every limit is checked before any change. True when pasted.
bool paste_devicepage(Application& app);
// paste_device: a new device from the clipboard behind all others.
bool paste_device(Application& app);

// Whether `devices` new devices with `pages` pages in all, taking `labels`
// label rows, have room in the document of `slot`: at most 128 devices, 127
// pages, and the label rows free.
bool room_for_devices(Application& app, int slot, int devices, int pages, int labels);
// The road of a pasted device: behind all others in the active document
// (`slot`), AddDevice in its paste mode, each page of the buffer filled, the
// 41 hard keys and the settings; the device is not hidden. The caller has
// checked every limit and journalled. With `own`, links into the device
// itself take the label rows its keys get. The new device's row, or 0.
int add_device_from_buffer(Application& app, int slot, const DeviceBuffer& buffer, const OwnPlaces* own = nullptr);

// Installs Cut, Copy, Paste, Delete, Move Up, Move Down, Hide Device and
// Hide Page as the tree's operations.
void install_tree_edit_commands(TreeCommands& commands);

}  // namespace tesselo
