// One thread. Everything that can be read or sent without waiting is moved after each wait; the
// wait itself ends by input, by the time of a delayed reply, or by a signal.
#include "Simulator.h"

#include "Picture.h"
#include "StoreOption.h"
#include "Transcript.h"

#include <fcntl.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <optional>

namespace sim {

namespace {

volatile std::sig_atomic_t SignalArrived = 0;

/// Signals are let through only while waiting, so that none is missed.
sigset_t CatchSignals() {
    struct sigaction end = {};
    end.sa_handler = [](int) { SignalArrived = 1; };
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    sigset_t held, before;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &end, nullptr);
        sigaddset(&held, signal);
    }
    // In the background of a terminal a read fails instead of stopping the program.
    for (const int signal : {SIGPIPE, SIGTTIN, SIGTTOU}) sigaction(signal, &ignore, nullptr);
    sigprocmask(SIG_BLOCK, &held, &before);
    return before;
}

void RenewPicture(Simulator& simulator) {
    const std::uint32_t version = simulator.Device.OutputVersion;
    if (simulator.Option.Picture.empty() || simulator.ShownVersion == version) return;
    simulator.ShownVersion = version;
    if (!WritePicture(simulator.Device, simulator.Option.Picture)) {
        std::fprintf(stderr, "cannot write %s\n", simulator.Option.Picture.c_str());
    }
}

void TakeCommand(Simulator& simulator, Link link, std::string_view message) {
    if (simulator.HasEnded) return;
    const Outcome outcome = HandleMessage(simulator.Device, link, message);
    if (message.empty()) {  // no command: what waits to be read stays
        if (!simulator.Option.IsQuiet) PrintLine(MessageLine(link, message, outcome));
        return;
    }
    std::string reply = ReplyAfterFaults(simulator.Option.Fault, link, outcome);
    simulator.HasEnded = ++simulator.Commands == simulator.Option.Fault.DropAfter;
    if (simulator.HasEnded) reply.clear();
    if (!simulator.Option.IsQuiet) {
        PrintLine(MessageLine(link, message, outcome));
        if (!reply.empty()) PrintLine(ReplyLine(link, reply, outcome));
        if (simulator.HasEnded) PrintLine("unplugged");
    }
    const auto at = Clock::now() + std::chrono::milliseconds(simulator.Option.Fault.Slow);
    if (link == Link::Usb) {
        simulator.Usb.Reply = reply;  // what was not read is gone
        simulator.Usb.ReplyAt = at;
    } else if (!reply.empty()) {
        simulator.Serial.Out += reply;
        simulator.Serial.OutAt = at;
    }
    RenewPicture(simulator);
}

void ServeAll(Simulator& simulator) {
    ServeUsb(simulator.Usb,
             [&](std::string_view message) { TakeCommand(simulator, Link::Usb, message); });
    ServeSerial(simulator.Serial,
                [&](std::string_view message) { TakeCommand(simulator, Link::Serial, message); });
}

void ReadTyped(Simulator& simulator) {
    char buffer[512];
    const ssize_t got = read(STDIN_FILENO, buffer, sizeof buffer);
    if (got <= 0) {
        simulator.IsTypingPossible = got < 0 && errno == EINTR;
        return;
    }
    simulator.Typed.append(buffer, static_cast<std::size_t>(got));
    for (auto end = simulator.Typed.find('\n'); end != std::string::npos;
         end = simulator.Typed.find('\n')) {
        const std::string line = simulator.Typed.substr(0, end);
        simulator.Typed.erase(0, end + 1);
        RunTypedLine(simulator, line);
    }
}

/// Time until the next delayed reply; nothing when none is on its way.
std::optional<timespec> TimeToWait(const Simulator& simulator) {
    const auto now = Clock::now();
    auto next = Clock::time_point::max();
    if (IsReplyDue(simulator.Usb)) next = simulator.Usb.ReplyAt;
    const bool serialWaits = !simulator.Serial.Out.empty() && simulator.Serial.OutAt > now;
    if (serialWaits) next = std::min(next, simulator.Serial.OutAt);
    if (next == Clock::time_point::max()) return {};
    const auto left = std::max<std::int64_t>(std::chrono::nanoseconds(next - now).count(), 0);
    return timespec{left / 1'000'000'000, left % 1'000'000'000};
}

}  // namespace

std::string StartSimulator(Simulator& simulator, const Options& options) {
    simulator.Option = options;
    simulator.Device = MakeInstrument(options.Id, options.Fault);
    const std::size_t maxDots = RowOf(options.Id.Model).MaxDots;
    for (const std::string& store : options.Stores) {
        std::string error = StoreFromOption(simulator.Device.Memory, maxDots, store);
        if (!error.empty()) return error;
    }
    if (!HasDigital(options.Id) &&
        !StoredNamesText(simulator.Device.Memory, WaveKind::Digital).empty()) {
        return "--store: this instrument has no digital waves";
    }
    simulator.Usb.LosesReads = options.Fault.LostRead;
    simulator.IsTypingPossible = fcntl(STDIN_FILENO, F_GETFD) >= 0;
    simulator.WhileWaiting = CatchSignals();
    if (std::string error = PreparePlace(options.Id, simulator.Names); !error.empty()) {
        return error;
    }
    // The socket comes last: who sees it finds everything in place.
    simulator.SerialFault = OpenSerial(simulator.Serial, simulator.Names.TerminalPath);
    if (std::string error = OpenUsb(simulator.Usb, simulator.Names.SocketPath); !error.empty()) {
        EndSimulator(simulator);
        return error;
    }
    ++simulator.Device.OutputVersion;
    RenewPicture(simulator);
    return {};
}

void RunSimulator(Simulator& simulator) {
    while (!simulator.HasEnded && !SignalArrived) {
        std::vector<pollfd> watched;
        watched.push_back({simulator.IsTypingPossible ? STDIN_FILENO : -1, POLLIN, 0});
        WatchSerial(simulator.Serial, watched);
        WatchUsb(simulator.Usb, watched);
        const auto wait = TimeToWait(simulator);
        const int ready =
            ppoll(watched.data(), watched.size(), wait ? &*wait : nullptr, &simulator.WhileWaiting);
        if (ready < 0 && errno != EINTR) break;
        ServeAll(simulator);
        if (ready > 0 && watched[0].revents) ReadTyped(simulator);
    }
}

void EndSimulator(Simulator& simulator) {
    LeavePlace(simulator.Names);
    CloseUsb(simulator.Usb);
    CloseSerial(simulator.Serial);
}

}  // namespace sim
