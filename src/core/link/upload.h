#pragma once

namespace tesselo {

class Application;

// File > Upload: the image in the remote's flash becomes a new document.
// True when it ended in "Upload Data Finished".
bool muUpload_Click(Application& app);

inline constexpr const char* upload_caption = "Upload";
inline constexpr const char* text_upload_finished = "Upload Data Finished";

}  // namespace tesselo
