#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <libusb.h>

#include "core/link/transport.h"
#include "usb/bulk_pipes.h"
#include "usb/usb_matching.h"

namespace tesselo::usb {

// The real remote on the USB bus, through libusb: no kernel driver, and with
// the udev rule no root either.
class LibusbTransport final : public Transport {
public:
    LibusbTransport();
    ~LibusbTransport() override;
    LibusbTransport(const LibusbTransport&) = delete;
    LibusbTransport& operator=(const LibusbTransport&) = delete;

    std::vector<std::string> device_paths() override;
    bool open(const std::string& path) override;
    void close() override;
    // -1 while closed, and once the remote has left the bus.
    int read_pipe() const override { return bulk_ && !bulk_->gone() ? pipes_.pipe01 : -1; }
    int write_pipe() const override { return bulk_ && !bulk_->gone() ? pipes_.pipe00 : -1; }
    int read(std::uint8_t* buffer, std::size_t to_read, std::uint32_t timeout_ms) override;
    int write(const std::uint8_t* buffer, std::size_t to_write, std::size_t& written,
              std::uint32_t timeout_ms) override;

private:
    libusb_context* context_ = nullptr;
    libusb_device_handle* handle_ = nullptr;
    Pipes pipes_;
    std::optional<BulkPipes> bulk_;
};

}  // namespace tesselo::usb
