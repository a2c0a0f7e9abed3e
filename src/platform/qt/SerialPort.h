#pragma once
// The serial ports of this machine, as the body of the serial port.
#include "platform/SerialPort.h"

/// The table over one port of the system. The device is an absolute path; bytes handed over are
/// written while events are pumped. A port that goes away closes itself and tells SerialGone;
/// Output then says why nothing can be sent. Needs an application, with which the port ends.
SerialPort QtSerialPort();
