// The libusb transport finds the remote by its ids, takes PIPE00 (bulk OUT)
// and PIPE01 (bulk IN), and gives libusb's outcomes as the link's results.
#include <gtest/gtest.h>

#include "core/document/clock.h"
#include "core/link/link.h"
#include "usb/usb_matching.h"

namespace tesselo::usb {
namespace {

libusb_device_descriptor device(std::uint16_t vendor, std::uint16_t product)
{
    libusb_device_descriptor d{};
    d.bLength = LIBUSB_DT_DEVICE_SIZE;
    d.bDescriptorType = LIBUSB_DT_DEVICE;
    d.idVendor = vendor;
    d.idProduct = product;
    return d;
}

libusb_endpoint_descriptor endpoint(std::uint8_t address, std::uint8_t type, std::uint16_t packet = 64)
{
    libusb_endpoint_descriptor e{};
    e.bLength = LIBUSB_DT_ENDPOINT_SIZE;
    e.bDescriptorType = LIBUSB_DT_ENDPOINT;
    e.bEndpointAddress = address;
    e.bmAttributes = type;
    e.wMaxPacketSize = packet;
    return e;
}

// A bus of the devices given, as the link sees it through their paths.
class DescriptorBus : public Transport {
public:
    std::vector<std::string> paths;
    std::vector<std::string> device_paths() override { return paths; }
    bool open(const std::string&) override { return false; }
    void close() override {}
    int read_pipe() const override { return -1; }
    int write_pipe() const override { return -1; }
    int read(std::uint8_t*, std::size_t, std::uint32_t) override { return 0; }
    int write(const std::uint8_t*, std::size_t, std::size_t&, std::uint32_t) override { return 0; }
};

TEST(UsbMatching, TheRemoteIsFoundByItsVendorAndProductPastOtherDevices)
{
    auto bus = std::make_unique<DescriptorBus>();
    bus->paths = {usb_device_path(device(0x1D6B, 0x0002), 1, 1), usb_device_path(device(0x1D5C, 0x5101), 1, 2),
                  usb_device_path(device(0x0A5C, 0x5100), 1, 3), usb_device_path(device(0x1D5C, 0x5100), 2, 7)};
    VirtualClock clock;
    Link link(clock);
    link.set_transport(std::move(bus));
    const std::string found = link.find_usb_device();
    EXPECT_EQ(found, "USB\\VID_1D5C&PID_5100\\BUS_002&ADDRESS_007");
    const auto where = parse_bus_address(found);
    ASSERT_TRUE(where);
    EXPECT_EQ(where->bus, 2);
    EXPECT_EQ(where->address, 7);
}

TEST(UsbMatching, APathOfTheLowerCaseIdsIsWhatTheBusGives)
{
    EXPECT_EQ(usb_device_path(device(0x1D5C, 0x5100), 3, 12), "usb\\vid_1d5c&pid_5100\\bus_003&address_012");
    EXPECT_FALSE(parse_bus_address("usb\\vid_1d5c&pid_5100"));
}

TEST(UsbMatching, Pipe00IsTheBulkOutAndPipe01TheBulkInEndpoint)
{
    // Interface 0 has an interrupt endpoint only; interface 1 is the remote's.
    libusb_endpoint_descriptor first[] = {endpoint(0x83, LIBUSB_TRANSFER_TYPE_INTERRUPT)};
    libusb_endpoint_descriptor second[] = {endpoint(0x84, LIBUSB_TRANSFER_TYPE_INTERRUPT),
                                           endpoint(0x81, LIBUSB_TRANSFER_TYPE_BULK, 512),
                                           endpoint(0x02, LIBUSB_TRANSFER_TYPE_BULK, 512),
                                           endpoint(0x85, LIBUSB_TRANSFER_TYPE_BULK, 512)};
    libusb_interface_descriptor settings[2]{};
    settings[0].bInterfaceNumber = 0;
    settings[0].bNumEndpoints = 1;
    settings[0].endpoint = first;
    settings[1].bInterfaceNumber = 1;
    settings[1].bNumEndpoints = 4;
    settings[1].endpoint = second;
    libusb_interface interfaces[2]{};
    interfaces[0].altsetting = &settings[0];
    interfaces[0].num_altsetting = 1;
    interfaces[1].altsetting = &settings[1];
    interfaces[1].num_altsetting = 1;
    libusb_config_descriptor config{};
    config.bNumInterfaces = 2;
    config.interface = interfaces;

    const auto pipes = choose_pipes(config);
    ASSERT_TRUE(pipes);
    EXPECT_EQ(pipes->interface_number, 1);
    EXPECT_EQ(pipes->pipe00, 0x02);
    EXPECT_EQ(pipes->pipe01, 0x81);
    EXPECT_EQ(pipes->in_packet_size, 512);
}

TEST(UsbMatching, AnInterfaceWithoutBothBulkPipesIsNoRemote)
{
    libusb_endpoint_descriptor only_in[] = {endpoint(0x81, LIBUSB_TRANSFER_TYPE_BULK)};
    libusb_interface_descriptor setting{};
    setting.bNumEndpoints = 1;
    setting.endpoint = only_in;
    libusb_interface interface{};
    interface.altsetting = &setting;
    interface.num_altsetting = 1;
    libusb_config_descriptor config{};
    config.bNumInterfaces = 1;
    config.interface = &interface;
    EXPECT_FALSE(choose_pipes(config));
}

TEST(UsbResults, ReadsGiveTheLinksResults)
{
    EXPECT_EQ(read_result(LIBUSB_SUCCESS, 48), 48);
    EXPECT_EQ(read_result(LIBUSB_SUCCESS, 0), 0);
    EXPECT_EQ(read_result(LIBUSB_ERROR_TIMEOUT, 0), -1);
    EXPECT_EQ(read_result(LIBUSB_ERROR_TIMEOUT, 5), 5);
    EXPECT_EQ(read_result(LIBUSB_ERROR_NO_DEVICE, 0), 0);
    EXPECT_EQ(read_result(LIBUSB_ERROR_PIPE, 0), -2);
    EXPECT_EQ(read_result(LIBUSB_ERROR_IO, 0), -2);
    EXPECT_EQ(read_result(LIBUSB_ERROR_OVERFLOW, 0), -2);
}

TEST(UsbResults, WritesGiveTheLinksResults)
{
    EXPECT_EQ(write_result(LIBUSB_SUCCESS), 1);
    EXPECT_EQ(write_result(LIBUSB_ERROR_TIMEOUT), -1);
    EXPECT_EQ(write_result(LIBUSB_ERROR_NO_DEVICE), 0);
    EXPECT_EQ(write_result(LIBUSB_ERROR_PIPE), -2);
}

}  // namespace
}  // namespace tesselo::usb
