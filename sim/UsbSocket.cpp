#include "UsbSocket.h"

#include "WireForms.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace sim {

namespace {

constexpr std::size_t FrameHead = 5;  // letter and count
constexpr std::size_t MaxConnections = 32;

std::uint32_t CountAt(const std::string& bytes, std::size_t at) {
    std::uint32_t count = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
        count = count << 8 | static_cast<unsigned char>(bytes[at + byte]);
    }
    return count;
}

std::string FrameOf(char letter, std::size_t count) {
    std::string frame(1, letter);
    for (unsigned shift = 0; shift < 32; shift += 8) {
        frame += static_cast<char>(count >> shift & 0xFF);
    }
    return frame;
}

/// Reads all that has arrived; sees here that the other side is gone, or sends on without end.
void Receive(UsbConnection& connection) {
    char buffer[65536];
    while (connection.In.size() <= MaxMessageBytes + FrameHead) {
        const ssize_t got = recv(connection.Fd, buffer, sizeof buffer, 0);
        if (got > 0) {
            connection.In.append(buffer, static_cast<std::size_t>(got));
        } else if (got == 0 || (errno != EINTR && errno != EAGAIN)) {
            connection.IsClosing = true;
            return;
        } else if (errno == EAGAIN) {
            return;
        }
    }
    connection.IsClosing = true;
}

/// An empty message says nothing when a read follows, and counts when none does.
void HandHeldMessage(UsbConnection& connection, const TakeMessage& take) {
    if (std::exchange(connection.IsEmptyHeld, false)) take({});
}

/// Takes one frame off the input. False when there is no whole frame, or a read is still waiting.
bool TakeFrame(UsbConnection& connection, const TakeMessage& take) {
    std::string& in = connection.In;
    if (connection.WaitingRead || in.size() < FrameHead) return false;
    const std::uint32_t count = CountAt(in, 1);
    if (in[0] == 'R') {
        connection.IsEmptyHeld = false;
        connection.WaitingRead = count;
        in.erase(0, FrameHead);
        return true;
    }
    if (in[0] != 'W' || count > MaxMessageBytes) {
        connection.IsClosing = true;
        return false;
    }
    if (in.size() < FrameHead + count) return false;
    const std::string message = in.substr(FrameHead, count);
    in.erase(0, FrameHead + count);
    HandHeldMessage(connection, take);
    connection.IsEmptyHeld = message.empty();
    if (!message.empty()) take(message);
    connection.Out += FrameOf('A', count);
    return true;
}

void HandReply(UsbSocket& usb, UsbConnection& connection) {
    if (!connection.WaitingRead || connection.IsClosing) return;
    const bool ready = !usb.Reply.empty() && Clock::now() >= usb.ReplyAt;
    if (!ready && !usb.LosesReads) return;
    const std::size_t most = usb.LosesReads ? 0 : *connection.WaitingRead;
    const std::size_t count = std::min(most, usb.Reply.size());
    connection.Out += FrameOf('D', count) + usb.Reply.substr(0, count);
    usb.Reply.erase(0, count);
    connection.WaitingRead.reset();
}

void Send(UsbConnection& connection) {
    while (!connection.Out.empty()) {
        const ssize_t sent =
            send(connection.Fd, connection.Out.data(), connection.Out.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            connection.Out.erase(0, static_cast<std::size_t>(sent));
        } else if (errno == EAGAIN) {
            return;
        } else if (errno != EINTR) {
            connection.IsClosing = true;
            return;
        }
    }
}

// Messages count even if their sender is gone already; its reads do not.
void ServeConnection(UsbSocket& usb, UsbConnection& connection, const TakeMessage& take) {
    do {
        HandReply(usb, connection);
    } while (TakeFrame(connection, take));
    if (connection.IsClosing) HandHeldMessage(connection, take);
}

void AcceptAll(UsbSocket& usb) {
    for (;;) {
        const int fd = accept4(usb.Listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (fd < 0) return;
        if (usb.Connections.size() < MaxConnections) {
            usb.Connections.emplace_back().Fd = fd;
        } else {
            close(fd);
        }
    }
}

}  // namespace

std::string OpenUsb(UsbSocket& usb, const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    usb.Listener = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (usb.Listener < 0 ||
        bind(usb.Listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        chmod(path.c_str(), 0600) != 0 || listen(usb.Listener, 8) != 0) {
        return path + ": " + std::strerror(errno);
    }
    return {};
}

void WatchUsb(const UsbSocket& usb, std::vector<pollfd>& watched) {
    watched.push_back({usb.Listener, POLLIN, 0});
    for (const UsbConnection& connection : usb.Connections) {
        const auto events = static_cast<short>(POLLIN | (connection.Out.empty() ? 0 : POLLOUT));
        watched.push_back({connection.Fd, events, 0});
    }
}

void ServeUsb(UsbSocket& usb, const TakeMessage& take) {
    AcceptAll(usb);
    for (UsbConnection& connection : usb.Connections) {
        Receive(connection);
        ServeConnection(usb, connection, take);
    }
    // Once more: a message may have brought what an earlier connection waits for.
    for (UsbConnection& connection : usb.Connections) {
        ServeConnection(usb, connection, take);
        Send(connection);
        if (connection.IsClosing) close(connection.Fd);
    }
    std::erase_if(usb.Connections, [](const UsbConnection& each) { return each.IsClosing; });
}

bool IsReplyDue(const UsbSocket& usb) {
    return !usb.Reply.empty() && std::ranges::any_of(usb.Connections, [](const auto& each) {
        return each.WaitingRead.has_value();
    });
}

void CloseUsb(UsbSocket& usb) {
    for (const UsbConnection& connection : usb.Connections) close(connection.Fd);
    usb.Connections.clear();
    if (usb.Listener >= 0) close(usb.Listener);
    usb.Listener = -1;
}

}  // namespace sim
