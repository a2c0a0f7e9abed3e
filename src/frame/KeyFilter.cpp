#include "frame/KeyFilter.h"

#include <algorithm>

namespace {

// What a text is made of, behind its sign; in the order of KeyKind.
constexpr std::string_view Characters[] = {
    "0123456789",
    "0123456789",
    ".0123456789",
    ".0123456789",
    "01",
    "01234567",
    "0123456789ABCDEFabcdef",
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz"};

}  // namespace

bool AcceptsText(KeyKind kind, std::string_view text) {
    const bool isSigned = kind == KeyKind::SignedWhole || kind == KeyKind::SignedReal;
    if (isSigned && text.starts_with('-')) text.remove_prefix(1);
    const std::string_view allowed = Characters[static_cast<std::size_t>(kind)];
    return text.find_first_not_of(allowed) == text.npos && std::ranges::count(text, '.') <= 1;
}
