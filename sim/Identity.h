#pragma once
// Who the simulated instrument is: family, variant, serial number, firmware, and what follows from
// them. Everything that differs between instruments is asked here.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

enum class Family : std::uint8_t { Kt1100, Kt2200, Kt3300 };

struct FamilyRow {
    const char* Name;
    std::uint16_t Product;        // USB product id
    std::size_t MaxDots;          // dots of the longest wave
    const char* LastOldFirmware;  // itself old
    const char* NewFirmware;
};

struct Identity {
    Family Model = Family::Kt3300;
    bool Variant = false;  // the ten-location model of the KT1100 family
    std::string Serial = "SIM0001";
    std::string Firmware = "08.06.073";
};

const FamilyRow& RowOf(Family model);

/// Sets `model` by its name, "KT1100" say. False, and nothing set, for any other text.
bool FindFamily(std::string_view name, Family& model);

/// Compares dotted version numbers of the same shape; "SP" and a number behind the last field make
/// it later. False when `version` is above `threshold` or of another shape.
bool IsAtOrBelow(std::string_view version, std::string_view threshold);

/// Old firmware has other spellings of some commands. The variant never has old firmware.
bool IsOld(const Identity& id);

/// Whether the instrument plays digital waves: a KT3300 with new firmware.
bool HasDigital(const Identity& id);

/// Whether the catalogue's NEG_RAMP is selected as NEGRAMP.
bool SpellsNegRampShort(const Identity& id);

/// Non-volatile locations: 10 for the variant, else 4.
std::size_t LocationCount(const Identity& id);

/// Vendor of 18 characters, model, serial number and firmware, with commas between.
std::string IdentificationOf(const Identity& id, std::string_view vendor);

/// "USB0::0x0000::0x3300::SIM0001::INSTR"
std::string ResourceOf(const Identity& id);

}  // namespace sim
