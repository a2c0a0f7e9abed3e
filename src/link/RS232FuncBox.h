#pragma once
// The serial transport: commands end with a carriage return, replies with a line feed.
#include "link/LinkWork.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The line by which the instrument tells that it has taken a data or store command in.
inline constexpr std::string_view ParseFinishedText = "PARSE FINISHED";

/// Opens the port of the settings; a failure speaks and clears RS232Ready.
void RS232Init();
/// Sends a line and pauses until it has drained. A failure speaks and sets CommError.
void RS232SendText(std::string_view text);
/// Milliseconds that a line needs to drain, its carriage return included.
std::int32_t DrainTime(std::string_view text);
/// Sends a line and waits for the reply line. Four seconds of silence speak, set CommError and
/// return an empty text.
std::string RS232QueryText(std::string_view text);

/// What the port tells: input (code 2) is taken in, other codes go to the transcript.
void RS232OnEvent(std::int16_t code, std::string_view fragment);
/// A tenth of a second has passed.
void CountReadTick();

inline constexpr std::int16_t LargestPortNumber = 9;
/// The number of a port name, its last character: 1..9, 0 for anything else.
std::int16_t PortNumber(std::string_view port);
/// The device path of a port number 1..9: the one in the settings, else /dev/ttyS0 and so on.
std::string DeviceOfPort(std::int16_t number);
