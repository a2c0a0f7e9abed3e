#pragma once
// Life of the connection: settings, connect with identification, disconnect, and what the connected
// instrument can do.
#include <cstdint>
#include <string>
#include <string_view>

/// Reads the settings and clears the state of the link; at start-up.
void LoadLinkSettings();
void SaveLinkSettings();

/// Opens the link and identifies the instrument; sets IsConnected, model and firmware, or tells
/// that there is none.
void ConnectInstrument();
/// Gives the front panel back and ends the connection; nothing is sent without one.
void DisconnectInstrument();
/// The connect button: connects or disconnects.
void ToggleConnection();

/// Waveforms can be read back over USB only.
bool UploadAllowed();
/// Digital waveforms need a KT3300 with new firmware.
bool HasDigitalWaves();
/// Tells that the connected instrument, or the link, cannot do what was asked.
void TellNotAvailable();
/// The firmware of the connected family is at or below its threshold.
bool HasOldFirmware();
/// The most dots that the connected instrument takes.
std::int32_t MostInstrumentDots();

/// "KT1100", "KT2200" or "KT3300".
std::string_view ModelName(std::uint8_t model);
