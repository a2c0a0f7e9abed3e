#pragma once
// What may be typed into a number box. The boxes try the text that a key would give and drop the
// key when it is refused.
#include <cstdint>
#include <string_view>

enum class KeyKind : std::uint8_t {
    Whole,        // digits
    SignedWhole,  // digits behind at most one "-"
    Real,         // digits and at most one point
    SignedReal,   // the same behind at most one "-"
    Binary,       // 0 and 1
    Octal,        // 0-7
    Hex,          // 0-9, A-F, a-f
    WaveName,     // letters, digits and "_": the name of a stored waveform or of a node
};

/// True for a complete or half-typed number of the kind; "", "-", "." and "-." pass where their
/// signs do. No blanks, no exponent.
bool AcceptsText(KeyKind kind, std::string_view text);
