#pragma once
// The send dialogs without their windows: what is asked before a transfer, and the management of
// stored waveforms. One set of rules for both kinds of waveforms; SendKind has what differs.
#include "frame/records/LinkState.h"
#include "link/CatalogueFuncBox.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct SendKind {
    const char* Window;               // its dialog
    std::uint8_t LinkState::*Target;  // the chosen memory
    std::span<const std::string_view> (*ReservedNames)();
    void (*Refresh)(WaveCatalogue& catalogue);
    bool (*LinkCarries)();    // the waveforms go over the link in use
    bool (*NothingToSend)();  // in the active document
    std::int32_t (*Dots)();   // of the active document
    void (*SendData)();       // into the volatile memory
    void (*CopyToStore)(std::string_view name);
    void (*ActivateSent)(std::string_view name);  // just sent or stored
    void (*ActivateListed)(const WaveCatalogue& catalogue, std::int16_t index);
    std::int32_t SerialPause;  // milliseconds behind a delete or rename on RS232
};
extern const SendKind SendAnalogKind, SendDigitKind;

struct SendDialog {
    const SendKind* Kind = &SendAnalogKind;
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
void OpenSend(SendDialog& dialog);

// What the controls show.
/// Entries of cmbUserWave: names in use and the number of the next free location.
std::vector<std::string> LocationEntries(const SendDialog& dialog);
/// The name box takes input: a free location is chosen and the target is non-volatile.
bool CanNameLocation(const SendDialog& dialog);
/// The target is non-volatile.
bool StoresWave(const SendDialog& dialog);
/// ButDel and ButRename are open.
bool CanManageWave(const SendDialog& dialog);

// What the user does. What uses the link does nothing while SendBusy is set.
void PickLocation(SendDialog& dialog, std::int16_t index);
void PickStoredWave(SendDialog& dialog, std::int16_t index);
/// 1 non-volatile, 0 volatile.
void PickStoreTarget(SendDialog& dialog, std::uint8_t target);
/// A changed text of txtUserWaveName; it is cut to 12 characters, with a message.
void ChangeUserWaveName(SendDialog& dialog, std::string_view text);
/// SaveAresBtn: sends, stores and activates, by the chosen target.
void SaveToInstrument(SendDialog& dialog);
/// Enter in txtUserWaveName: the name check, then SaveAresBtn.
void EnterUserWaveName(SendDialog& dialog);
/// ButActivate: makes the chosen waveform the output.
void ActivateChosenWave(SendDialog& dialog);
/// ButDel: deletes the chosen waveform when the user stored it.
void DeleteChosenWave(SendDialog& dialog);
/// ButRename: the name box of the chosen waveform takes input.
void BeginRename(SendDialog& dialog);
void ChangeAllWaveName(SendDialog& dialog, std::string_view text);
/// OkAresBtn or Enter: checks the new name and renames.
void ConfirmRename(SendDialog& dialog);
/// CancelAresBtn: back to the list, nothing is sent.
void CancelRename(SendDialog& dialog);

// The commands of the main window: a message, or the dialog.
void SendAnalogWaveform();
void SendDigitWaveform();
