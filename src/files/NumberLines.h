#pragma once
// Numbers, one or two a line, taken straight from the bytes of a file. What a spreadsheet adds
// when it saves a file again is passed over: quotes, commas behind the last cell, blanks, LF in
// place of CR LF, a byte order mark.
#include <concepts>
#include <limits>
#include <string_view>

struct NumberLines {
    const char* At;
    const char* End;
};

/// The bytes of a file, behind a byte order mark.
NumberLines OpenNumberLines(std::string_view bytes);

/// True when the line reads `title`, quote marks and what stands around it aside. Takes the line.
bool TakeTitle(NumberLines& in, std::string_view title);

/// Takes a number, without the end of its line. False for text that is no number, or one that is
/// not finite.
bool TakeNumber(NumberLines& in, double& value);

/// Takes a number that begins right here, as TakeNumber does.
bool TakeBareNumber(NumberLines& in, double& value);

/// Takes the comma between two cells; false when there is none.
bool TakeComma(NumberLines& in);

/// Takes the end of a line; false when anything but blanks, quotes and commas is left on it.
bool TakeLineEnd(NumberLines& in);

/// Takes a caption up to its ":"; false when the line has none.
bool TakeCaption(NumberLines& in);

/// A line with one number.
bool TakeNumberLine(NumberLines& in, double& value);

/// A line with one whole number that fits the type. A spreadsheet may write 100000 as "1E+05".
template <std::signed_integral Whole>
bool TakeWholeLine(NumberLines& in, Whole& whole) {
    double value = 0.0;
    if (!TakeNumberLine(in, value)) return false;
    if (!(value >= std::numeric_limits<Whole>::min() && value <= std::numeric_limits<Whole>::max()))
        return false;
    whole = static_cast<Whole>(value);
    return whole == value;
}
