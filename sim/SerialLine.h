#pragma once
// The instrument's RS232 side, a pseudo-terminal. Commands end with a carriage return, replies with
// a line feed. The simulator keeps the far side open as well, so that editors come and go without a
// hang-up.
#include "UsbSocket.h"

namespace sim {

struct SerialLine {
    int Master = -1;
    int Slave = -1;
    std::string Device;  // "/dev/pts/4"
    std::string In, Out;
    Clock::time_point OutAt;  // nothing is sent before
};

/// Opens the terminal and links it to `linkPath`. Returns what went wrong, or an empty text.
std::string OpenSerial(SerialLine& line, const std::string& linkPath);

/// Adds what to wait for.
void WatchSerial(const SerialLine& line, std::vector<pollfd>& watched);

/// Moves whatever can move without waiting. `take` gets each message, empty ones too.
void ServeSerial(SerialLine& line, const TakeMessage& take);

void CloseSerial(SerialLine& line);

}  // namespace sim
