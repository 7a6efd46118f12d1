#pragma once

#include <string>

namespace tesselo {

class Application;
struct Configuration;

// The file of the corrections' lines, in the program's folder.
inline const std::string correction_log_name = "correct.log";

// Deletes every corrupted point that the integrity check listed in
// app.open_state().error_list from the tables of document slot `slot`, and
// writes a line for each to correct.log.
void auto_correction(Application& app, int slot);

// The three corrections, each for one record of the list.
void correct_label_fault(Application& app, int label_index, int slot);
void correct_action_fault(Application& app, int action_list, int slot);
void correct_half_key_fault(Application& app, int page_in_device, int device, int slot);

// One line to correct.log, with the document's title in front of the word.
void write_correction_log(Application& app, int slot, const std::string& word);

}  // namespace tesselo
