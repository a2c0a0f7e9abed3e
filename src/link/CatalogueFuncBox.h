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

/// The same for the digital dialog: built-in protocols with the stored digital waveforms behind
/// them, and the analog names that share the locations. Any failure, silence included, speaks once
/// and leaves CommError set and all lists as they were.
void RefreshDigitCatalogue(WaveCatalogue& catalogue);

/// Index in AllWaveName of the first waveform that the user stored, AllWaveCount where there is
/// none.
std::int16_t FirstStoredWave(const WaveCatalogue& catalogue);
/// True for an index from there on, unless its name is a reserved one: it can be deleted and
/// renamed.
bool IsStoredWave(const WaveCatalogue& catalogue, std::int16_t index,
                  std::span<const std::string_view> reserved);

/// True for a waveform that every instrument comes with.
bool IsBuiltInWave(std::string_view name);

// Which names each send dialog refuses.
std::span<const std::string_view> ReservedAnalogNames();
std::span<const std::string_view> ReservedDigitNames();

enum class NameFault { None, Empty, TooLong, Reserved };
/// Tests a name without its outer blanks.
NameFault CheckWaveName(std::string_view name, std::span<const std::string_view> reserved);
