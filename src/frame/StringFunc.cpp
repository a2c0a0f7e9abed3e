#include "frame/StringFunc.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

// A value is shown by way of its 15-digit decimal form: 1.005 is a little below 1.005 in 64 bits,
// yet a pattern with two decimals shows "1.01", as the user who typed 1.005 expects.

namespace {

constexpr int DecimalDigits = 15;

// 0.d1 d2 d3 ... times 10^Point; all digits zero for zero.
struct Decimal {
    std::array<char, DecimalDigits> Digits{};
    int Point = 0;
    bool Negative = false;
};

struct UnitRow {
    double Bound;              // magnitude from which the row holds, compared in 32 bits
    double Times, Over;        // shown number = x * Times / Over + Nudge
    double Nudge;              // keeps a value just under a bound from losing a digit
    std::string_view Pattern;  // empty: the unit is the whole text
    std::string_view Unit;
};

constexpr UnitRow VoltRows[] = {
    {9.9999e6, 1, 1, 0, "", "???.?V"},          {999990, 1, 1e6, 0.001, "#.00", "MV"},
    {99999, 1, 1000, 0.001, "###", "kV"},       {9999.9, 1, 1000, 0.001, "##.0", "kV"},
    {999.99, 1, 1000, 0.001, "#.00", "kV"},     {99.999, 1, 1, 0.001, "###", "V"},
    {9.9999, 1, 1, 0.001, "##.0", "V"},         {0.99999, 1, 1, 0.001, "#.00", "V"},
    {0.099999, 1000, 1, 0.001, "###", "mV"},    {0.0099999, 1000, 1, 0.001, "##.0", "mV"},
    {0.00099999, 1000, 1, 0.001, "#.00", "mV"}, {9.9999e-5, 1e6, 1, 0.001, "###", "uV"},
    {9.9999e-6, 1e6, 1, 0.001, "##.0", "uV"},   {9.9999e-7, 1e6, 1, 0.001, "#.00", "uV"},
};

// Below zero there is no "MV" range, and the microvolt rows keep the positive nudge.
constexpr UnitRow NegativeVoltRows[] = {
    {999990, 1, 1, 0, "", "???.?V"},
    {99999, 1, 1000, -0.001, "###", "kV"},
    {9999.9, 1, 1000, -0.001, "##.0", "kV"},
    {999.99, 1, 1000, -0.001, "#.00", "kV"},
    {99.999, 1, 1, -0.001, "###", "V"},
    {9.9999, 1, 1, -0.001, "##.0", "V"},
    {0.99999, 1, 1, -0.001, "#.00", "V"},
    {0.099999, 1000, 1, -0.001, "###", "mV"},
    {0.0099999, 1000, 1, -0.001, "##.0", "mV"},
    {0.00099999, 1000, 1, -0.001, "#.00", "mV"},
    {9.9999e-5, 1e6, 1, 0.001, "###", "uV"},
    {9.9999e-6, 1e6, 1, 0.001, "##.0", "uV"},
    {9.9999e-7, 1e6, 1, 0.001, "#.00", "uV"},
};

constexpr UnitRow TimeRows[] = {
    {99.999, 1, 1, 0, "###.0", "s"},          {9.9999, 1, 1, 0, "##.00", "s"},
    {0.99999, 1, 1, 0, "#.000", "s"},         {0.099999, 1, 0.001, 0, "###.0", "ms"},
    {0.0099999, 1, 0.001, 0, "##.00", "ms"},  {0.00099999, 1, 0.001, 0, "#.000", "ms"},
    {9.9999e-5, 1, 1e-6, 0, "###.0", "us"},   {9.9999e-6, 1, 1e-6, 0, "##.00", "us"},
    {9.9999e-7, 1, 1e-6, 0, "#.000", "us"},   {9.9999e-8, 1, 1e-9, 0, "###.0", "ns"},
    {9.9999e-9, 1, 1e-9, 0, "##.00", "ns"},   {9.9999e-10, 1, 1e-9, 0, "#.000", "ns"},
    {9.9999e-11, 1, 1e-12, 0, "###.0", "ps"}, {9.9999e-12, 1, 1e-12, 0, "##.00", "ps"},
    {9.9999e-13, 1, 1e-12, 0, "#.000", "ps"},
};

constexpr UnitRow FineTimeRows[] = {
    {0.99999, 1, 1, 0, "#.000000", "s"},        {0.00099999, 1000, 1, 0, "#.000000", "ms"},
    {9.9999e-7, 1e6, 1, 0, "#.000000", "us"},   {9.9999e-10, 1e9, 1, 0, "#.000000", "ns"},
    {9.9999e-13, 1e12, 1, 0, "#.000000", "ps"},
};

// Whole seconds before the start of the wave show three decimals only.
constexpr UnitRow NegativeFineTimeRows[] = {
    {0.99999, 1, 1, 0, "#.000", "s"},           {0.00099999, 1000, 1, 0, "#.000000", "ms"},
    {9.9999e-7, 1e6, 1, 0, "#.000000", "us"},   {9.9999e-10, 1e9, 1, 0, "#.000000", "ns"},
    {9.9999e-13, 1e12, 1, 0, "#.000000", "ps"},
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t CountDigits(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count])) ++count;
    return count;
}

