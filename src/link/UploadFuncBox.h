#pragma once
// Reading a waveform back from the instrument into a new document; USB only. One set of rules for
// both kinds of waveforms; UploadKind has what differs.
#include "frame/Flag.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The words of a waveform as they were read, and the settings of the output.
struct ReadWave {
    std::vector<std::uint16_t> Words;
    double Frequency = 0.0, Amplitude = 0.0, Offset = 0.0;  // hertz, volts, volts
    double Rate = 0.0;                                      // bits per second
};

struct UploadKind {
    const char* Window;                        // its dialog
    std::string_view Catalogue, Load;          // commands
    std::int32_t Pause;                        // milliseconds behind the first load command
    bool VariantRestarts;                      // a variant that announces no dots is asked again
    std::uint16_t WordMask;                    // the bits of a word that count
    bool (*Room)();                            // for one more document, or a message
    bool (*IsBuiltIn)(std::string_view name);  // cannot be read
    bool (*AskOutput)(ReadWave& wave);         // the settings; false when one is missing
    void (*Open)(const ReadWave& wave, const std::string& name);  // as a new document
};
extern const UploadKind UploadAnalogKind, UploadDigitKind;

struct DownLoadDialog {
    const UploadKind* Kind = &UploadAnalogKind;
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

// The commands of the main window: a message, or the dialog.
void UploadAnalogWave();
void UploadDigitWave();
