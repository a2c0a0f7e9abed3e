#pragma once
// A USBTMC instrument on a mocked bus: answers what the USB library asks of the kernel. A thread of
// the bus does that, while the test waits for the library.
#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>
#include <umockdev.h>
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <deque>
#include <string>
#include <utility>

enum class Quirk { None, WrongTag, NoEmptyEnd, EmptyFirst, Stall };

/// What the instrument does at the next request for a message.
struct FakeReply {
    std::string Data;
    bool EndOfMessage = true;
    int Claims = -1;  // TransferSize in the header; -1: as long as the data
    Quirk How = Quirk::None;
};

class FakeInstrument {
public:
    FakeInstrument() {
        umockdev_testbed_add_from_string(bed, Device, nullptr);
        g_signal_connect(handler, "handle-ioctl", G_CALLBACK(Handle), this);
        umockdev_testbed_attach_ioctl(bed, "/dev/bus/usb/001/002", handler, nullptr);
    }
    ~FakeInstrument() {
        umockdev_testbed_detach_ioctl(bed, "/dev/bus/usb/001/002", nullptr);
        g_object_unref(handler);
        g_object_unref(bed);
    }

    /// What has happened since the last time: "claim 1 ", class requests by their number, "3 ", ...
    std::string TakeLog() { return std::exchange(log, {}); }

    std::deque<FakeReply> Replies;
    std::string Written;      // all bulk-out bytes
    bool WritesHang = false;  // bulk-out transfers wait for ever
    bool Unplugged = false;
    unsigned char AbortStatus = 1;  // answer to a request that begins an abort

private:
    static constexpr std::size_t PacketSize = 512;
    static constexpr unsigned char InEndpoint = 0x83, OutEndpoint = 0x02;

    // Vendor 1234, product ABCD. An interface of another class stands before the USBTMC one, which
    // has bulk-out, bulk-in and interrupt-in endpoints (USB 2.0, section 9.6).
    static constexpr const char* Device =
        "P: /devices/usb1/1-1\nN: bus/usb/001/002\nE: DEVNAME=/dev/bus/usb/001/002\n"
        "E: BUSNUM=001\nE: DEVNUM=002\nE: DEVTYPE=usb_device\nE: SUBSYSTEM=usb\n"
        "A: bConfigurationValue=1\\n\nA: busnum=1\\n\nA: devnum=2\\n\nA: speed=480\\n\n"
        "A: serial=KT::33 1\\n\nH: descriptors=12010002000000403412CDAB000101020301"
        "0902300002010080320904000000FF0000000904010003FE030100"
        "0705020200020007058302000200070581030800FF\n";