// Unsigned number: digits, point, digits, at least one digit in all; exponent.
bool IsNumberText(std::string_view text) {
    std::size_t digits = CountDigits(text);
    text.remove_prefix(digits);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        const std::size_t decimals = CountDigits(text);
        text.remove_prefix(decimals);
        digits += decimals;
    }
    if (digits == 0) return false;
    if (text.empty()) return true;
    if (text[0] != 'e' && text[0] != 'E') return false;
    text.remove_prefix(1);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return !text.empty() && CountDigits(text) == text.size();
}

// Tells which way a number left the range of 64 bits: true when it is too small. `text` has passed
// IsNumberText.
bool IsTiny(std::string_view text) {
    const auto mark = text.find_first_of("eE");
    const std::string_view mantissa = text.substr(0, mark);
    std::int32_t exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view digits = text.substr(mark + 1);
        if (digits[0] == '+') digits.remove_prefix(1);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (read.ec != std::errc()) return digits[0] == '-';
    }
    const auto point = std::int64_t(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = std::int64_t(mantissa.find_first_not_of("0."));
    return point - first + exponent < 0;
}

Decimal MakeDecimal(double value) {
    std::array<char, NumberWidth> text;
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                       std::chars_format::scientific, DecimalDigits - 1);
    Decimal number;
    number.Negative = value < 0;
    number.Digits[0] = text[0];
    std::copy_n(&text[2], DecimalDigits - 1, &number.Digits[1]);
    const char* exponent = &text[DecimalDigits + 2];  // behind "d.dd...e"
    std::from_chars(exponent + (*exponent == '+'), written.ptr, number.Point);
    number.Point += value != 0;
    return number;
}

bool IsZero(const Decimal& number) {
    return std::ranges::count(number.Digits, '0') == DecimalDigits;
}

// Keeps the first `keep` digits, half away from zero.
void RoundDecimal(Decimal& number, int keep) {
    if (keep >= DecimalDigits) return;
    const bool up = keep >= 0 && number.Digits[keep] >= '5';
    for (int i = std::max(keep, 0); i < DecimalDigits; ++i) number.Digits[i] = '0';
    if (!up) return;
    int at = keep - 1;
    while (at >= 0 && number.Digits[at] == '9') number.Digits[at--] = '0';
    if (at >= 0) {
        ++number.Digits[at];
        return;
    }
    number.Digits[0] = '1';
    ++number.Point;
}

// The digit that stands `place` places behind the first one.
char DigitAt(const Decimal& number, int place) {
    return place >= 0 && place < DecimalDigits ? number.Digits[place] : '0';
}

