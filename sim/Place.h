#pragma once
// The folder in which an editor finds the running simulators. Each puts two names into it:
//   USB0::0x0000::0x3300::SERIAL::INSTR    a local stream socket, the instrument on USB
//   tty-SERIAL                             a link to a pseudo-terminal, the instrument on RS232
// Whoever holds such a name answers on it; when the simulator ends, both are gone.
#include "Identity.h"

namespace sim {

struct Place {
    std::string SocketPath;
    std::string TerminalPath;
};

/// TIDEMARK_SIM_DIR, or "tidemark-sim" in the user's run-time folder, or one in /tmp with the
/// user's number behind. Makes the folder, open to the user alone, and takes away what a killed
/// simulator of this serial number has left. Returns what stands against it, or an empty text.
std::string PreparePlace(const Identity& id, Place& place);

/// Takes both names away.
void LeavePlace(const Place& place);

}  // namespace sim
