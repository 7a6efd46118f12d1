#pragma once

#include <cstdint>
#include <string>

#include "core/model/configuration.h"

namespace tesselo {

// Jump and link steps hold plain device, page and key numbers. Before a
// removal makes those numbers stale, one of these procedures walks the step
// table, removes the steps that would dangle and keeps every chain whole:
// each removed step is cut out of its list, a list that loses its last step
// is freed, and a key whose list was freed is left with no action (65535).
// The counts at the head of both tables follow.

// Link steps to hard key index `key` of a device: param_low = device,
// param_high = 255 (the mark of a hard key link), value = key + 1.
void Cut_hardlinkthiskey(Configuration& config, std::uint8_t device, std::uint8_t key);
// Link steps to a soft key: param_low = device, param_high = page, value = value.
void Cut_Softlinkthiskey(Configuration& config, std::uint8_t device, std::uint8_t page, std::uint16_t value);
// Jump and link steps into a device that goes: param_low = device.
void Cut_devicehardlink(Configuration& config, std::uint8_t device);
// Link steps into a page that goes: param_low = device, param_high = page.
void Cut_marcolinkpage(Configuration& config, std::uint8_t device, std::uint8_t page);
// Link steps with all three values.
void Cut_marcolink(Configuration& config, std::uint8_t device, std::uint8_t page, std::uint16_t value);
// Jump steps to a page that goes, and the renumbering of the pages behind it.
// A HOME key's jump is never removed: it is re-aimed at a shown page of the
// device, or sent to the HOME page the key stands on.
void Cut_marcojumplink(Configuration& config, std::uint8_t device, std::uint8_t page);

// After HOME keys moved to other places or HOME pages went: a link to a HOME
// key follows the key (named by its label row) to its page and row, and goes
// with the key; a jump to a HOME page that went aims at the last one left.
void follow_home_keys(Configuration& config);

// The jump of a HOME key's list `list` into its device `device_row`: the
// first jump of the chain to that device, nullptr when the user's steps hold
// none (then nothing is re-aimed: a step of another kind is never rewritten).
ActionStep* home_jump(Configuration& config, std::int32_t list, int device_row);

// After a page was hidden or shown: the device's HOME key jumps to the first
// page of the device that is not hidden; with none, the jump is left alone.
void repoint_firstpage(Configuration& config, const std::string& device_key, int device_row,
                       const std::string& page_key);

}  // namespace tesselo
