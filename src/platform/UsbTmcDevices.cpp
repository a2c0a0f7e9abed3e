#include "platform/UsbTmcDevices.h"

#include "platform/VisaNames.h"

#include <libusb.h>
#include <array>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <span>

// An instrument is an interface of class 0xFE (application specific), subclass 3, of whatever
// protocol: 0 is plain USBTMC, 1 adds requests not needed here (USBTMC 1.0, section 5.5).
// Endpoint addresses differ from one instrument to the next and come from the descriptors.

namespace {

constexpr std::uint8_t TmcClass = 0xFE;
constexpr std::uint8_t TmcSubclass = 0x03;
constexpr int PacketSizeBits = 0x7FF;  // USB 2.0, table 9-13: the bits above count transactions
constexpr int MaxPorts = 7;            // hubs in a row, USB 2.0, section 4.1.1

struct DeviceList {
    explicit DeviceList(libusb_context* context)
        : Count(libusb_get_device_list(context, &Devices)) {}
    ~DeviceList() {
        if (Devices != nullptr) libusb_free_device_list(Devices, 1);
    }
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;
    std::span<libusb_device* const> All() const {
        return {Devices, static_cast<std::size_t>(Count > 0 ? Count : 0)};
    }

    libusb_device** Devices = nullptr;
    ssize_t Count;
};

// Interface and endpoints of one setting, if it is a whole USBTMC interface.
std::optional<UsbTmcLink> LinkOf(const libusb_interface_descriptor& setting) {
    if (setting.bInterfaceClass != TmcClass || setting.bInterfaceSubClass != TmcSubclass) return {};
    UsbTmcLink link;
    link.Interface = setting.bInterfaceNumber;
    for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints)) {
        const int kind = endpoint.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK;
        if (kind != LIBUSB_ENDPOINT_TRANSFER_TYPE_BULK) continue;
        if ((endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) == 0) {
            link.BulkOut = endpoint.bEndpointAddress;
        } else {
            link.BulkIn = endpoint.bEndpointAddress;
            link.InPacket = static_cast<std::uint16_t>(endpoint.wMaxPacketSize & PacketSizeBits);
        }
    }
    if (link.BulkOut == 0 || link.BulkIn == 0 || link.InPacket == 0) return {};
    return link;
}

std::optional<UsbTmcLink> LinkOf(libusb_device* device) {
    libusb_config_descriptor* found = nullptr;
    if (libusb_get_active_config_descriptor(device, &found) != 0) return {};
    const std::unique_ptr<libusb_config_descriptor, decltype(&libusb_free_config_descriptor)>
        config(found, libusb_free_config_descriptor);
    for (const auto& interface : std::span(config->interface, config->bNumInterfaces)) {
        if (interface.num_altsetting == 0) continue;
        if (const auto link = LinkOf(interface.altsetting[0])) return link;
    }
    return {};
}

// The kernel has read the serial number when the instrument was plugged in. Its copy is there
// without opening the instrument, which wakes it up and asks for rights that may be missing.
std::string SerialOf(libusb_device* device) {
    std::array<std::uint8_t, MaxPorts> ports{};
    const int count = libusb_get_port_numbers(device, ports.data(), MaxPorts);
    std::string place = std::to_string(libusb_get_bus_number(device));
    for (int i = 0; i < count; ++i) place += (i == 0 ? "-" : ".") + std::to_string(ports[i]);
    std::ifstream file("/sys/bus/usb/devices/" + place + "/serial", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string NameOf(libusb_device* device) {
    libusb_device_descriptor descriptor{};
    libusb_get_device_descriptor(device, &descriptor);
    return UsbResourceName(descriptor.idVendor, descriptor.idProduct, SerialOf(device));
}

ViStatus OpenDevice(libusb_device* device, UsbTmcLink& link) {
    if (const int error = libusb_open(device, &link.Handle)) {
        link.Handle = nullptr;
        return StatusOfUsb(error);
    }
    libusb_set_auto_detach_kernel_driver(link.Handle, 1);
    const int error = libusb_claim_interface(link.Handle, link.Interface);
    if (error == 0) return VisaSuccess;
    libusb_close(link.Handle);
    link.Handle = nullptr;
    return StatusOfUsb(error);
}

}  // namespace

std::vector<std::string> ListUsbTmc(libusb_context* context) {
    std::vector<std::string> names;
    const DeviceList list(context);
    for (libusb_device* device : list.All()) {
        if (LinkOf(device)) names.push_back(NameOf(device));
    }
    return names;
}

ViStatus OpenUsbTmc(libusb_context* context, std::string_view name, UsbTmcLink& link) {
    const DeviceList list(context);
    for (libusb_device* device : list.All()) {
        const auto found = LinkOf(device);
        if (!found || !IsSameResource(NameOf(device), name)) continue;
        link = *found;
        return OpenDevice(device, link);
    }
    return VisaNotFound;
}

void CloseUsbTmc(UsbTmcLink& link) {
    if (link.Handle == nullptr) return;
    libusb_release_interface(link.Handle, link.Interface);
    libusb_close(link.Handle);
    link.Handle = nullptr;
}
