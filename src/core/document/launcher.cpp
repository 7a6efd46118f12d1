#include "core/document/launcher.h"

namespace tesselo {

std::string shell_error_text(int result)
{
    switch (result) {
    case 2: return "File not found";
    case 3: return "Path not found";
    case 5: return "Access denied";
    case 8: return "Out of memory";
    case 32: return "DLL not found";
    case 26: return "A sharing violation occurred";
    case 27: return "Incomplete or invalid file association";
    case 28: return "DDE Time out";
    case 29: return "DDE transaction failed";
    case 30: return "DDE busy";
    case 31: return "No association for file extension";
    case 11: return "Invalid EXE file or error in EXE image";
    default: return "Unknown error";
    }
}

}  // namespace tesselo
