#pragma once

#include <functional>
#include <string>

#include "core/model/configuration.h"

namespace tesselo {

class Application;
struct KeyTarget;

inline const std::string punch_question =
    "If you set up the Punch Through for this key, this action link to same key in all mode automatically. And if "
    "you had set up the action for the same key in another device mode, setup action will be deleted by this "
    "operation.\n\nIf you want to assign the another action to this key in another device, check off the Punch "
    "Through and assign the new action in the property of  required mode and key.";
inline const std::string punch_row_text = "Punch from ";

// Whether hard key `key` is punched through in device row `device`: byte 0
// of its punch_through entry names the owner (255 none); for another device
// its bit in bytes 1 to 17 decides, eight devices a byte, the first in the
// top bit.
bool check_punchthough(const Configuration& config, int key, int device);
// The device's own bit in the key's bit set: what its Check1 shows.
bool punch_bit(const Configuration& config, int key, int device);
// The owner of a punched key, or -1.
int punch_owner(const Configuration& config, int key);
// Devices moved or went: each punched key's owner and bit set follow their
// device rows. `row_after` gives a row's new number, -1 for a device that
// went; a key whose owner went is punched no more.
void renumber_punch_through(Configuration& config, const std::function<int(int)>& row_after);
// Device row `owner` owns hard key `key` again (a pasted owner): every other
// device plays the owner's action but a device whose key has steps of its
// own, which keeps them.
void own_punch_through(Configuration& config, int key, int owner);
// A device row whose hard key has steps of its own is no longer punched
// through there, so that the remote plays what the user sees.
void keep_own_steps_unpunched(Configuration& config, int device);
// The sleep timer's count in a soft key's key_state: on a HOME key the top
// bit marks a hidden device, so the timer counts in the other seven bits.
int sleep_timer_count(bool home, std::uint8_t key_state);
// The sleep_flag of hard key `key` of device row `device`.
int check_hardsleepflag(const Configuration& config, int device, int key);

// Check1, Punch Through, on the selected hard key of a device. Setting asks
// its question first (Cancel leaves everything and the box clear); then the
// device owns the key, every other device's list of the key is freed and
// takes the owner's label. Clearing takes the device's bit out. Returns the
// box's state afterwards.
bool Check1_Click(Application& app, const KeyTarget& target, bool checked);

// Check2, Sleep Timer: the key's key_state (soft) or sleep_flag (hard) is
// raised by 1 on Set and lowered by 1 on Reset; a soft position gets its key
// first. False when nothing changed.
bool Check2_Click(Application& app, const KeyTarget& target, bool checked);

// Check3, Link to Right side button, on a left button of a device's page:
// clearing runs add_left_softkey, setting delete_left_softkey.
bool Check3_Click(Application& app, const KeyTarget& target, bool checked);
// The row gets a left key of its own, in the slot in front of its right key
// (the right key is made first where the row has none). False when the row
// has a left key already, on the title row, on HOME, or when the page or the
// label pool is full.
bool add_left_softkey(Application& app, const KeyTarget& target);
// The row's left key goes: its list, the links to it and its label entry are
// freed and the slots behind it close up.
bool delete_left_softkey(Application& app, const KeyTarget& target);

}  // namespace tesselo
