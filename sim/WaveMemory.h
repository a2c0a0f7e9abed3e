#pragma once
// The instrument's waves: built-in ones, one volatile slot, and non-volatile locations, which waves
// of both kinds share. Names are unique among all of them.
#include "WireForms.h"

namespace sim {

enum class WaveKind : std::uint8_t { Analog, Digital };

struct StoredWave {
    std::string Name;
    WaveKind Kind = WaveKind::Analog;
    Samples Codes;
};

struct WaveMemory {
    std::size_t Locations = 4;
    Samples Volatile;                // the analog wave; empty until a transfer is complete
    std::vector<StoredWave> Stored;  // at most Locations, in the order of storing
};

constexpr std::string_view VolatileName = "VOLATILE";
constexpr std::string_view NegRamp = "NEG_RAMP";
constexpr std::string_view BuiltInNames[] = {"EXP_RISE", "EXP_FALL", NegRamp, "SINC", "CARDIAC"};

bool IsBuiltIn(std::string_view name);

/// One period of a built-in wave.
Samples BuiltInSamples(std::string_view name);

const StoredWave* FindStored(const WaveMemory& memory, WaveKind kind, std::string_view name);

/// `"A","B"`. The analog catalogue: built-in, volatile, stored waves. The digital one: volatile,
/// stored waves.
std::string CatalogueText(const WaveMemory& memory, WaveKind kind);

/// Names of the stored waves of a kind, quoted.
std::string StoredNamesText(const WaveMemory& memory, WaveKind kind);

// These three return the reason why nothing was changed, or an empty text.

/// Puts a wave into the location of its name, or into a free one.
std::string StoreWave(WaveMemory& memory, StoredWave wave);

std::string DeleteStored(WaveMemory& memory, std::string_view name);

std::string RenameStored(WaveMemory& memory, std::string_view from, std::string_view to);

}  // namespace sim
