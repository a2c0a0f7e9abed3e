#include "frame/KeyFilter.h"

#include <algorithm>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsBinaryDigit(char c) {
    return c == '0' || c == '1';
}

bool IsOctalDigit(char c) {
    return c >= '0' && c <= '7';
}

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool IsNameCharacter(char c) {
    return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

}  // namespace

bool AcceptsText(KeyKind kind, std::string_view text) {
    if (kind == KeyKind::Binary) return std::ranges::all_of(text, IsBinaryDigit);
    if (kind == KeyKind::Octal) return std::ranges::all_of(text, IsOctalDigit);
    if (kind == KeyKind::Hex) return std::ranges::all_of(text, IsHexDigit);
    if (kind == KeyKind::WaveName) return std::ranges::all_of(text, IsNameCharacter);
    const bool isSigned = kind == KeyKind::SignedWhole || kind == KeyKind::SignedReal;
    if (isSigned && text.starts_with('-')) text.remove_prefix(1);
    const std::ptrdiff_t pointsAllowed = kind == KeyKind::Real || kind == KeyKind::SignedReal;
    return std::ranges::count(text, '.') <= pointsAllowed &&
           std::ranges::all_of(text, [](char c) { return IsDigit(c) || c == '.'; });
}
