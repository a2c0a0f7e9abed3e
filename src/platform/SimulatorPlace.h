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
#include <string_view>
#include <vector>

/// TIDEMARK_SIM_DIR, or "tidemark-sim" in XDG_RUNTIME_DIR, or else "tidemark-sim-" and the user's
/// number in /tmp. Empty when it is missing or belongs to someone else.
std::string SimulatorFolder();

/// Resource names of the simulators that run; a socket that nobody answers is left out.
std::vector<std::string> SimulatorResources();

/// Device paths of their serial ports: the links in the folder, since a link that a killed
/// simulator has left may lead to another program's terminal.
std::vector<std::string> SimulatorPorts();

/// The socket that a simulator of this name has or had; empty when there is none, as for the name
/// of any other instrument.
std::string SimulatorSocket(std::string_view resource);

/// A connection to the socket, not blocking: a file descriptor, or -1 and errno when nobody
/// answers.
int ConnectSimulator(const std::string& socket);