    static gboolean Handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, FakeInstrument* self) {
        const int error = self->Answer(umockdev_ioctl_client_get_arg(client),
                                       umockdev_ioctl_client_get_request(client));
        umockdev_ioctl_client_complete(client, error == 0 ? 0 : -1, error);
        return TRUE;
    }

    static UMockdevIoctlData* Resolve(UMockdevIoctlData* data, std::size_t at, std::size_t length) {
        return umockdev_ioctl_data_resolve(data, at, length, nullptr);
    }

    // What is asked for begins with the number of an interface or endpoint.
    int Note(const char* what, UMockdevIoctlData* arg) {
        char line[16];
        std::snprintf(line, sizeof line, "%s%x ", what, *Resolve(arg, 0, sizeof(int))->data);
        log += line;
        return 0;
    }

    int Answer(UMockdevIoctlData* arg, gulong request) {
        switch (request) {
            case USBDEVFS_GET_CAPABILITIES:
                *Resolve(arg, 0, sizeof(__u32))->data =
                    USBDEVFS_CAP_NO_PACKET_SIZE_LIM | USBDEVFS_CAP_BULK_SCATTER_GATHER;
                return 0;
            case USBDEVFS_DISCONNECT_CLAIM:
                return Note("claim ", arg);
            case USBDEVFS_RELEASEINTERFACE:
                return Note("release ", arg);
            case USBDEVFS_IOCTL:  // the only one that the library sends in this wrapping: connect
                return Note("attach ", arg);
            case USBDEVFS_CLEAR_HALT:
                stalled = false;
                return Note("halt ", arg);
            case USBDEVFS_SUBMITURB:
                return Submit(Resolve(arg, 0, sizeof(usbdevfs_urb)));
            case USBDEVFS_REAPURBNDELAY:
                if (!std::exchange(done, false)) return EAGAIN;
                umockdev_ioctl_data_set_ptr(Resolve(arg, 0, sizeof(void*)), 0, submitted);
                return 0;
            case USBDEVFS_DISCARDURB:
                if (!std::exchange(done, true)) UrbOf(submitted).status = -ENOENT;
                return 0;
            default:
                return ENOTTY;
        }
    }

    static usbdevfs_urb& UrbOf(UMockdevIoctlData* data) {
        return *reinterpret_cast<usbdevfs_urb*>(data->data);
    }

    // One transfer at a time: the driver waits for each.
    int Submit(UMockdevIoctlData* data) {
        if (Unplugged) return ENODEV;
        submitted = data;
        usbdevfs_urb& urb = UrbOf(data);
        unsigned char* bytes =
            Resolve(data, offsetof(usbdevfs_urb, buffer), urb.buffer_length)->data;
        urb.actual_length = urb.status = 0;
        if (urb.type == USBDEVFS_URB_TYPE_CONTROL)
            done = Control(urb, bytes);
        else
            done = urb.endpoint == InEndpoint ? BulkIn(urb, bytes) : BulkOut(urb, bytes);
        return 0;
    }

    // USBTMC 1.0, table 15: odd requests begin an abort or a clear (5), even ones check it, the
    // first time in vain.
    bool Control(usbdevfs_urb& urb, unsigned char* setup) {
        const int request = setup[1];
        log += std::to_string(request) + ' ';
        std::fill_n(setup + 8, setup[6], static_cast<unsigned char>(0));
        const bool begins = request % 2 != 0;
        if (begins) setup[8] = request == 5 ? 1 : AbortStatus;
        if (!begins) setup[8] = pending ? 2 : 1;
        pending = begins;
        packets.clear();
        urb.actual_length = setup[6];
        return true;
    }

    bool BulkOut(usbdevfs_urb& urb, const unsigned char* bytes) {
        if (WritesHang || urb.endpoint != OutEndpoint) return false;
        urb.actual_length = urb.buffer_length;
        Written.append(bytes, bytes + urb.buffer_length);
        if (urb.buffer_length == 12 && bytes[0] == 2) QueueReply(bytes[1]);
        return true;
    }

    // A packet that is not full ends the transfer.
    bool BulkIn(usbdevfs_urb& urb, unsigned char* bytes) {
        if (stalled) urb.status = -EPIPE;
        bool ended = stalled;
        while (!ended && !packets.empty()) {
            const std::string packet = std::move(packets.front());
            packets.pop_front();
            std::ranges::copy(packet, bytes + urb.actual_length);
            urb.actual_length += static_cast<int>(packet.size());
            ended = packet.size() < PacketSize || urb.actual_length == urb.buffer_length;
        }
        return ended;
    }

    void QueueReply(int tag) {
        if (Replies.empty()) return;
        const FakeReply reply = Replies.front();
        Replies.pop_front();
        stalled = reply.How == Quirk::Stall;
        if (stalled) return;
        const auto size = reply.Claims < 0 ? static_cast<int>(reply.Data.size()) : reply.Claims;
        if (reply.How == Quirk::WrongTag) ++tag;
        std::string bytes;
        for (const int byte : {2, tag, ~tag, 0, size, size >> 8, size >> 16, size >> 24,
                               reply.EndOfMessage ? 1 : 0, 0, 0, 0})
            bytes += static_cast<char>(byte);
        bytes += reply.Data;
        if (reply.How == Quirk::EmptyFirst) packets.emplace_back();
        for (std::size_t i = 0; i < bytes.size(); i += PacketSize)
            packets.push_back(bytes.substr(i, PacketSize));
        if (bytes.size() % PacketSize == 0 && reply.How != Quirk::NoEmptyEnd)
            packets.emplace_back();
    }

    UMockdevTestbed* bed = umockdev_testbed_new();
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
    UMockdevIoctlData* submitted = nullptr;
    bool done = false;                // it can go back to the driver
    std::deque<std::string> packets;  // on their way in
    bool stalled = false, pending = false;
    std::string log;
};
