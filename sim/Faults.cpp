#include "Faults.h"

#include <charconv>

namespace sim {

namespace {

struct SwitchRow {
    std::string_view Name;
    bool Faults::*Field;
};
struct NumberRow {
    std::string_view Name;  // with its equals sign
    std::uint32_t Faults::*Field;
    std::string_view Unit;
};

constexpr SwitchRow Switches[] = {
    {"silence", &Faults::Silence},
    {"short-read", &Faults::ShortRead},
    {"stale-free-count", &Faults::StaleFreeCount},
    {"no-parse-finished", &Faults::NoParseFinished},
    {"noise", &Faults::Noise},
    {"vendor", &Faults::Vendor},
    {"nineteen", &Faults::Nineteen},
    {"lost-read", &Faults::LostRead},
};
constexpr NumberRow Numbers[] = {
    {"drop-after=", &Faults::DropAfter, "N"},
    {"slow=", &Faults::Slow, "MS"},
};
constexpr std::uint32_t MaxNumber = 1'000'000;

}  // namespace

bool SetFault(Faults& faults, std::string_view text) {
    for (const SwitchRow& row : Switches) {
        if (text == row.Name) return faults.*row.Field = true;
    }
    for (const NumberRow& row : Numbers) {
        if (!text.starts_with(row.Name)) continue;
        const char* end = text.data() + text.size();
        std::uint32_t value = 0;
        const auto read = std::from_chars(text.data() + row.Name.size(), end, value);
        if (read.ec != std::errc() || read.ptr != end) return false;
        if (value == 0 || value > MaxNumber) return false;
        faults.*row.Field = value;
        return true;
    }
    return false;
}

std::string FaultNames() {
    std::string names;
    for (const SwitchRow& row : Switches) names += std::string(row.Name) + " ";
    for (const NumberRow& row : Numbers) {
        names += std::string(row.Name) + std::string(row.Unit) + " ";
    }
    names.pop_back();
    return names;
}

}  // namespace sim
