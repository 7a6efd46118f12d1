#include "usb/usb_matching.h"

#include <cstdio>

namespace tesselo::usb {

std::string usb_device_path(const libusb_device_descriptor& device, std::uint8_t bus, std::uint8_t address)
{
    char text[64];
    std::snprintf(text, sizeof text, "usb\\vid_%04x&pid_%04x\\bus_%03u&address_%03u", device.idVendor,
                  device.idProduct, static_cast<unsigned>(bus), static_cast<unsigned>(address));
    return text;
}

std::optional<BusAddress> parse_bus_address(const std::string& path)
{
    unsigned bus = 0;
    unsigned address = 0;
    const auto at = path.find("BUS_") != std::string::npos ? path.find("BUS_") : path.find("bus_");
    if (at == std::string::npos) return std::nullopt;
    const std::string tail = path.substr(at + 4);
    char separator[2] = {};
    if (std::sscanf(tail.c_str(), "%3u%1[&]%*[a-zA-Z_]%3u", &bus, separator, &address) != 3) return std::nullopt;
    if (bus > 255 || address > 255) return std::nullopt;
    return BusAddress{static_cast<std::uint8_t>(bus), static_cast<std::uint8_t>(address)};
}

std::optional<Pipes> choose_pipes(const libusb_config_descriptor& config)
{
    for (int i = 0; i < config.bNumInterfaces; ++i) {
        const libusb_interface& interface = config.interface[i];
        if (interface.num_altsetting < 1) continue;
        const libusb_interface_descriptor& setting = interface.altsetting[0];
        Pipes pipes;
        bool out = false;
        bool in = false;
        for (int e = 0; e < setting.bNumEndpoints; ++e) {
            const libusb_endpoint_descriptor& endpoint = setting.endpoint[e];
            if ((endpoint.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK) != LIBUSB_TRANSFER_TYPE_BULK) continue;
            const bool is_in = (endpoint.bEndpointAddress & LIBUSB_ENDPOINT_DIR_MASK) == LIBUSB_ENDPOINT_IN;
            if (is_in && !in) {
                pipes.pipe01 = endpoint.bEndpointAddress;
                pipes.in_packet_size = endpoint.wMaxPacketSize;
                in = true;
            } else if (!is_in && !out) {
                pipes.pipe00 = endpoint.bEndpointAddress;
                out = true;
            }
        }
        if (in && out) {
            pipes.interface_number = setting.bInterfaceNumber;
            return pipes;
        }
    }
    return std::nullopt;
}

int read_result(int libusb_rc, int transferred)
{
    // Bytes that came are bytes read, even when the wait ran out meanwhile.
    if (transferred > 0 && (libusb_rc == LIBUSB_SUCCESS || libusb_rc == LIBUSB_ERROR_TIMEOUT)) return transferred;
    switch (libusb_rc) {
    case LIBUSB_SUCCESS: return 0;
    case LIBUSB_ERROR_TIMEOUT: return -1;
    // A remote that has gone from the bus reads as nothing.
    case LIBUSB_ERROR_NO_DEVICE: return 0;
    default: return -2;
    }
}

int write_result(int libusb_rc)
{
    switch (libusb_rc) {
    case LIBUSB_SUCCESS: return 1;
    case LIBUSB_ERROR_TIMEOUT: return -1;
    case LIBUSB_ERROR_NO_DEVICE: return 0;
    default: return -2;
    }
}

}  // namespace tesselo::usb
