#include "link/USB_FuncBox.h"

#include "link/LinkTranscript.h"
#include "platform/Host.h"
#include "platform/VisaApi.h"

#include <algorithm>
#include <cstdio>
#include <optional>

// Only the opening of the resource manager can fail for the user. What viOpen, viWrite and viRead
// say is noted in the transcript: an instrument that is gone shows as an empty reply.

namespace {

constexpr std::uint32_t TimeOut = 5000;    // milliseconds
constexpr std::size_t LongestReply = 200;  // characters of a text reply
constexpr std::string_view NoEnd;          // a zero-length write stands before every read
constexpr std::string_view UsbPrefix = "USB0";
constexpr char EveryResource[] = "?*";

struct UsbSession {
    ViSession Manager = 0, Instrument = 0;
};

void NoteStatus(const char* call, ViStatus status) {
    if (status >= 0) return;
    char text[48];
    std::snprintf(text, sizeof text, "%s 0x%08X", call, static_cast<unsigned>(status));
    NoteText(LinkWay::Event, text);
}

const std::string& ChosenResource() {
    static const std::string none;
    const std::int16_t index = Link.UsbResourceIndex;
    return index >= 0 && index < MaxUsbResources ? Link.UsbResourceList[index] : none;
}

// `pause` stands before and behind the time-out of a session that is read from.
std::optional<UsbSession> OpenInstrument(std::int32_t pause) {
    UsbSession usb;
    const VisaApi& visa = TheVisa();
    if (visa.viOpenDefaultRM(&usb.Manager) < 0) {
        TheHost().Ask("Cann't Connect to USB Device", Buttons::Ok, MessageIcon::Exclamation,
                      "USB Send Message");
        Link.CommError = true;
        DropConnection();
        return std::nullopt;
    }
    NoteStatus("viOpen", visa.viOpen(usb.Manager, ChosenResource().c_str(), 0, 0, &usb.Instrument));
    if (pause > 0) Sleep(pause);
    visa.viSetAttribute(usb.Instrument, VisaTimeOutValue, TimeOut);
    if (pause > 0) Sleep(pause);
    return usb;
}

void CloseInstrument(const UsbSession& usb) {
    TheVisa().viClose(usb.Instrument);
    TheVisa().viClose(usb.Manager);
}

void Write(const UsbSession& usb, const std::uint8_t* bytes, std::size_t count) {
    std::uint32_t written = 0;
    NoteStatus("viWrite", TheVisa().viWrite(usb.Instrument, bytes,
                                            static_cast<std::uint32_t>(count), &written));
}

void Write(const UsbSession& usb, std::string_view text) {
    Write(usb, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

std::uint32_t Read(const UsbSession& usb, std::uint8_t* bytes, std::size_t count) {
    std::fill_n(bytes, count, std::uint8_t{0});
    std::uint32_t read = 0;
    NoteStatus("viRead",
               TheVisa().viRead(usb.Instrument, bytes, static_cast<std::uint32_t>(count), &read));
    return std::min(read, static_cast<std::uint32_t>(count));
}

}  // namespace

void UsbSendText(std::string_view text) {
    if (!BeginExchange()) return;
    const std::optional<UsbSession> usb = OpenInstrument(0);
    if (!usb) return;
    NoteText(LinkWay::Sent, text);
    Write(*usb, text);
    CloseInstrument(*usb);
}

void UsbSendBlock(std::span<const std::uint8_t> bytes) {
    if (!BeginExchange()) return;
    const std::optional<UsbSession> usb = OpenInstrument(0);
    if (!usb) return;
    NoteBlock(LinkWay::Sent, bytes);
    Write(*usb, bytes.data(), bytes.size());
    Sleep(500);
    CloseInstrument(*usb);
    Sleep(100);
}

std::string UsbReadText() {
    const std::optional<UsbSession> usb = OpenInstrument(100);
    if (!usb) return {};
    Write(*usb, NoEnd);
    Sleep(200);
    std::string reply(LongestReply, '\0');
    Read(*usb, reinterpret_cast<std::uint8_t*>(reply.data()), reply.size());
    NoteText(LinkWay::Received, reply);
    Sleep(50);
    CloseInstrument(*usb);
    return reply;
}

std::string UsbQueryText(std::string_view text) {
    UsbSendText(text);
    if (Link.CommError) return {};
    Pump();
    Sleep(100);
    return UsbReadText();
}

std::int32_t ReadBlock(std::span<std::uint8_t> bytes) {
    Sleep(1000);
    const std::optional<UsbSession> usb = OpenInstrument(100);
    if (!usb) return 0;
    Write(*usb, NoEnd);
    Sleep(500);
    const std::uint32_t read = Read(*usb, bytes.data(), bytes.size());
    NoteBlock(LinkWay::Received, bytes.first(read));
    Sleep(2000);
    CloseInstrument(*usb);
    return static_cast<std::int32_t>(read);
}

std::int16_t ScanUsbResources() {
    const VisaApi& visa = TheVisa();
    Link.UsbResourceList.fill({});
    ViSession manager = 0, list = 0;
    if (visa.viOpenDefaultRM(&manager) < 0) return 0;
    std::int16_t found = 0;
    std::uint32_t count = 0;
    char name[VisaNameLength] = {};
    ViStatus status = visa.viFindRsrc(manager, EveryResource, &list, &count, name);
    for (std::uint32_t i = 0; i < count && status >= 0 && found < MaxUsbResources; ++i) {
        if (i > 0) status = visa.viFindNext(list, name);
        if (status >= 0 && std::string_view(name).starts_with(UsbPrefix))
            Link.UsbResourceList[found++] = name;
    }
    visa.viClose(manager);
    return found;
}
