#include "core/tree/page_windows.h"

namespace tesselo {

int PageWindows::find(int slot, const std::string& caption) const
{
    for (std::size_t i = 0; i < windows_.size(); ++i)
        if (windows_[i].slot == slot && windows_[i].caption == caption) return static_cast<int>(i);
    return -1;
}

void PageWindows::remove(int window)
{
    if (window >= 0 && window < static_cast<int>(windows_.size())) windows_.erase(windows_.begin() + window);
}

}  // namespace tesselo
