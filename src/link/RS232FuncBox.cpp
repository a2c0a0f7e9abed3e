#include "link/RS232FuncBox.h"

#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "link/LinkTranscript.h"
#include "platform/Host.h"
#include "platform/SerialPort.h"
#include "platform/Settings.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::int16_t SilentTicks = 40;       // tenths of a second without input
constexpr std::size_t MostBuffered = 1 << 16;  // bytes, far above any reply

// Time for a character to drain: 30 bits at 9600 baud. The figure is fixed whatever the set rate.
constexpr double CharacterTime = std::max(30000.0 / 9600.0, 3.0);  // milliseconds

struct EventRow {
    std::int16_t Code;
    std::string_view Text;
};
constexpr EventRow Events[] = {
    {1, ""},
    {3, "Change in CTS Detected"},
    {4, "Change in DSR Detected"},
    {5, "Change in CD Detected"},
    {6, "The Phone is Ringing"},
    {7, "End of File Detected"},
    {1001, "Break Received"},
    {1002, "CTS Timeout"},
    {1003, "DSR Timeout"},
    {1004, "Framing Error"},
    {1006, "Overrun Error"},
    {1007, "Carrier Detect Timeout"},
    {1008, "Receive Buffer Overflow"},
    {1009, "Parity Error"},
    {1010, "Transmit Buffer Full"},
    {1011, "Error retrieving DCB"},
};

std::string_view EventText(std::int16_t code) {
    const auto* row = std::ranges::find(Events, code, &EventRow::Code);
    return row == std::end(Events) ? "Unknown error or event" : row->Text;
}

void Warn(std::string_view text, std::string_view title) {
    TheHost().Ask(text, Buttons::Ok, MessageIcon::Exclamation, title);
}

void OnReceive(std::string_view fragment) {
    if (Link.ReadBuffer.size() > MostBuffered) Link.ReadBuffer.clear();
    Link.ReadBuffer += fragment;
    Link.ReadTicks = 0;
    const std::size_t end = Link.ReadBuffer.find('\n');
    if (end != std::string::npos) {
        Link.ReadPending = false;
        Link.ReadBuffer.resize(end);
        if (Link.ReadBuffer.ends_with('\r')) Link.ReadBuffer.pop_back();
        NoteText(LinkWay::Received, Link.ReadBuffer);
    }
    // This one counts before its line feed.
    if (Link.ReadBuffer == ParseFinishedText) Link.ParseFinished = true;
}

std::string ReadLine() {
    Link.ReadTicks = 0;
    while (Link.ReadPending && Link.ReadTicks < SilentTicks && !Link.Cancelled)
        TheHost().AwaitEvent();
    if (!Link.ReadPending) return Link.ReadBuffer;
    Link.ReadPending = false;
    Link.CommError = true;
    if (!Link.Cancelled) Warn("Read RS232 time out", "RS232 Read Message");
    return {};
}

}  // namespace

std::int16_t PortNumber(std::string_view port) {
    const char last = port.empty() ? '0' : port.back();
    return last >= '0' && last <= '9' ? static_cast<std::int16_t>(last - '0') : std::int16_t{0};
}

std::string DeviceOfPort(std::int16_t number) {
    return GetSetting(LinkApplication, "RS232", "Device" + std::to_string(number),
                      "/dev/ttyS" + std::to_string(number - 1));
}

void RS232Init() {
    SerialPort& port = TheSerialPort();
    if (port.IsOpen()) port.Close();
    const std::int16_t number = PortNumber(Link.Port);
    std::string fault = "no port number";
    if (number > 0)
        fault = port.Open(DeviceOfPort(number), std::to_string(Link.BaudRate) + ",n,8,1");
    if (fault.empty()) return;
    NoteText(LinkWay::Event, Link.Port + ": " + fault);
    Warn(PickText("Invalid port number!", "无效端口号！"), PickText("RS232 Init", "RS232初始化"));
    Link.RS232Ready = false;
}

std::int32_t DrainTime(std::string_view text) {
    return RoundToInt(CharacterTime * static_cast<double>(text.size() + 1));
}

void RS232SendText(std::string_view text) {
    if (!BeginExchange()) return;
    Link.ReadBuffer.clear();
    NoteText(LinkWay::Sent, text);
    const std::string fault = TheSerialPort().Output(std::string(text) + '\r');
    Sleep(200);
    if (!fault.empty()) {
        Link.CommError = true;
        Warn(fault, "RS232 Send Message");
        return;
    }
    Sleep(DrainTime(text));
}

// The reply is awaited before the query goes out: a quick instrument answers during the pauses.
std::string RS232QueryText(std::string_view text) {
    Link.ReadPending = true;
    RS232SendText(text);
    if (!Link.CommError) return ReadLine();
    Link.ReadPending = false;
    return {};
}

void RS232OnEvent(std::int16_t code, std::string_view fragment) {
    if (code == SerialInput)
        OnReceive(fragment);
    else
        NoteText(LinkWay::Event, EventText(code));
}

void CountReadTick() {
    Link.ReadTicks = Link.ReadTicks == std::numeric_limits<std::int16_t>::max()
                         ? std::int16_t{0}
                         : static_cast<std::int16_t>(Link.ReadTicks + 1);
}
