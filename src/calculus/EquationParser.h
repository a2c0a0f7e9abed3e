#pragma once
// Reads an equation and computes its values: an expression in t, x and n, in volts. No document,
// no state.
#include "kernel/wavecalc.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

inline constexpr std::int32_t LongestEquation = 500;  // characters

/// What the names of an equation stand for.
struct EquationScales {
    std::int32_t Dots = 0;     // new dots: x is n / (Dots - 1), 0 for an only dot
    std::int32_t Start = 0;    // dot of the document where n = 0 will stand
    std::int32_t MaxDots = 0;  // of the document
    double Period = 0.0;       // seconds for MaxDots dots: t is (Start + n) * Period / MaxDots
    double Vpp = 0.0;          // volts: A is Vpp / 2
    std::uint32_t Seed = 0;    // of noise(), whose values depend on it and on n only
};

enum class EquationError : std::uint8_t {
    None,
    Empty,
    TooLong,
    Name,
    NoArguments,
    Character,
    Operator,
    Value,
    Parenthesis,
    Comma,
    Colon,
    Assignment,
    End,
    MissingParenthesis,
    MissingElse,
    TooManyArguments,
    TooFewArguments,
    Other,
};

struct EquationFault {
    EquationError Error = EquationError::None;
    std::size_t Byte = 0;  // where in the text, from 0; its size: behind the end
    std::string Token;     // what stands there, may be empty
};

/// Computes Y, in volts, of every dot from its X, the number n of the new dot. Values are neither
/// clipped nor made finite. A text that cannot be read leaves the dots alone and gives the first
/// fault. Without dots the text is only checked.
EquationFault EvaluateEquation(std::string_view text, const EquationScales& scales,
                               std::span<WaveDot> dots);

/// Characters of the text in front of a byte: the column, from 0.
std::int32_t ColumnOf(std::string_view text, std::size_t byte);

/// "Column 3: ..." in the current language; empty without a fault.
std::string FaultText(const EquationFault& fault, std::string_view text);
