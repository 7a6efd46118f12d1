#include "core/document/log.h"

#include <cstdio>
#include <fstream>

namespace tesselo {

std::string log_file_name(const LocalTime& date)
{
    char name[32];
    std::snprintf(name, sizeof name, "logfile_%04d%02d%02d.txt", date.year, date.month, date.day);
    return name;
}

bool append_log_line(const std::filesystem::path& file, const std::string& text)
{
    std::ofstream out(file, std::ios::app | std::ios::binary);
    if (!out) return false;
    out << '"' << text << "\"\n";
    out.close();
    return static_cast<bool>(out);
}

}  // namespace tesselo
