#pragma once
// Waveforms captured by an oscilloscope, files ".wfm", read only.
#include "analog/AnalogDocument.h"
#include "frame/Flag.h"

#include <string>
#include <string_view>

// What is wrong with a scope file.
enum class ScopeFault { None, TooShort, NoChannel, NoRate, Flat };

/// Takes the waveform of a file's bytes: the first channel where it is in use, otherwise the
/// second. Volts, seconds; Vpp is twice the largest absolute value, one custom segment covers all
/// dots. `content` is undefined on a fault.
ScopeFault ReadScopeWave(std::string_view bytes, LoadedWave& content);

/// Lets the user pick a file and reads it; false on a cancel (silently), or with a message where
/// the file has no waveform. Without `showDialog` nothing is picked: false.
bool ImportScopeFile(Flag showDialog, LoadedWave& content);

/// The command Import: a scope file becomes a new document.
void ImportWave();
/// Makes a document of a scope file; false, with a message, when it cannot be read.
bool OpenScopeFile(const std::string& path);