// "0.00E-00": one digit, decimals, exponent with a sign only when it is negative.
std::string FormatExponent(double value, std::string_view mantissa, std::string_view exponent) {
    const auto point = mantissa.find('.');
    const int decimals = point == std::string_view::npos ? 0 : int(mantissa.size() - point - 1);
    Decimal number = MakeDecimal(value);
    RoundDecimal(number, 1 + decimals);
    const int power = IsZero(number) ? 0 : number.Point - 1;
    std::string text = number.Negative ? "-" : "";
    text += DigitAt(number, 0);
    if (point != std::string_view::npos) text += '.';
    for (int i = 1; i <= decimals; ++i) text += DigitAt(number, i);
    text += power < 0 ? "E-" : "E";
    const std::string digits = std::to_string(std::abs(power));
    const std::size_t width = CountDigits(exponent.substr(1));
    if (digits.size() < width) text.append(width - digits.size(), '0');
    return text + digits;
}

double NumberOrZero(std::string_view text) {
    return TextToNumber(text).value_or(0.0);
}

// Held to the range of 32 bits, so that a number past it still has a text.
float ToSingle(double value) {
    constexpr double limit = std::numeric_limits<float>::max();
    return static_cast<float>(std::fmin(std::fmax(value, -limit), limit));
}

// First row whose bound `x` reaches. Both are compared in 32 bits, which decides at the bounds.
std::string TextByRows(std::span<const UnitRow> rows, double x, std::string_view zero) {
    const float magnitude = std::fabs(ToSingle(x));
    for (const UnitRow& row : rows) {
        if (magnitude < static_cast<float>(row.Bound)) continue;
        if (row.Pattern.empty()) return std::string(row.Unit);
        return FormatPattern(x * row.Times / row.Over + row.Nudge, row.Pattern).append(row.Unit);
    }
    return std::string(zero);
}

