#pragma once
// The active digital document on its way into the instrument, over USB. CommError tells a failure.
#include <string_view>

/// Transfers the document into the volatile memory. One without channels, or with more dots than
/// the connected instrument takes, is not sent, with a message; that is a failure too.
void SendDigitData();
/// Copies the volatile waveform into the location of a name.
void CopyDigitToStore(std::string_view name);

// How the instrument is told what to play.
enum class DigitWay {
    Volatile,  // the user's pattern, from the volatile memory
    Protocol,  // one of the instrument's own protocols
    Stored,    // the user's pattern, from a location
};
/// Makes a waveform the output; the user's pattern at the rate of the active document.
void ActivateDigitWave(DigitWay way, std::string_view name);
