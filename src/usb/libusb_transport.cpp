#include "usb/libusb_transport.h"

#include <algorithm>

namespace tesselo::usb {

namespace {

// Room for the longest transfer, in whole packets, so that a device never overflows it.
std::size_t read_room(std::size_t to_read, std::uint16_t packet)
{
    const std::size_t p = packet == 0 ? 64 : packet;
    return ((std::max<std::size_t>(to_read, 4105) + p - 1) / p) * p;
}

}  // namespace

LibusbTransport::LibusbTransport()
{
    if (libusb_init(&context_) != LIBUSB_SUCCESS) context_ = nullptr;
}

LibusbTransport::~LibusbTransport()
{
    close();
    if (context_) libusb_exit(context_);
}

std::vector<std::string> LibusbTransport::device_paths()
{
    std::vector<std::string> paths;
    if (!context_) return paths;
    libusb_device** list = nullptr;
    const ssize_t count = libusb_get_device_list(context_, &list);
    for (ssize_t i = 0; i < count; ++i) {
        libusb_device_descriptor d{};
        if (libusb_get_device_descriptor(list[i], &d) != LIBUSB_SUCCESS) continue;
        paths.push_back(usb_device_path(d, libusb_get_bus_number(list[i]), libusb_get_device_address(list[i])));
    }
    if (list) libusb_free_device_list(list, 1);
    return paths;
}

bool LibusbTransport::open(const std::string& path)
{
    close();
    const auto where = parse_bus_address(path);
    if (!context_ || !where) return false;
    libusb_device** list = nullptr;
    const ssize_t count = libusb_get_device_list(context_, &list);
    for (ssize_t i = 0; i < count && !handle_; ++i) {
        if (libusb_get_bus_number(list[i]) != where->bus || libusb_get_device_address(list[i]) != where->address)
            continue;
        libusb_config_descriptor* config = nullptr;
        if (libusb_get_active_config_descriptor(list[i], &config) != LIBUSB_SUCCESS) continue;
        const auto pipes = choose_pipes(*config);
        libusb_free_config_descriptor(config);
        libusb_device_handle* handle = nullptr;
        if (!pipes || libusb_open(list[i], &handle) != LIBUSB_SUCCESS) continue;
        libusb_set_auto_detach_kernel_driver(handle, 1);
        if (libusb_claim_interface(handle, pipes->interface_number) != LIBUSB_SUCCESS) {
            libusb_close(handle);
            continue;
        }
        handle_ = handle;
        pipes_ = *pipes;
    }
    if (list) libusb_free_device_list(list, 1);
    return handle_ != nullptr;
}

void LibusbTransport::close()
{
    if (handle_) {
        libusb_release_interface(handle_, pipes_.interface_number);
        libusb_close(handle_);
    }
    handle_ = nullptr;
    rest_.clear();
}

int LibusbTransport::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    if (!handle_) return 0;
    if (rest_.empty()) {
        std::vector<std::uint8_t> room(read_room(to_read, pipes_.in_packet_size));
        int transferred = 0;
        const int rc = libusb_bulk_transfer(handle_, pipes_.pipe01, room.data(), static_cast<int>(room.size()),
                                            &transferred, timeout_ms);
        const int result = read_result(rc, transferred);
        if (result <= 0) return result;
        rest_.assign(room.begin(), room.begin() + result);
    }
    const std::size_t n = std::min(to_read, rest_.size());
    std::copy_n(rest_.begin(), n, buffer);
    rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(n));
    return static_cast<int>(n);
}

int LibusbTransport::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                           std::uint32_t timeout_ms)
{
    written = 0;
    if (!handle_) return 0;
    int transferred = 0;
    const int rc = libusb_bulk_transfer(handle_, pipes_.pipe00, const_cast<std::uint8_t*>(buffer),
                                        static_cast<int>(to_write), &transferred, timeout_ms);
    written = static_cast<std::size_t>(std::max(transferred, 0));
    return write_result(rc);
}

}  // namespace tesselo::usb
