#include "platform/UsbTmcLink.h"

#include "platform/UsbTmcFrames.h"
#include "platform/UsbTmcRecovery.h"

#include <libusb.h>
#include <algorithm>
#include <vector>

// A reply begins with one packet, whose header says how much follows; the rest is asked for in
// whole packets, so that no packet can be longer than what is there to hold it. A packet that is
// not full ends the transfer. When the data end with a full packet an empty one has to follow,
// which some instruments leave out: it is waited for briefly, and skipped where it comes late.

namespace {

constexpr std::size_t PieceBytes = 65536;  // of a transfer; each may take a whole time-out
constexpr unsigned EndTimeOut = 100;       // milliseconds for the packet that ends a transfer

// Successive messages have different tags, although each is sent in a session of its own.
std::uint8_t TakeTag() {
    static std::uint8_t tag = 0;
    return tag = NextTag(tag);
}

// The USB library takes 0 for ever.
unsigned UsbTimeOut(const UsbTmcLink& link) {
    return link.TimeOut == VisaForever ? 0 : std::max(link.TimeOut, 1U);
}

int Send(const UsbTmcLink& link, std::span<std::uint8_t> frame, std::size_t& sent) {
    while (sent < frame.size()) {
        const auto piece = static_cast<int>(std::min(frame.size() - sent, PieceBytes));
        int took = 0;
        const int error = libusb_bulk_transfer(link.Handle, link.BulkOut, frame.data() + sent,
                                               piece, &took, UsbTimeOut(link));
        sent += static_cast<std::size_t>(took);
        if (error != 0) return error;
        if (took < piece) return LIBUSB_ERROR_IO;
    }
    return 0;
}

int Receive(const UsbTmcLink& link, std::span<std::uint8_t> piece, std::size_t& got,
            unsigned timeOut) {
    int count = 0;
    const int error = libusb_bulk_transfer(link.Handle, link.BulkIn, piece.data(),
                                           static_cast<int>(piece.size()), &count, timeOut);
    got = static_cast<std::size_t>(count);
    return error;
}

// An unplugged instrument often shows as a failed transfer first and as gone only when asked again.
ViStatus StatusAfter(int error, int recovery) {
    return StatusOfUsb(recovery == LIBUSB_ERROR_NO_DEVICE ? recovery : error);
}

ViStatus FailedWrite(const UsbTmcLink& link, std::uint8_t tag, int error) {
    if (error == LIBUSB_ERROR_NO_DEVICE) return VisaConnectionLost;
    return StatusAfter(error, AbortBulkOut(link, tag));
}

ViStatus FailedRead(const UsbTmcLink& link, std::uint8_t tag, int error) {
    if (error == LIBUSB_ERROR_NO_DEVICE) return VisaConnectionLost;
    // A stalled endpoint has already ended its transfer.
    if (error == LIBUSB_ERROR_PIPE) {
        return StatusAfter(error, libusb_clear_halt(link.Handle, link.BulkIn));
    }
    return StatusAfter(error, AbortBulkIn(link, tag));
}

// The first packet of the reply; the empty end of the reply before may stand in front of it.
int ReceiveFirst(const UsbTmcLink& link, std::span<std::uint8_t> packet, std::size_t& got) {
    const int error = Receive(link, packet, got, UsbTimeOut(link));
    return error == 0 && got == 0 ? Receive(link, packet, got, UsbTimeOut(link)) : error;
}

// After the last byte of data came in a full packet: what is left is padding at most.
ViStatus ReceiveEnd(const UsbTmcLink& link, std::uint8_t tag, std::span<std::uint8_t> packet) {
    std::size_t got = 0;
    const int error = Receive(link, packet, got, EndTimeOut);
    if (error == LIBUSB_ERROR_TIMEOUT && got == 0) return VisaSuccess;
    if (error != 0) return FailedRead(link, tag, error);
    return got < packet.size() ? VisaSuccess : FailedRead(link, tag, LIBUSB_ERROR_OVERFLOW);
}

// One request and the transfer that answers it.
ViStatus ReadTransfer(const UsbTmcLink& link, std::span<std::uint8_t> buffer, std::uint32_t& read,
                      TmcReply& reply) {
    const std::uint8_t tag = TakeTag();
    auto request = FrameRequest(tag, static_cast<std::uint32_t>(buffer.size()));
    std::size_t sent = 0;
    if (const int error = Send(link, request, sent)) return FailedWrite(link, tag, error);

    const std::size_t packet = link.InPacket;
    std::vector<std::uint8_t> piece(PieceBytes + packet);
    std::size_t got = 0;
    int error = ReceiveFirst(link, std::span(piece).first(packet), got);
    if (error != 0) return FailedRead(link, tag, error);
    const auto header = ReadReplyHeader(std::span(piece).first(got), tag);
    if (!header) return FailedRead(link, tag, LIBUSB_ERROR_IO);
    reply = *header;

    const std::size_t wanted = std::min<std::size_t>(reply.Size, buffer.size());
    const auto take = [&](std::span<const std::uint8_t> bytes) {
        const auto fitting = bytes.first(std::min(bytes.size(), wanted - read));
        std::ranges::copy(fitting, buffer.begin() + read);
        read += static_cast<std::uint32_t>(fitting.size());
    };
    take(std::span(piece).first(got).subspan(TmcHeaderSize));
    bool ended = got < packet;
    while (!ended && read < wanted) {
        const std::size_t next = std::min(wanted - read, PieceBytes);
        const std::size_t length = (next + packet - 1) / packet * packet;
        error = Receive(link, std::span(piece).first(length), got, UsbTimeOut(link));
        take(std::span(piece).first(got));
        if (error != 0) return FailedRead(link, tag, error);
        ended = got < length;
    }
    if (!ended && reply.Size > buffer.size()) return FailedRead(link, tag, LIBUSB_ERROR_OVERFLOW);
    if (read < reply.Size) return VisaIoError;
    return ended ? VisaSuccess : ReceiveEnd(link, tag, std::span(piece).first(packet));
}

}  // namespace

