#pragma once
// The active analog document on its way into the instrument. CommError tells a failure.
#include <string_view>

/// Transfers the document into the volatile memory. One without dots, or with more than the
/// connected instrument takes, is not sent, with a message; CommError stays clear.
void SendWaveData();
/// Copies the volatile waveform into the location of a name.
void CopyToStore(std::string_view name);
/// Selects a waveform and applies frequency and amplitude of the document.
void ActivateWave(std::string_view name);