// The longest text is "-" with 17 digits, a point and four zeros or five characters of exponent.
template <typename Real>
char* WriteShortestReal(char* to, Real value) {
    const Real magnitude = std::fabs(value);
    if (magnitude == 0 || (magnitude >= Real(1e-4) && magnitude < Real(1e15)))
        return std::to_chars(to, to + NumberWidth, value, std::chars_format::fixed).ptr;
    char* end = std::to_chars(to, to + NumberWidth, value, std::chars_format::scientific).ptr;
    char* mark = end - 4;  // "e-05" or "e-105"
    if (*mark != 'e') --mark;
    if (*mark == 'e') *mark = 'E';
    return end;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

double LeadingNumber(std::string_view text) {
    text = TrimBlanks(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    const std::size_t digit = text.substr(first).starts_with('.') ? first + 1 : first;
    if (digit >= text.size() || !IsDigit(text[digit])) return 0.0;
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::optional<double> TextToNumber(std::string_view text) {
    if (text.empty() || text == "-" || text == "." || text == "-.") return 0.0;
    text = TrimBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    if (!IsNumberText(text)) return std::nullopt;
    double value = 0.0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        if (!IsTiny(text)) return std::nullopt;
        value = 0.0;
    }
    if (std::isinf(value)) return std::nullopt;
    return negative ? -value : value;
}

std::string GeneralText(double value) {
    if (value == 0) return "0";
    std::array<char, NumberWidth> text;
    char* end = std::to_chars(text.data(), text.data() + text.size(), value,
                              std::chars_format::general, DecimalDigits)
                    .ptr;
    std::replace(text.data(), end, 'e', 'E');
    return {text.data(), end};
}

std::string FormatPattern(double value, std::string_view pattern) {
    if (!std::isfinite(value)) value = 0;
    if (const auto mark = pattern.find('E'); mark != std::string_view::npos)
        return FormatExponent(value, pattern.substr(0, mark), pattern.substr(mark + 1));

    const auto point = pattern.find('.');
    const std::string_view whole = pattern.substr(0, point);
    const std::string_view decimals =
        point == std::string_view::npos ? std::string_view() : pattern.substr(point + 1);
    const auto firstForced = std::min(whole.find('0'), whole.size());
    const int forcedWhole = int(whole.size() - firstForced);
    const int forcedDecimals = int(decimals.rfind('0') + 1);  // npos + 1 is 0

    Decimal number = MakeDecimal(value);
    RoundDecimal(number, number.Point + int(decimals.size()));
    std::string text = number.Negative && !IsZero(number) ? "-" : "";
    for (int i = std::max(forcedWhole, number.Point); i > 0; --i)
        text += DigitAt(number, number.Point - i);
    if (point == std::string_view::npos) return text;
    text += '.';
    for (int i = 0; i < int(decimals.size()); ++i) text += DigitAt(number, number.Point + i);
    for (int i = int(decimals.size()); i > forcedDecimals && text.back() == '0'; --i)
        text.pop_back();
    return text;
}

std::string VoltToText(std::string_view text) {
    const double x = ToSingle(NumberOrZero(text));
    return TextByRows(x < 0 ? std::span<const UnitRow>(NegativeVoltRows) : VoltRows, x, "0.00mV");
}

std::string VoltToText(double volts) {
    return VoltToText(GeneralText(volts));
}

std::string TimeToText(std::string_view text) {
    return TextByRows(TimeRows, ToSingle(NumberOrZero(text)), "0.000s");
}

std::string TimeToText(double seconds) {
    return TimeToText(GeneralText(seconds));
}

std::string TimeToTextFine(std::string_view text) {
    const double x = NumberOrZero(text);
    return TextByRows(x < 0 ? std::span<const UnitRow>(NegativeFineTimeRows) : FineTimeRows, x,
                      "0.000000s");
}

std::string TimeToTextFine(double seconds) {
    return TimeToTextFine(GeneralText(seconds));
}

std::string WithNumbers(std::string_view pattern, std::initializer_list<std::int64_t> numbers) {
    std::string text(pattern);
    for (const std::int64_t number : numbers)
        if (const std::size_t at = text.find('%'); at != std::string::npos)
            text.replace(at, 1, std::to_string(number));
    return text;
}

char* WriteShortest(char* to, double value) {
    return WriteShortestReal(to, value);
}

char* WriteExponent2(char* to, double value) {
    // Powers that 64 bits hold exactly, so that scaling to 100..999 rounds only once.
    static constexpr double Powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr double tieGuard = 1e-9;  // 15-digit form and scaling differ by less than 1e-12
    const auto scale = [](double x, int power) {
        return power <= 2 ? x * Powers[2 - power] : x / Powers[power - 2];
    };
    const double magnitude = std::fabs(value);
    if (magnitude == 0) return std::copy_n("0.00E00", 7, to);
    if (magnitude >= 1e-19 && magnitude < 1e22) {
        const int binary = int(std::bit_cast<std::uint64_t>(magnitude) >> 52) - 1023;
        int power = int(std::floor(binary * 0.301029995663981));  // this decade or the one below
        double scaled = scale(magnitude, power);
        if (scaled >= 1000) scaled = scale(magnitude, ++power);
        int digits = int(scaled);
        const double rest = scaled - digits;
        if (std::fabs(rest - 0.5) > tieGuard) {
            digits += rest > 0.5;
            if (digits == 1000) digits = 100, ++power;
            if (value < 0) *to++ = '-';
            *to++ = char('0' + digits / 100);
            *to++ = '.';
            *to++ = char('0' + digits / 10 % 10);
            *to++ = char('0' + digits % 10);
            *to++ = 'E';
            if (power < 0) *to++ = '-';
            *to++ = char('0' + std::abs(power) / 10);
            *to++ = char('0' + std::abs(power) % 10);
            return to;
        }
    }
    return std::ranges::copy(FormatPattern(value, "0.00E-00"), to).out;
}

std::string ShortestText(double value) {
    std::array<char, NumberWidth> text;
    return {text.data(), WriteShortest(text.data(), value)};
}

std::string ShortestText(float value) {
    std::array<char, NumberWidth> text;
    return {text.data(), WriteShortestReal(text.data(), value)};
}
