#pragma once

#include <string>
#include <vector>

#include "core/tree/device_buffers.h"

namespace tesselo {

class Application;
struct Configuration;

// The devices of a configuration file, unfolded to be merged: one buffer per
// device, its jumps and links renumbered for the document they go into.
struct MergeBuffers {
    std::vector<DeviceBuffer> devices;
    // The steps that point at the file's HOME or at nothing, dropped.
    int dropped = 0;
};

// Unfolds every device of `merged` (the tables of the file, which get keys
// for their pages as a tree would give them) as it would stand
// behind the `devices_before` devices of a document: a jump or link into a
// device of the file gets that device's new row; its page place stays, and
// a link to a soft key keeps the key's row and side (its key number follows
// once the key has its new label). Steps that point at the file's HOME, or
// at a device, page or key the file does not have, are dropped and counted.
MergeBuffers merge_buffers(Configuration& merged, int devices_before, int slot);

// The limits a merge checks before any change, each refusal shown: devices,
// pages and label rows ("Exceed Devices or Exceed Pages"), steps ("Exceed
// Marco steps"), learned codes ("Learning memory full"), IR data records
// ("Exceed ir data"), and the codes' formats. True when the merge fits.
bool merge_fits(Application& app, int slot, const MergeBuffers& buffers);

// After the devices are in: the links between them to soft keys name their
// keys by the keys' new label rows. `first_row` and `last_row` are the rows
// of the merged devices in the document.
void renumber_merged_soft_links(Configuration& config, int first_row, int last_row);

// The status line of a finished merge: "3 devices merged, 2 steps dropped".
std::string merge_status_text(int devices, int dropped);

// File > Merge Configuration: the file dialog "Merge" with the Open
// dialog's filter; the file is checked and read as Open reads it, and every
// device of it is appended behind the active document's devices, in one
// journal entry. Returns the number of devices merged, or -1 when nothing
// changed.
int muMerge(Application& app);

}  // namespace tesselo
