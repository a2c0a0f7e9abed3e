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

enum class Quirk { None, WrongTag, NoEmptyEnd, EmptyFirst, Stall, Silent };

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
    int WriteFault = 0;       // status of the next bulk-out transfer, if not 0
    bool WritesHang = false;  // bulk-out transfers wait for ever
    bool Unplugged = false;
    unsigned char AbortStatus = 1;  // answer to a request that begins an abort
    int PendingChecks = 1;          // the next checks are answered by "pending"

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

    struct Transfer {
        UMockdevIoctlData* Urb;
        unsigned char* Bytes;
        bool Done = false;
        usbdevfs_urb& Fields() const { return *reinterpret_cast<usbdevfs_urb*>(Urb->data); }
    };

    static gboolean Handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, FakeInstrument* self) {
        const int error = self->Answer(umockdev_ioctl_client_get_arg(client),
                                       umockdev_ioctl_client_get_request(client));
        umockdev_ioctl_client_complete(client, error == 0 ? 0 : -1, error);
        return TRUE;
    }

    static UMockdevIoctlData* Resolve(UMockdevIoctlData* data, std::size_t at, std::size_t length) {
        return umockdev_ioctl_data_resolve(data, at, length, nullptr);
    }

    void Note(const char* what, int number) {
        char line[32];
        std::snprintf(line, sizeof line, "%s%x ", what, number);
        log += line;
    }

    int Answer(UMockdevIoctlData* arg, gulong request) {
        switch (request) {
            case USBDEVFS_GET_CAPABILITIES:
                *Resolve(arg, 0, sizeof(__u32))->data =
                    USBDEVFS_CAP_NO_PACKET_SIZE_LIM | USBDEVFS_CAP_BULK_SCATTER_GATHER;
                return 0;
            case USBDEVFS_DISCONNECT_CLAIM:
                Note("claim ", *Resolve(arg, 0, sizeof(usbdevfs_disconnect_claim))->data);
                return 0;
            case USBDEVFS_RELEASEINTERFACE:
                Note("release ", *Resolve(arg, 0, sizeof(int))->data);
                return 0;
            case USBDEVFS_IOCTL:  // the only one that the library sends in this wrapping: connect
                Note("attach ", *Resolve(arg, 0, sizeof(usbdevfs_ioctl))->data);
                return 0;
            case USBDEVFS_CLEAR_HALT:
                Note("halt ", *Resolve(arg, 0, sizeof(int))->data);
                stalled = false;
                return 0;
            case USBDEVFS_SUBMITURB:
                return Submit(Resolve(arg, 0, sizeof(usbdevfs_urb)));
            case USBDEVFS_REAPURBNDELAY:
                return Reap(Resolve(arg, 0, sizeof(void*)));
            case USBDEVFS_DISCARDURB:
                for (Transfer& one : transfers) {
                    if (one.Urb->client_addr != *reinterpret_cast<gulong*>(arg->data)) continue;
                    if (!std::exchange(one.Done, true)) one.Fields().status = -ENOENT;
                }
                return 0;
            default:
                return ENOTTY;
        }
    }

    int Submit(UMockdevIoctlData* data) {
        if (Unplugged) return ENODEV;
        Transfer transfer{data, nullptr};
        usbdevfs_urb& urb = transfer.Fields();
        transfer.Bytes = Resolve(data, offsetof(usbdevfs_urb, buffer), urb.buffer_length)->data;
        urb.actual_length = urb.status = 0;
        if (urb.type == USBDEVFS_URB_TYPE_CONTROL) {
            Control(transfer);
        } else if (urb.endpoint == OutEndpoint && !WritesHang) {
            BulkOut(transfer);
        }
        transfers.push_back(transfer);
        FeedReaders();
        return 0;
    }

    // The first transfer that is done goes back to the library.
    int Reap(UMockdevIoctlData* pointer) {
        const auto done = std::ranges::find(transfers, true, &Transfer::Done);
        if (done == transfers.end()) return Unplugged ? ENODEV : EAGAIN;
        umockdev_ioctl_data_set_ptr(pointer, 0, done->Urb);
        transfers.erase(done);
        return 0;
    }

    // USBTMC 1.0, table 15: odd requests begin an abort or a clear (5), even ones check it.
    void Control(Transfer& transfer) {
        const unsigned char* setup = transfer.Bytes;
        const int request = setup[1];
        Note("", request);
        std::fill_n(transfer.Bytes + 8, setup[6], static_cast<unsigned char>(0));
        transfer.Bytes[8] = request == 5 ? 1 : AbortStatus;
        if (request % 2 == 0) transfer.Bytes[8] = PendingChecks-- > 0 ? 2 : 1;
        packets.clear();
        transfer.Fields().actual_length = setup[6];
        transfer.Done = true;
    }

    void BulkOut(Transfer& transfer) {
        usbdevfs_urb& urb = transfer.Fields();
        transfer.Done = true;
        urb.status = std::exchange(WriteFault, 0);
        if (urb.status != 0) return;
        urb.actual_length = urb.buffer_length;
        Written.append(transfer.Bytes, transfer.Bytes + urb.buffer_length);
        if (urb.buffer_length == 12 && transfer.Bytes[0] == 2) QueueReply(transfer.Bytes[1]);
    }

    void QueueReply(int tag) {
        if (Replies.empty()) return;
        const FakeReply reply = Replies.front();
        Replies.pop_front();
        stalled = reply.How == Quirk::Stall;
        if (stalled || reply.How == Quirk::Silent) return;
        const auto size = reply.Claims < 0 ? static_cast<int>(reply.Data.size()) : reply.Claims;
        if (reply.How == Quirk::WrongTag) ++tag;
        std::string bytes;
        for (const int byte : {2, tag, ~tag, 0, size, size >> 8, size >> 16, size >> 24,
                               reply.EndOfMessage ? 1 : 0, 0, 0, 0}) {
            bytes += static_cast<char>(byte);
        }
        bytes += reply.Data;
        if (reply.How == Quirk::EmptyFirst) packets.emplace_back();
        for (std::size_t i = 0; i < bytes.size(); i += PacketSize) {
            packets.push_back(bytes.substr(i, PacketSize));
        }
        if (bytes.size() % PacketSize == 0 && reply.How != Quirk::NoEmptyEnd)
            packets.emplace_back();
    }

    void FeedReaders() {
        for (Transfer& one : transfers) {
            usbdevfs_urb& urb = one.Fields();
            if (one.Done || urb.endpoint != InEndpoint) continue;
            if (stalled) urb.status = -EPIPE;
            one.Done = stalled;
            while (!one.Done && !packets.empty()) {
                const std::string packet = std::move(packets.front());
                packets.pop_front();
                std::ranges::copy(packet, one.Bytes + urb.actual_length);
                urb.actual_length += static_cast<int>(packet.size());
                one.Done = packet.size() < PacketSize || urb.actual_length == urb.buffer_length;
            }
        }
    }

    UMockdevTestbed* bed = umockdev_testbed_new();
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
    std::deque<Transfer> transfers;
    std::deque<std::string> packets;  // on their way in
    bool stalled = false;
    std::string log;
};
