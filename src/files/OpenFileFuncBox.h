#pragma once
// Files that come by name: from the command line, or from a file manager.
#include <string>

/// Opens a file as what its name ends for, in any case: ".DRIG" is a digital document, ".wfm" a
/// capture of an oscilloscope, everything else an analog document. False with a message, and no
/// document, when it cannot be read.
bool OpenWaveFile(const std::string& path);
