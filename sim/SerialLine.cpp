#include "SerialLine.h"

#include "WireForms.h"

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstring>

namespace sim {

namespace {

void Receive(SerialLine& line) {
    char buffer[4096];
    for (;;) {
        const ssize_t got = read(line.Master, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return;
        std::copy_if(buffer, buffer + got, std::back_inserter(line.In),
                     [](char next) { return next != '\n'; });
        if (line.In.size() > MaxMessageBytes) line.In.clear();
    }
}

void Send(SerialLine& line) {
    if (Clock::now() < line.OutAt) return;
    while (!line.Out.empty()) {
        const ssize_t sent = write(line.Master, line.Out.data(), line.Out.size());
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) return;
        line.Out.erase(0, static_cast<std::size_t>(sent));
    }
}

}  // namespace

std::string OpenSerial(SerialLine& line, const std::string& linkPath) {
    termios raw = {};
    cfmakeraw(&raw);
    raw.c_cflag |= CREAD | CLOCAL;
    cfsetspeed(&raw, B9600);
    char device[64] = {};
    if (openpty(&line.Master, &line.Slave, device, &raw, nullptr) != 0 ||
        fcntl(line.Master, F_SETFL, O_NONBLOCK) != 0 ||
        fcntl(line.Master, F_SETFD, FD_CLOEXEC) != 0 || symlink(device, linkPath.c_str()) != 0) {
        const int fault = errno;
        CloseSerial(line);
        return std::strerror(fault);
    }
    line.Device = device;
    return {};
}

void WatchSerial(const SerialLine& line, std::vector<pollfd>& watched) {
    const bool sends = !line.Out.empty() && Clock::now() >= line.OutAt;
    watched.push_back({line.Master, static_cast<short>(POLLIN | (sends ? POLLOUT : 0)), 0});
}

void ServeSerial(SerialLine& line, const TakeMessage& take) {
    Receive(line);
    for (;;) {
        const auto end = line.In.find('\r');
        if (end == line.In.npos) break;
        const std::string message = line.In.substr(0, end);
        line.In.erase(0, end + 1);
        take(message);
    }
    Send(line);
}

void CloseSerial(SerialLine& line) {
    if (line.Master >= 0) close(line.Master);
    if (line.Slave >= 0) close(line.Slave);
    line.Master = line.Slave = -1;
}

}  // namespace sim
