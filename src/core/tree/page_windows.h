#pragma once

#include <string>
#include <vector>

namespace tesselo {

// An open Remote window: the page of a document shown as the remote. Its
// caption is the page node's key; pagelabel is its page counter "001/003".
struct PageWindow {
    int slot = 0;
    std::string caption;
    std::string pagelabel;
};

// At most 45 Remote windows may be open at a time.
inline constexpr int max_page_windows = 45;

// The open Remote windows of all documents, in the order they were opened.
class PageWindows {
public:
    std::vector<PageWindow>& all() { return windows_; }
    const std::vector<PageWindow>& all() const { return windows_; }
    // The window of that page, or -1.
    int find(int slot, const std::string& caption) const;
    void remove(int window);

private:
    std::vector<PageWindow> windows_;
};

}  // namespace tesselo
