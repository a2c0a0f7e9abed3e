#pragma once
// Files that come by name: from the command line, or from a file manager.
#include <string>

/// Opens a file as the kind of document that its name ends for, in any case: ".DRIG" is a digital
/// one, everything else an analog one. False with a message, and no document, when it cannot be
/// read.
bool OpenWaveFile(const std::string& path);
