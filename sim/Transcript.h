#pragma once
// What arrived and what was answered, a line each: time, link, direction, text. Samples are told by
// their number, a refused message by the reason behind "ERROR".
#include "Instrument.h"

namespace sim {

/// "USB   -> DATA:COPY ARB1" and what became of it.
std::string MessageLine(Link link, std::string_view message, const Outcome& outcome);

/// "RS232 <- PARSE FINISHED"; `reply` is what the faults have left of the outcome's.
std::string ReplyLine(Link link, std::string_view reply, const Outcome& outcome);

/// Prints a line behind the time of day.
void PrintLine(const std::string& line);

}  // namespace sim
