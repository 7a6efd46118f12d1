#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tesselo {

class Application;

// ErrorWindow's words.
inline const std::string error_window_title = "Error";
inline const std::string error_window_intro =
    "The file that you are trying to open is corrupted and can not be used.  The following commands are corrupt";
inline const std::string error_window_advice =
    "It is recommended that you delete these commands or recreate new configuration file.";
inline const std::string error_window_question = "Do you wish to continue?";

// Shows ErrorWindow with the faults and sets corruption_flag from the
// user's choice: 2 to go on, 1 to give up (also when the window is closed by
// its frame, unless it held a 2 already).
void ErrorWindow(Application& app, const std::vector<std::string>& rows);

// The check that Open and Merge run on a file's bytes before they read
// them: check_image, and ErrorWindow with the faults it found. False when
// the user gave up. Throws ImageBoundsError for bytes that are no image.
bool check_opened_image(Application& app, const std::vector<std::uint8_t>& buffer);

// Runs `read` (the check and the read of a file) and turns a file that is no
// image, or too big to hold, into "file is corrupted". False then.
bool read_or_corrupted(Application& app, const std::function<void()>& read);
// "file is corrupted", and the open state that remembers it.
void file_is_corrupted(Application& app);

// File > Open Configuration: asks for a file, checks it, and loads it into a
// new document. Returns the document, or -1 when nothing was opened. Any
// file that cannot be read is "file is corrupted", and then no document is
// open and no slot is taken.
int muOpen(Application& app);

// Opens the file at `path` as muOpen does after its dialog. A file that
// read_image_file refuses is "file is corrupted" like any other.
int open_configuration(Application& app, const std::string& path);

// The Open command on a file's bytes already read: the check, the error
// window, the load into a new document titled `path`. Any failure is
// "file is corrupted", and then no document is open and no slot is taken.
int open_image(Application& app, const std::string& path, std::vector<std::uint8_t> buffer);

}  // namespace tesselo
