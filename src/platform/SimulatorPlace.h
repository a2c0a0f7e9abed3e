#pragma once
// Where running simulators stand. A simulator puts two names into a folder of the user's and takes
// them away when it ends:
//   USB0::0x0000::0x3300::SERIAL::INSTR    a local stream socket, the instrument on USB
//   tty-SERIAL                             a link to its pseudo-terminal, the instrument on RS232
//
// On the socket the editor asks and the simulator answers; counts are 32 bits, little-endian:
//   'W' count bytes    a message to the instrument (0 bytes too)  ->  'A' count
//   'R' most           read a message                             ->  'D' count bytes
// A read waits until there is something to read: the editor closes the connection when it no longer
// does. What did not fit into `most` bytes is read next. Connections come and go with each
// exchange; the instrument keeps its state and what is still to be read.
#include <string>
#include <vector>

/// TIDEMARK_SIM_DIR, or "tidemark-sim" in the user's run-time folder, or one in /tmp with the
/// user's number behind. Empty when it is missing or belongs to someone else.
std::string SimulatorFolder();

/// Resource names of the simulators that run; a socket that nobody answers is left out.
std::vector<std::string> SimulatorResources();

/// Device paths of their serial ports.
std::vector<std::string> SimulatorPorts();
