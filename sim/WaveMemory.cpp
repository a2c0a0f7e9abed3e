#include "WaveMemory.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sim {

namespace {

constexpr std::size_t BuiltInDots = 4096;

// A bump of a heart beat: height, place and width as parts of the period.
struct Bump {
    double Height, Place, Width;
};
constexpr Bump HeartBeat[] = {{0.12, 0.18, 0.022},
                              {-0.12, 0.27, 0.008},
                              {1.0, 0.30, 0.010},
                              {-0.25, 0.335, 0.010},
                              {0.25, 0.52, 0.040}};

/// A built-in wave at 0 <= place < 1, in -1..1.
double BuiltInAt(std::string_view name, double place) {
    if (name == NegRamp) return 1.0 - 2.0 * place;
    if (name == "EXP_RISE") return 1.0 - 2.0 * std::exp(-5.0 * place);
    if (name == "EXP_FALL") return 2.0 * std::exp(-5.0 * place) - 1.0;
    if (name == "SINC") {
        const double angle = (place - 0.5) * 16.0 * std::numbers::pi;
        return angle == 0.0 ? 1.0 : std::sin(angle) / angle;
    }
    double level = 0.0;
    for (const Bump& bump : HeartBeat) {
        const double distance = (place - bump.Place) / bump.Width;
        level += bump.Height * std::exp(-0.5 * distance * distance);
    }
    return std::clamp(level, -1.0, 1.0);
}

auto PlaceOf(WaveMemory& memory, std::string_view name) {
    return std::find_if(memory.Stored.begin(), memory.Stored.end(),
                        [&](const StoredWave& wave) { return wave.Name == name; });
}

std::string Quote(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

void AddName(std::string& list, std::string_view name) {
    if (!list.empty()) list += ',';
    list += Quote(name);
}

std::string WhyNotToBeStored(std::string_view name, WaveKind kind) {
    if (!IsWaveName(name)) return "not a name for a wave: " + Quote(name.substr(0, 20));
    const bool isTaken =
        kind == WaveKind::Digital ? IsProtocol(name) || name == UserPattern : IsBuiltIn(name);
    if (!isTaken && name != VolatileName) return {};
    return std::string(name) + " is reserved";
}

}  // namespace

bool IsProtocol(std::string_view name) {
    return std::ranges::find(Protocols, name) != std::end(Protocols);
}

bool IsBuiltIn(std::string_view name) {
    return std::ranges::find(BuiltInNames, name) != std::end(BuiltInNames);
}

Samples BuiltInSamples(std::string_view name) {
    Samples codes(BuiltInDots);
    for (std::size_t dot = 0; dot < BuiltInDots; ++dot) {
        codes[dot] = CodeOf(BuiltInAt(name, static_cast<double>(dot) / BuiltInDots));
    }
    return codes;
}

const StoredWave* FindStored(const WaveMemory& memory, WaveKind kind, std::string_view name) {
    for (const StoredWave& wave : memory.Stored) {
        if (wave.Kind == kind && wave.Name == name) return &wave;
    }
    return nullptr;
}

const Samples& SamplesOf(const WaveMemory& memory, WaveKind kind, std::string_view name) {
    static const Samples none;
    if (name == VolatileName) {
        return kind == WaveKind::Analog ? memory.Volatile : memory.DigitVolatile;
    }
    const StoredWave* wave = FindStored(memory, kind, name);
    return wave ? wave->Codes : none;
}

const ChannelMap& ChannelsOf(const WaveMemory& memory, std::string_view name) {
    const StoredWave* wave = FindStored(memory, WaveKind::Digital, name);
    return wave ? wave->Channels : memory.DigitChannels;
}

std::string StoredNamesText(const WaveMemory& memory, WaveKind kind) {
    std::string list;
    for (const StoredWave& wave : memory.Stored) {
        if (wave.Kind == kind) AddName(list, wave.Name);
    }
    return list;
}

std::string CatalogueText(const WaveMemory& memory, WaveKind kind) {
    std::string list;
    if (kind == WaveKind::Analog) {
        for (const std::string_view name : BuiltInNames) AddName(list, name);
    }
    AddName(list, VolatileName);
    const std::string stored = StoredNamesText(memory, kind);
    return stored.empty() ? list : list + "," + stored;
}

std::string StoreWave(WaveMemory& memory, StoredWave wave) {
    if (std::string reason = WhyNotToBeStored(wave.Name, wave.Kind); !reason.empty()) return reason;
    const auto place = PlaceOf(memory, wave.Name);
    if (place != memory.Stored.end()) {
        *place = std::move(wave);
        return {};
    }
    if (memory.Stored.size() >= memory.Locations) return "all locations are in use";
    memory.Stored.push_back(std::move(wave));
    return {};
}

std::string DeleteStored(WaveMemory& memory, std::string_view name) {
    const auto place = PlaceOf(memory, name);
    if (place == memory.Stored.end()) return "no stored wave " + Quote(name);
    memory.Stored.erase(place);
    return {};
}

std::string RenameStored(WaveMemory& memory, std::string_view from, std::string_view to) {
    const auto place = PlaceOf(memory, from);
    if (place == memory.Stored.end()) return "no stored wave " + Quote(from);
    if (std::string reason = WhyNotToBeStored(to, place->Kind); !reason.empty()) return reason;
    if (from != to && PlaceOf(memory, to) != memory.Stored.end()) {
        return Quote(to) + " exists already";
    }
    place->Name = to;
    return {};
}

}  // namespace sim
