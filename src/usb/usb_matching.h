#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <libusb.h>

namespace tesselo::usb {

// The path a device has in the search for the remote: its vendor and
// product ids in the words the link looks for, and where it sits on the bus.
std::string usb_device_path(const libusb_device_descriptor& device, std::uint8_t bus, std::uint8_t address);

// The bus and the address in such a path.
struct BusAddress {
    std::uint8_t bus = 0;
    std::uint8_t address = 0;
};
std::optional<BusAddress> parse_bus_address(const std::string& path);

// The remote's two pipes: "PIPE00" its interface's bulk OUT endpoint, to
// write; "PIPE01" its bulk IN endpoint, to read.
struct Pipes {
    int interface_number = -1;
    std::uint8_t pipe00 = 0;  // bulk OUT
    std::uint8_t pipe01 = 0;  // bulk IN
    std::uint16_t in_packet_size = 64;
};
// The first interface that has both, in its first alternate setting.
std::optional<Pipes> choose_pipes(const libusb_config_descriptor& config);

// libusb's outcome of a bulk transfer as the link's read and write results.
int read_result(int libusb_rc, int transferred);
int write_result(int libusb_rc);

}  // namespace tesselo::usb
