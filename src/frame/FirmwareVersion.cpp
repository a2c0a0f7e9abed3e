#include "frame/FirmwareVersion.h"

#include "frame/StringFunc.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view ServicePack = "SP";
constexpr std::string_view AnyDigit = "0123456789";

bool IsNumeric(std::string_view field) {
    return !field.empty() && field.find_first_not_of(AnyDigit) == std::string_view::npos;
}

bool HasPoint(std::string_view text) {
    return text.find('.') != std::string_view::npos;
}

// A last field: what stands before "SP", and what behind it where there is one.
struct LastField {
    std::string_view Number, Pack;
    bool HasPack = false;
};

LastField SplitLast(std::string_view field) {
    const std::size_t at = field.find(ServicePack);
    if (at == std::string_view::npos) return {field, {}, false};
    return {field.substr(0, at), field.substr(at + ServicePack.size()), true};
}

// Cuts the first field off both; nothing when one of them has only its last field left.
struct FieldPair {
    std::string_view Version, Threshold;
};
std::optional<FieldPair> TakeFields(FieldPair& rest) {
    const std::size_t here = rest.Version.find('.'), there = rest.Threshold.find('.');
    if (here == std::string_view::npos || there == std::string_view::npos) return std::nullopt;
    const FieldPair fields = {rest.Version.substr(0, here), rest.Threshold.substr(0, there)};
    rest.Version.remove_prefix(here + 1);
    rest.Threshold.remove_prefix(there + 1);
    return fields;
}

bool CanCompare(FieldPair rest) {
    while (const auto fields = TakeFields(rest)) {
        const auto& [version, threshold] = *fields;
        if (version.size() != threshold.size()) return false;
        if (!IsNumeric(version) || !IsNumeric(threshold)) return false;
    }
    if (HasPoint(rest.Version) || HasPoint(rest.Threshold)) return false;
    const LastField mine = SplitLast(rest.Version), limit = SplitLast(rest.Threshold);
    return mine.Number.size() == limit.Number.size() || (mine.HasPack && limit.HasPack);
}

Flag LastAtOrBelow(std::string_view version, std::string_view threshold, Flag fallback) {
    const LastField mine = SplitLast(version), limit = SplitLast(threshold);
    if (mine.Number.size() != limit.Number.size()) return fallback;
    const double number = LeadingNumber(mine.Number), highest = LeadingNumber(limit.Number);
    if (number != highest) return number < highest;
    if (mine.HasPack && limit.HasPack) return LeadingNumber(mine.Pack) <= LeadingNumber(limit.Pack);
    return !mine.HasPack;
}

}  // namespace

Flag IsFirmwareAtOrBelow(std::string& version, std::string_view threshold, Flag fallback) {
    version.resize(std::min(version.size(), version.find_first_of(std::string_view("\0\r\n", 3))));
    version.erase(0, version.find_first_of(AnyDigit));
    FieldPair rest = {version, threshold};
    if (!CanCompare(rest)) return fallback;
    while (const auto fields = TakeFields(rest)) {
        const double mine = LeadingNumber(fields->Version);
        const double limit = LeadingNumber(fields->Threshold);
        if (mine != limit) return mine < limit;
    }
    return LastAtOrBelow(rest.Version, rest.Threshold, fallback);
}
