#pragma once
// The instrument's waves: built-in ones, a volatile slot for each kind, and non-volatile locations,
// which waves of both kinds share. Names are unique among all of them.
#include "WireForms.h"

namespace sim {

enum class WaveKind : std::uint8_t { Analog, Digital };

struct StoredWave {
    std::string Name;
    WaveKind Kind = WaveKind::Analog;
    Samples Codes;
    ChannelMap Channels = {};  // of a digital wave
};

struct WaveMemory {
    std::size_t Locations = 4;
    Samples Volatile;                // the analog wave; empty until a transfer is complete
    Samples DigitVolatile;           // the digital wave, likewise
    ChannelMap DigitChannels;        // its channels
    std::vector<StoredWave> Stored;  // at most Locations, in the order of storing
};

constexpr std::string_view VolatileName = "VOLATILE";
constexpr std::string_view NegRamp = "NEG_RAMP";
constexpr std::string_view BuiltInNames[] = {"EXP_RISE", "EXP_FALL", NegRamp, "SINC", "CARDIAC"};

// Digital patterns that the instrument makes itself, and the name of the user's own beside them.
constexpr std::string_view Protocols[] = {"RS232", "USB", "SPI", "CAN", "LAN", "DS", "TV"};
constexpr std::string_view UserPattern = "PO";

bool IsProtocol(std::string_view name);

bool IsBuiltIn(std::string_view name);

/// One period of a built-in wave.
Samples BuiltInSamples(std::string_view name);

const StoredWave* FindStored(const WaveMemory& memory, WaveKind kind, std::string_view name);

/// Samples of the volatile or a stored wave; empty when there are none.
const Samples& SamplesOf(const WaveMemory& memory, WaveKind kind, std::string_view name);

/// The channels of the volatile or a stored digital wave.
const ChannelMap& ChannelsOf(const WaveMemory& memory, std::string_view name);

/// `"A","B"`. The analog catalogue: built-in, volatile, stored waves. The digital one: volatile,
/// stored waves.
std::string CatalogueText(const WaveMemory& memory, WaveKind kind);

/// Names of the stored waves of a kind, quoted.
std::string StoredNamesText(const WaveMemory& memory, WaveKind kind);

// These three return the reason why nothing was changed, or an empty text.

/// Puts a wave into the location of its name, whatever the kind of the wave there, or into a free
/// one. No wave takes a built-in name, and no digital one that of a protocol.
std::string StoreWave(WaveMemory& memory, StoredWave wave);

std::string DeleteStored(WaveMemory& memory, std::string_view name);

std::string RenameStored(WaveMemory& memory, std::string_view from, std::string_view to);

}  // namespace sim
