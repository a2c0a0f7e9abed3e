#include "platform/VisaNames.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr char Upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool MatchesOne(char pattern, char letter) {
    return pattern == '?' || Upper(pattern) == Upper(letter);
}

}  // namespace

std::string UsbResourceName(std::uint16_t vendor, std::uint16_t product, std::string_view serial) {
    constexpr std::string_view Blanks(" \t\r\n\0", 5);
    const std::size_t first = serial.find_first_not_of(Blanks);
    const std::size_t last = serial.find_last_not_of(Blanks);
    std::string safe(first == serial.npos ? "NOSERIAL" : serial.substr(first, last - first + 1));
    for (char& letter : safe) {
        if (letter <= ' ' || letter > '~' || letter == ':') letter = '_';
    }
    std::array<char, 24> ids{};
    std::snprintf(ids.data(), ids.size(), "USB0::0x%04X::0x%04X::", vendor, product);
    return ids.data() + safe + "::INSTR";
}

bool MatchesExpression(std::string_view expression, std::string_view name) {
    if (expression.empty()) return name.empty();
    const bool first = !name.empty() && MatchesOne(expression[0], name[0]);
    if (expression.size() < 2 || expression[1] != '*') {
        return first && MatchesExpression(expression.substr(1), name.substr(1));
    }
    const std::string_view rest = expression.substr(2);
    while (!MatchesExpression(rest, name)) {
        if (name.empty() || !MatchesOne(expression[0], name[0])) return false;
        name.remove_prefix(1);
    }
    return true;
}

bool IsSameResource(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, Upper, Upper);
}

ViStatus NextName(FoundNames& found, char* buffer) {
    if (found.Next >= found.Names.size()) return VisaNotFound;
    buffer[found.Names[found.Next++].copy(buffer, VisaNameLength - 1)] = '\0';
    return VisaSuccess;
}
