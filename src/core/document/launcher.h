#pragma once

#include <string>
#include <vector>

namespace tesselo {

// Starting other programs: the simulator and the user guide.
class Launcher {
public:
    virtual ~Launcher() = default;
    // The path of another program of ours: it stands in our own program folder.
    virtual std::string program_path(const std::string& name) = 0;
    // Is a process of this program running with a window of its own?
    virtual bool is_running(const std::string& program) = 0;
    virtual void bring_forward(const std::string& program) = 0;
    virtual bool start(const std::string& program, const std::vector<std::string>& arguments,
                       const std::string& working_folder) = 0;
    virtual void end_process(const std::string& program) = 0;
    // Opens a document with the desktop's viewer. Answers as the shell does:
    // above 32 when it opened, else the code of the failure (2 file not found,
    // 3 path not found, 5 access denied, 31 no association, ...).
    virtual int open_document(const std::string& path) = 0;
};

// The shell's failure code as the words the user reads.
std::string shell_error_text(int result);

}  // namespace tesselo
