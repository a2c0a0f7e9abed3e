#pragma once
// Reading a waveform back from the instrument into a new document; USB only.
#include "frame/Flag.h"

#include <cstdint>
#include <string>
#include <vector>

struct DownLoadDialog {
    std::vector<std::string> AllWaveName;  // entries of cmbAllWave
    std::int16_t AllIndex = 0;
    std::string Note;         // why the last load has ended, for the user
    Flag CloseAsked = false;  // done, or the catalogue could not be read
};

/// Reads the names. When that fails CloseAsked is set, after a message.
void OpenDownLoad(DownLoadDialog& dialog);
void PickUploadWave(DownLoadDialog& dialog, std::int16_t index);
/// LoadAresBtn is open: built-in waveforms cannot be read.
bool CanLoadWave(const DownLoadDialog& dialog);
/// Reads the chosen waveform and opens it as a new document. Nothing is made after a failure, and
/// the dialog stays.
void LoadChosenWave(DownLoadDialog& dialog);

/// The command of the main window: a message, or the dialog DownLoadWaveFrm.
void UploadAnalogWave();
