#pragma once
// The running program: the instrument, its two connectors, and the loop that waits for them.
#include "Instrument.h"
#include "Options.h"
#include "Place.h"
#include "SerialLine.h"

#include <csignal>

namespace sim {

struct Simulator {
    Options Option;
    Instrument Device;
    Place Names;
    UsbSocket Usb;
    SerialLine Serial;
    std::string SerialFault;     // why there is no serial port; empty: there is one
    sigset_t WhileWaiting = {};  // signals held back but while waiting
    std::string Typed;           // of the line that is being typed
    bool IsTypingPossible = true;
    bool HasEnded = false;
    std::uint32_t Commands = 0;      // taken in so far
    std::uint32_t ShownVersion = 0;  // of the output in the picture file
};

/// Fills the locations and puts both names into place. Returns what went wrong, or an empty text. A
/// machine without pseudo-terminals has the instrument on USB alone.
std::string StartSimulator(Simulator& simulator, const Options& options);

/// Serves until the user, a signal or a fault ends it.
void RunSimulator(Simulator& simulator);

/// Takes both names away and closes all.
void EndSimulator(Simulator& simulator);

/// Does what was typed.
void RunTypedLine(Simulator& simulator, std::string_view line);

}  // namespace sim
