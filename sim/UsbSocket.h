#pragma once
// The instrument's USB side, a local stream socket. Counts are 32 bits, little-endian:
//   'W' count bytes    a message to the instrument (0 bytes too)         ->  'A' count
//   'R' most           read at most that many bytes                     ->  'D' count bytes
// A read waits until there is something to read, and is forgotten with its connection. Connections
// come and go with each exchange; what is still to be read stays here. An editor writes 0 bytes
// ahead of each read, which says nothing; other empty messages are told.
#include <poll.h>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

using Clock = std::chrono::steady_clock;
using TakeMessage = std::function<void(std::string_view message)>;

struct UsbConnection {
    int Fd = -1;
    std::string In, Out;
    std::optional<std::uint32_t> WaitingRead;  // bytes asked for
    bool IsEmptyHeld = false;                  // an empty message came last
    bool IsClosing = false;
};

struct UsbSocket {
    int Listener = -1;
    std::vector<UsbConnection> Connections;
    std::string Reply;          // what is still to be read
    Clock::time_point ReplyAt;  // not handed out before
    bool LosesReads = false;    // fault: a read comes back at once with nothing
};

/// Listens at `path`, open to the user alone. Returns what went wrong, or an empty text.
std::string OpenUsb(UsbSocket& usb, const std::string& path);

/// Adds what to wait for.
void WatchUsb(const UsbSocket& usb, std::vector<pollfd>& watched);

/// Moves whatever can move without waiting. `take` gets each message, and may set
/// `Reply` and `ReplyAt`.
void ServeUsb(UsbSocket& usb, const TakeMessage& take);

/// Whether a read waits for nothing but the time of the reply.
bool IsReplyDue(const UsbSocket& usb);

void CloseUsb(UsbSocket& usb);

}  // namespace sim
