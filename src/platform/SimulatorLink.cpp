#include "platform/SimulatorLink.h"

#include "platform/SimulatorPlace.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <limits>

// The connection is closed after any failure, since half an answer may still be on its way. The
// next exchange makes a new one.

namespace {

using Clock = std::chrono::steady_clock;
using Header = std::array<std::uint8_t, 5>;

struct Exchange {
    int Connection;
    bool Endless;
    Clock::time_point End;  // unless endless
};

Exchange BeginExchange(const SimulatorLink& link) {
    return {link.Connection, link.TimeOut == VisaForever,
            Clock::now() + std::chrono::milliseconds(link.TimeOut)};
}

ViStatus WaitFor(const Exchange& exchange, short event) {
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(exchange.End - Clock::now()).count();
        const auto limit = std::clamp<long long>(left, 0, std::numeric_limits<int>::max());
        pollfd waiting{exchange.Connection, event, 0};
        const int ready = poll(&waiting, 1, exchange.Endless ? -1 : static_cast<int>(limit));
        if (ready > 0) return VisaSuccess;
        if (ready == 0) return VisaTimeOut;
        if (errno != EINTR) return VisaIoError;
    }
}

// Moves bytes by `move`, send or recv, until all are done.
template <typename Bytes, typename Move>
ViStatus MoveAll(const Exchange& exchange, short event, Bytes bytes, std::size_t& done, Move move) {
    done = 0;
    while (done < bytes.size()) {
        const ssize_t count = move(bytes.subspan(done));
        if (count > 0) {
            done += static_cast<std::size_t>(count);
            continue;
        }
        if (count == 0) return VisaConnectionLost;
        if (errno == EINTR) continue;
        if (errno != EAGAIN && errno != EWOULDBLOCK) return VisaConnectionLost;
        if (const ViStatus status = WaitFor(exchange, event); status < 0) return status;
    }
    return VisaSuccess;
}

ViStatus SendAll(const Exchange& exchange, std::span<const std::uint8_t> bytes) {
    std::size_t done = 0;
    return MoveAll(exchange, POLLOUT, bytes, done, [&](std::span<const std::uint8_t> rest) {
        return send(exchange.Connection, rest.data(), rest.size(), MSG_NOSIGNAL);
    });
}

ViStatus ReceiveAll(const Exchange& exchange, std::span<std::uint8_t> bytes, std::size_t& done) {
    return MoveAll(exchange, POLLIN, bytes, done, [&](std::span<std::uint8_t> rest) {
        return recv(exchange.Connection, rest.data(), rest.size(), 0);
    });
}

Header HeaderOf(char kind, std::size_t count) {
    const auto byteOf = [count](int place) {
        return static_cast<std::uint8_t>(count >> 8 * place);
    };
    return {static_cast<std::uint8_t>(kind), byteOf(0), byteOf(1), byteOf(2), byteOf(3)};
}

// The count of an answer that begins with `kind`; one above `most` is no answer at all.
ViStatus ReceiveHeader(const Exchange& exchange, char kind, std::size_t most,
                       std::uint32_t& count) {
    Header header{};
    std::size_t done = 0;
    const ViStatus status = ReceiveAll(exchange, header, done);
    if (status < 0) return status;
    std::uint32_t announced = 0;
    for (unsigned i = 0; i < 4; ++i) announced |= std::uint32_t{header[1 + i]} << 8 * i;
    if (header[0] != static_cast<std::uint8_t>(kind) || announced > most) return VisaIoError;
    count = announced;
    return VisaSuccess;
}

bool Connect(SimulatorLink& link) {
    if (link.Connection < 0) link.Connection = ConnectSimulator(link.Socket);
    return link.Connection >= 0;
}

ViStatus Finish(SimulatorLink& link, ViStatus status) {
    if (status < 0) LeaveSimulator(link);
    return status;
}

}  // namespace

ViStatus TellSimulator(SimulatorLink& link, std::span<const std::uint8_t> bytes,
                       std::uint32_t& written) {
    written = 0;
    if (!Connect(link)) return VisaConnectionLost;
    const Exchange exchange = BeginExchange(link);
    ViStatus status = SendAll(exchange, HeaderOf('W', bytes.size()));
    if (status >= 0) status = SendAll(exchange, bytes);
    if (status >= 0) status = ReceiveHeader(exchange, 'A', bytes.size(), written);
    return Finish(link, status);
}

ViStatus AskSimulator(SimulatorLink& link, std::span<std::uint8_t> buffer, std::uint32_t& read) {
    read = 0;
    if (!Connect(link)) return VisaConnectionLost;
    const Exchange exchange = BeginExchange(link);
    std::uint32_t count = 0;
    std::size_t done = 0;
    ViStatus status = SendAll(exchange, HeaderOf('R', buffer.size()));
    if (status >= 0) status = ReceiveHeader(exchange, 'D', buffer.size(), count);
    if (status >= 0) status = ReceiveAll(exchange, buffer.first(count), done);
    read = static_cast<std::uint32_t>(done);
    if (status >= 0 && count == buffer.size()) status = VisaEndBySize;
    return Finish(link, status);
}

void LeaveSimulator(SimulatorLink& link) {
    if (link.Connection >= 0) close(link.Connection);
    link.Connection = -1;
}
