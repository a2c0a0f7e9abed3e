#pragma once
// Messages to and from one running simulator; the bytes on the socket stand in SimulatorPlace.h.
#include "platform/VisaApi.h"

#include <cstdint>
#include <span>
#include <string>

struct SimulatorLink {
    std::string Socket;            // path
    int Connection = -1;           // file descriptor; none after a failed exchange
    std::uint32_t TimeOut = 2000;  // milliseconds for an exchange, or VisaForever
};

/// Sends a message, which may be empty. VisaTimeOut, or VisaConnectionLost when nobody answers.
ViStatus TellSimulator(SimulatorLink& link, std::span<const std::uint8_t> bytes,
                       std::uint32_t& written);

/// Reads a message into `buffer`; VisaEndBySize when it is full. VisaTimeOut with `read` zero when
/// there is nothing in time, VisaConnectionLost when the simulator has gone.
ViStatus AskSimulator(SimulatorLink& link, std::span<std::uint8_t> buffer, std::uint32_t& read);

/// Closes the connection, if there is one.
void LeaveSimulator(SimulatorLink& link);
