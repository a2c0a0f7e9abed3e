#pragma once
// The send dialog for analog waveforms, without its window: what is asked before a transfer, and
// the management of stored waveforms.
#include "link/CatalogueFuncBox.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct SendAnalogDialog {
    WaveCatalogue Stored;
    std::int16_t UserIndex = 0;   // entry of cmbUserWave
    std::int16_t AllIndex = 0;    // entry of cmbAllWave
    std::string txtUserWaveName;  // name to store under
    std::string txtAllWaveName;   // name of the managed waveform, or the new one
    Flag Renaming = false;        // txtAllWaveName takes input
    Flag NameValid = false;       // the last check passed
    Flag NameBoxQuiet = false;    // the next message on a special name is left out
    Flag NonVolatileOpen = true;  // the wave is small enough for a location
    Flag CloseAsked = false;      // the catalogue could not be read: the window closes itself
};

/// Fills the fields and reads the catalogue. When that fails CloseAsked is set.
void OpenSendAnalog(SendAnalogDialog& dialog);

// What the controls show.
/// Entries of cmbUserWave: names in use and the number of the next free location.
std::vector<std::string> LocationEntries(const SendAnalogDialog& dialog);
/// The name box takes input: a free location is chosen and the target is non-volatile.
bool CanNameLocation(const SendAnalogDialog& dialog);
/// ButDel and ButRename are open.
bool CanManageWave(const SendAnalogDialog& dialog);

// What the user does. Nothing happens while SendBusy is set.
void PickLocation(SendAnalogDialog& dialog, std::int16_t index);
void PickStoredWave(SendAnalogDialog& dialog, std::int16_t index);
/// 1 non-volatile, 0 volatile.
void PickStoreTarget(SendAnalogDialog& dialog, std::uint8_t target);
/// A changed text of txtUserWaveName; it is cut to 12 characters, with a message.
void ChangeUserWaveName(SendAnalogDialog& dialog, std::string_view text);
/// SaveAresBtn: sends, stores and activates, by the chosen target.
void SaveToInstrument(SendAnalogDialog& dialog);
/// Enter in txtUserWaveName: the name check, then SaveAresBtn.
void EnterUserWaveName(SendAnalogDialog& dialog);
/// ButActivate: makes the chosen waveform the output.
void ActivateChosenWave(SendAnalogDialog& dialog);
/// ButDel: deletes the chosen waveform when the user stored it.
void DeleteChosenWave(SendAnalogDialog& dialog);
/// ButRename: the name box of the chosen waveform takes input.
void BeginRename(SendAnalogDialog& dialog);
void ChangeAllWaveName(SendAnalogDialog& dialog, std::string_view text);
/// OkAresBtn or Enter: checks the new name and renames.
void ConfirmRename(SendAnalogDialog& dialog);
/// CancelAresBtn: back to the list, nothing is sent.
void CancelRename(SendAnalogDialog& dialog);

/// The command of the main window: a message, or the dialog SendAnalogWaveFrm.
void SendAnalogWaveform();
