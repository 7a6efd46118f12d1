#pragma once

#include <string>

namespace tesselo {

class Application;

// The file dialogs' filter for configuration files.
inline const std::string config_file_filter = "Data Config File (*.kcf)|*.kcf";
// File names in the home folder.
inline const std::string scratch_image_name = "temp.trl";
inline const std::string simulator_program_name = "tesselo-simulator";
inline const std::string help_file_name = "QM5100 Tessel3_E_EN_UG_v00.pdf";

// A new document window: takes the first free slot, resets its tables to a
// new Configuration and opens the window with `title`, or "Untitled" and the
// slot's number when `title` is empty. Returns the document, or -1 when every
// slot is taken.
int create_mainform(Application& app, const std::string& title = {});

// File > New Configuration. Returns the new document, or -1 when refused.
int muNew(Application& app);
// File > Save: Save As for an untitled document. True when the file was written.
bool muSave(Application& app);
// File > Save Configuration as, for document `document` (the active one by default).
bool muSaveas(Application& app, int document = -1);

// Closes one document window with its question. False when the close was
// refused (Cancel, or a Save As that was not carried out).
bool close_document(Application& app, int document);
// Closes the frame: ends the simulator, closes every document in turn; a
// refusal at any of them stops the whole close. True when all are closed.
bool close_frame(Application& app);

// Runs the simulator on the active document, or brings a running one forward.
void muSimulator(Application& app);
// Opens the user guide.
void open_pdf(Application& app);

// Clears the selection when a document's content goes (a close, a restore):
// a key chosen in it, or a step row opened for editing, must not lead the
// next step into whatever takes its place. The tree selection of another
// document stays.
void clear_document_selection(Application& app, int slot);

// Whether a title is that of a document never saved ("Untitled" and a number).
bool is_untitled(const std::string& title);

// The title's name as the close question shows it.
std::string document_display_name(const std::string& title);

}  // namespace tesselo
