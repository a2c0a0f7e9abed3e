#include "Common.h"
#include "sim/Picture.h"
#include "sim/Transcript.h"

#include <algorithm>

// First byte: family, variant, old firmware, link, picture.
void Fuzz(std::string_view input) {
    const unsigned choice = TakeByte(input);
    const auto family = static_cast<sim::Family>(choice % 4 % 3);
    const sim::FamilyRow& row = sim::RowOf(family);
    const bool variant = family == sim::Family::Kt1100 && (choice & 4) != 0;
    sim::Instrument device = sim::MakeInstrument(
        {family, variant, "1", (choice & 8) != 0 ? row.LastOldFirmware : row.NewFirmware}, {});
    const auto link = (choice & 16) != 0 ? sim::Link::Serial : sim::Link::Usb;
    while (!input.empty()) {
        const std::string message = TakePart(input);
        const sim::Outcome outcome = sim::HandleMessage(device, link, message);
        Require(outcome.Error.empty() || outcome.Reply.empty());
        Require(!sim::MessageLine(link, message, outcome).empty());
        Require(!sim::ReplyLine(link, outcome.Reply, outcome).empty());
    }
    const sim::WaveMemory& memory = device.Memory;
    Require(memory.Stored.size() <= memory.Locations && memory.Volatile.size() <= row.MaxDots);
    Require(std::ranges::all_of(memory.Volatile, [](auto code) { return code <= sim::MaxCode; }));
    for (const sim::StoredWave& wave : memory.Stored)
        Require(sim::IsWaveName(wave.Name) && !wave.Codes.empty() &&
                std::ranges::count(memory.Stored, wave.Name, &sim::StoredWave::Name) == 1);
    Require((choice & 128) == 0 || !sim::PictureOf(device).empty());
}
