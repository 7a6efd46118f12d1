#include "usb/libusb_transport.h"

namespace tesselo::usb {

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
        bulk_.emplace(pipes_, BulkCalls{[handle](std::uint8_t endpoint, std::uint8_t* data, int length, int* transferred,
                                                 unsigned timeout_ms) {
                                            return libusb_bulk_transfer(handle, endpoint, data, length, transferred,
                                                                        timeout_ms);
                                        },
                                        [handle](std::uint8_t endpoint) { return libusb_clear_halt(handle, endpoint); }});
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
    bulk_.reset();
}

int LibusbTransport::read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms)
{
    return bulk_ ? bulk_->read(buffer, to_read, timeout_ms) : 0;
}

int LibusbTransport::write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
                           std::uint32_t timeout_ms)
{
    written = 0;
    return bulk_ ? bulk_->write(buffer, to_write, written, timeout_ms) : 0;
}

}  // namespace tesselo::usb
