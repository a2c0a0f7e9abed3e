#pragma once
// The waveforms that the instrument holds: built-in ones, the volatile slot, and the stored
// locations, which a KT3300 shares between analog and digital waveforms.
#include "frame/Flag.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

inline constexpr std::int16_t MostWaveNames = 21;
inline constexpr std::int16_t MostDigitNames = 11;
inline constexpr std::size_t LongestWaveName = 12;            // characters
inline constexpr std::string_view VolatileName = "VOLATILE";  // of the volatile slot

struct WaveCatalogue {
    std::array<std::string, MostWaveNames> AllWaveName;  // in reply order, stored ones last
    std::int16_t AllWaveCount = 0;
    std::int16_t UsedStoreCount = 0;                        // 0..StoreLocationCount
    std::array<std::string, MostWaveNames> UserWaveName;    // content of the locations
    std::array<Flag, MostWaveNames> UserWaveFree{};         // the next free location
    std::array<std::string, MostDigitNames> DigitWaveName;  // stored waves of the other kind
    std::int16_t DigitNameCount = 0;
};

/// Reads names, free locations and digital names of the instrument for the analog dialog and builds
/// the location list. A failure speaks once. One of the transport or of the names leaves CommError
/// set and all lists as they were. Where more locations are in use than there are names, or only
/// the free locations or the digital names are not told, what was known of the locations stays.
void RefreshCatalogue(WaveCatalogue& catalogue);

/// True for an index of AllWaveName that the user stored: it can be deleted and renamed.
bool IsStoredWave(const WaveCatalogue& catalogue, std::int16_t index);

/// True for a waveform that every instrument comes with.
bool IsBuiltInWave(std::string_view name);

/// Which names a send dialog refuses.
std::span<const std::string_view> ReservedAnalogNames();

enum class NameFault { None, Empty, TooLong, Reserved };
/// Tests a name without its outer blanks.
NameFault CheckWaveName(std::string_view name, std::span<const std::string_view> reserved);
