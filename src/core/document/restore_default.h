#pragma once

#include <string>

namespace tesselo {

class Application;

// The question that Tools > Restore Default Configuration asks first.
inline const std::string restore_question = "Do you want to restore the default configuration?";

// Tools > Restore Default Configuration: after a Yes, the active document
// is journalled and takes the content of a new Configuration: HOME and its
// first page, nothing else. Its tree is built anew and its page windows
// close; one Undo brings everything back. True when the document was reset.
bool muRestore(Application& app);

}  // namespace tesselo