ViStatus StatusOfUsb(int error) {
    switch (error) {
        case LIBUSB_ERROR_TIMEOUT:
            return VisaTimeOut;
        case LIBUSB_ERROR_NO_DEVICE:
            return VisaConnectionLost;
        case LIBUSB_ERROR_ACCESS:
            return VisaNoPermission;
        case LIBUSB_ERROR_BUSY:
            return VisaBusy;
        default:
            return VisaIoError;
    }
}

ViStatus WriteMessage(const UsbTmcLink& link, std::span<const std::uint8_t> bytes,
                      std::uint32_t& written) {
    written = 0;
    if (bytes.empty()) return VisaSuccess;  // the class has no message without data
    const std::uint8_t tag = TakeTag();
    auto frame = FrameMessage(tag, bytes);
    std::size_t sent = 0;
    const int error = Send(link, frame, sent);
    const std::size_t data = sent - std::min(sent, TmcHeaderSize);
    written = static_cast<std::uint32_t>(std::min(data, bytes.size()));
    return error == 0 ? VisaSuccess : FailedWrite(link, tag, error);
}

ViStatus ReadMessage(const UsbTmcLink& link, std::span<std::uint8_t> buffer, std::uint32_t& read) {
    read = 0;
    while (read < buffer.size()) {
        TmcReply reply;
        std::uint32_t got = 0;
        const ViStatus status = ReadTransfer(link, buffer.subspan(read), got, reply);
        read += got;
        if (status < 0) return status;
        if (reply.EndOfMessage) return VisaSuccess;
        if (got == 0) return VisaIoError;  // neither data nor an end: it would never come to one
    }
    return VisaEndBySize;
}
