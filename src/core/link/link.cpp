#include "core/link/link.h"

#include <algorithm>
#include <cctype>

#include "core/document/clock.h"
#include "core/link/frames.h"

namespace tesselo {

namespace {

std::string upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

}  // namespace

Link::~Link() { close_usb(); }

void Link::set_transport(std::unique_ptr<Transport> transport)
{
    close_usb();
    transport_ = std::move(transport);
}

std::string Link::find_usb_device()
{
    std::string found;
    if (transport_) {
        for (const auto& path : transport_->device_paths()) {
            // The comparison runs on the upper-cased path, so a path in lower
            // case is matched as well. The first remote found is the one.
            const std::string candidate = upper(path);
            if (candidate.find(remote_vendor_text) != std::string::npos &&
                candidate.find(remote_product_text) != std::string::npos) {
                found = upper(candidate.substr(0, candidate.find('\0')));
                break;
            }
        }
    }
    usb_device_path = found;
    return found;
}

int Link::open_usb()
{
    usb_device_path.clear();
    read_pipe = -1;
    write_pipe = -1;
    if (find_usb_device().empty()) return 0;
    if (transport_->open(usb_device_path) && transport_->read_pipe() != -1 && transport_->write_pipe() != -1) {
        read_pipe = transport_->read_pipe();
        write_pipe = transport_->write_pipe();
        return 1;
    }
    transport_->close();
    usb_device_path.clear();
    return 0;
}

void Link::close_usb()
{
    usb_device_path.clear();
    if (transport_ && (read_pipe != -1 || write_pipe != -1)) transport_->close();
    read_pipe = -1;
    write_pipe = -1;
}

int Link::read_usb(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (to_read == 0 || usb_device_path.empty() || !transport_) return 0;
    // A read that completes with nothing is issued again until the time is
    // used up; but once the device has gone its pipe cannot be opened for
    // another read, and the result is 0 at once rather than a spin.
    const std::uint32_t start = clock_.tick_count();
    int result = 0;
    do {
        result = transport_->read(buffer, to_read, timeout_ms);
        if (result > 0 || result == -2 || transport_->read_pipe() == -1) break;
    } while (clock_.tick_count() - start < timeout_ms);
    return result;
}

int Link::write_usb(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                    std::uint32_t timeout_ms)
{
    written = 0;
    if (usb_device_path.empty() || !transport_) return 0;
    return transport_->write(buffer, to_write, written, timeout_ms);
}

}  // namespace tesselo
