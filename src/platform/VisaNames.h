#pragma once
// Resource names, "USB0::0x1234::0xABCD::SERIAL::INSTR", and the expressions that select them.
#include "platform/VisaApi.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The name of a USB instrument. Leading and trailing blanks of the serial number are dropped;
/// what could be taken for a separator or is not printable becomes '_', and none at all "NOSERIAL".
std::string UsbResourceName(std::uint16_t vendor, std::uint16_t product, std::string_view serial);

/// Whether a search expression selects a name: '?' is any character, '*' any number of the one
/// before it, so "?*" selects all. Letters compare without case, as in all resource names.
bool MatchesExpression(std::string_view expression, std::string_view name);

/// Equal without case.
bool IsSameResource(std::string_view one, std::string_view other);

// What a search has found, and how much of it was asked for.
struct FoundNames {
    ViSession Manager = 0;
    std::vector<std::string> Names;
    std::size_t Next = 0;
};

/// The next name into a buffer of VisaNameLength bytes, closing zero included; a longer one is cut.
/// VisaNotFound behind the last.
ViStatus NextName(FoundNames& found, char* buffer);
