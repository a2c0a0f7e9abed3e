#include "Identity.h"

#include <algorithm>
#include <charconv>
#include <compare>
#include <cstdio>
#include <iterator>

namespace sim {

namespace {

constexpr FamilyRow Families[] = {
    {"KT1100", 0x1100, 4096, "02.20.043.00.07SP2", "02.20.043.00.08SP1"},
    {"KT2200", 0x2200, 524288, "03.14.070", "03.14.071"},
    {"KT3300", 0x3300, 1048576, "08.06.072", "08.06.073"},
};
constexpr const char* VariantName = "KT1102";

// The last field of a version, "07SP2" say. Without "SP" the pack is -1, earlier than any.
struct LastField {
    std::size_t Digits;  // length of what stands ahead of "SP"
    long Number;
    long Pack;
};

long NumberAtStart(std::string_view text) {
    long number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

LastField ReadLastField(std::string_view field) {
    const auto pack = field.find("SP");
    const std::string_view number = field.substr(0, pack);
    return {number.size(), NumberAtStart(number),
            pack == field.npos ? -1 : NumberAtStart(field.substr(pack + 2))};
}

bool IsNumber(std::string_view field) {
    return !field.empty() && field.find_first_not_of("0123456789") == field.npos;
}

/// Takes the field ahead of the next dot off `text`; false when there is no dot.
bool TakeField(std::string_view& text, std::string_view& field) {
    const auto dot = text.find('.');
    if (dot == text.npos) return false;
    field = text.substr(0, dot);
    text.remove_prefix(dot + 1);
    return true;
}

}  // namespace

const FamilyRow& RowOf(Family model) {
    return Families[static_cast<std::size_t>(model)];
}

bool FindFamily(std::string_view name, Family& model) {
    for (std::size_t row = 0; row < std::size(Families); ++row) {
        if (name != Families[row].Name) continue;
        model = static_cast<Family>(row);
        return true;
    }
    return false;
}

bool IsAtOrBelow(std::string_view version, std::string_view threshold) {
    version.remove_prefix(std::min(version.find_first_of("0123456789"), version.size()));
    auto order = std::strong_ordering::equal;
    std::string_view mine, limit;
    for (;;) {
        const bool more = TakeField(version, mine);
        if (more != TakeField(threshold, limit)) return false;
        if (!more) break;
        if (mine.size() != limit.size() || !IsNumber(mine)) return false;
        if (std::is_eq(order)) order = mine <=> limit;
    }
    const LastField last = ReadLastField(version);
    const LastField lastLimit = ReadLastField(threshold);
    const bool bothPacks = last.Pack >= 0 && lastLimit.Pack >= 0;
    if (last.Digits != lastLimit.Digits && (std::is_eq(order) || !bothPacks)) return false;
    if (std::is_eq(order)) order = last.Number <=> lastLimit.Number;
    if (std::is_eq(order)) order = last.Pack <=> lastLimit.Pack;
    return std::is_lteq(order);
}

bool IsOld(const Identity& id) {
    return !id.Variant && IsAtOrBelow(id.Firmware, RowOf(id.Model).LastOldFirmware);
}

bool HasDigital(const Identity& id) {
    return id.Model == Family::Kt3300 && !IsOld(id);
}

bool SpellsNegRampShort(const Identity& id) {
    return id.Variant || IsOld(id);
}

std::size_t LocationCount(const Identity& id) {
    return id.Variant ? 10 : 4;
}

std::string IdentificationOf(const Identity& id, std::string_view vendor) {
    const char* model = id.Variant ? VariantName : RowOf(id.Model).Name;
    return std::string(vendor) + "," + model + "," + id.Serial + "," + id.Firmware;
}

std::string ResourceOf(const Identity& id) {
    char product[8];
    std::snprintf(product, sizeof product, "0x%04X", unsigned{RowOf(id.Model).Product});
    return std::string("USB0::0x0000::") + product + "::" + id.Serial + "::INSTR";
}

}  // namespace sim
