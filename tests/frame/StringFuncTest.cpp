#include "frame/StringFunc.h"

#include "frame/KeyFilter.h"
#include "TextRows.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

namespace {

TEST(TextToNumber, TakesWholeTextOnly) {
    for (const char* text : {"", "-", ".", "-.", "-1e-400", "0e9999", "1e-99999999999"})
        EXPECT_EQ(TextToNumber(text), 0.0) << text;
    for (const auto& [text, number] :
         Rows("1e3 => 1000; +1 => 1; .5 => 0.5; -5. => -5; 1.5E-3 => 0.0015"))
        EXPECT_EQ(TextToNumber(' ' + text + ' '), std::stod(number)) << text;
    for (const char* text : {"+", "- ", "   ", "inf", "nan", "0x10", "1e", "1e+", "--1", "+-1",
                             "1 2", "1.2.3", "1,5", ".e1", "5V", "-1e999", "1e99999999999"})
        EXPECT_EQ(TextToNumber(text), std::nullopt) << text;
    EXPECT_TRUE(std::signbit(*TextToNumber("-0")));
}

// Some rows stand at a bound ("9.9999", "9999900"); those of 1.2345 tell the nudge, which moves
// away from zero in volts and towards it in negative microvolts.
TEST(UnitText, Volts) {
    for (const auto& [typed, shown] : Rows(R"(
        5.0 => 5.00V; 10 => 10.0V; 100 => 100V; 0.05 => 50.0mV; 0.005 => 5.00mV; 0.0005 => 500uV;
        5e-5 => 50.0uV; 5e-6 => 5.00uV; 1000 => 1.00kV; 10000 => 10.0kV; 100000 => 100kV;
        1000000 => 1.00MV; 9999900 => ???.?V; 9999800 => 10.00MV; -0.0005 => -500uV;
        -4.99e-6 => -4.99uV; -999000 => -999kV; -1000000 => ???.?V; -1e-7 => 0.00mV;
        1e300 => ???.?V; 9.9999 => 10.0V; 9.9998 => 10.00V; 9.9999e-7 => 1.00uV; 1.2345 => 1.24V;
        -1.2345 => -1.24V; 1.2345e-6 => 1.24uV; -1.2355e-6 => -1.23uV; abc => 0.00mV)"))
        EXPECT_EQ(VoltToText(typed), shown) << typed;
    EXPECT_EQ(VoltToText(-0.25), "-250mV");
}

TEST(UnitText, Seconds) {
    for (const auto& [typed, shown] : Rows(R"(
        0 => 0.000s; 1e-9 => 1.000ns; -0.5 => -500.0ms; 123456 => 123456.0s; 100 => 100.0s;
        99.998 => 100.00s; 12.346 => 12.35s; 1.5 => 1.500s; 0.0123 => 12.30ms; 0.00123 => 1.230ms;
        0.000123 => 123.0us; 1.23e-5 => 12.30us; 1.23e-6 => 1.230us; 1.23e-7 => 123.0ns;
        -1.23e-8 => -12.30ns; 2e-10 => 200.0ps; 2e-11 => 20.00ps; -2e-12 => -2.000ps;
        9e-13 => 0.000s)"))
        EXPECT_EQ(TimeToText(typed), shown) << typed;
    // The last row has more digits than 32 bits hold.
    for (const auto& [typed, shown] : Rows(R"(
        2 => 2.000000s; -2 => -2.000s; -0.002 => -2.000000ms; 0.25 => 250.000000ms;
        2e-6 => 2.000000us; 2.5e-9 => 2.500000ns; 3e-12 => 3.000000ps; -3e-12 => -3.000000ps;
        9e-13 => 0.000000s; 0.123456789 => 123.456789ms)"))
        EXPECT_EQ(TimeToTextFine(typed), shown) << typed;
}

TEST(FormatPattern, RoundsAndPads) {
    const std::pair<const char*, std::vector<std::pair<double, const char*>>> rows[] = {
        {"#.00", {{0.5, ".50"}, {0, ".00"}}},
        {"###", {{0, ""}}},
        {"000", {{7, "007"}, {1234, "1234"}}},
        {"0", {{2.5, "3"}, {-2.5, "-3"}, {0.5, "1"}, {0.49, "0"}}},
        {"0.00", {{1.005, "1.01"}, {-1.005, "-1.01"}, {-0.004, "0.00"}, {9.996, "10.00"}}},
        {"0.0", {{0.05, "0.1"}, {0.04, "0.0"}, {0.004, "0.0"}, {1e20, "100000000000000000000.0"}}},
        {"0.##", {{1.5, "1.5"}}},
        {"0.000000000000000", {{1e-6, "0.000001000000000"}}},
        {"0.00E-00", {{0, "0.00E00"}, {9.999, "1.00E01"}, {1.005, "1.01E00"}}},
        {"0.00E-00", {{-0.00012, "-1.20E-04"}, {9.995e-5, "1.00E-04"}, {1e-100, "1.00E-100"}}}};
    for (const auto& [pattern, texts] : rows)
        for (const auto& [value, text] : texts)
            EXPECT_EQ(FormatPattern(value, pattern), text) << value << pattern;
}

TEST(GeneralText, FifteenDigits) {
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
    EXPECT_EQ(GeneralText(-0.0), "0");
    EXPECT_EQ(GeneralText(1e-5), "1E-05");
}

TEST(ShortestText, PlainRangeAndExponent) {
    const std::pair<double, const char*> rows[] = {
        {0, "0"},         {-0.0, "-0"},          {0.1, "0.1"},
        {1e-4, "0.0001"}, {9.99e-5, "9.99E-05"}, {-2e-105, "-2E-105"},
        {1e15, "1E+15"},  {5e-324, "5E-324"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(ShortestText(value), text);
    EXPECT_EQ(ShortestText(999999999999999.0), "999999999999999");
    EXPECT_EQ(ShortestText(0.1f), "0.1");
    EXPECT_EQ(ShortestText(1e-4f), "0.0001");
    EXPECT_EQ(ShortestText(3.4028235e38f), "3.4028235E+38");
}

// The quick exponent form agrees with the pattern; the shortest one is exact to the last bit.
TEST(FormattedNumbers, AgreeOverAllDecades) {
    std::vector<double> values = {0.0,  -0.0,     1.0,   9.995,  9.994999999999999,  99.95, 1e-19,
                                  1e22, 9.999e21, 1e300, 5e-324, 1.0049999999999999, 999.5};
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-24, 24);
    for (int i = 0; i < 20000; ++i) {
        const double decade = std::pow(10.0, std::floor(exponent(random)));
        const auto volts = double(random() % 90000 + 10000);  // often a tie at the third digit
        values.push_back((i % 2 ? -volts : volts) * decade);
        values.push_back(std::nextafter(volts * decade, 0.0));
        const auto bits = std::bit_cast<double>(random());
        if (std::isfinite(bits)) values.push_back(bits);
    }
    for (const double value : values) {
        char text[NumberWidth];
        ASSERT_EQ(std::string(text, WriteExponent2(text, value)), FormatPattern(value, "0.00E-00"))
            << std::hexfloat << value;
        const double back = *TextToNumber(ShortestText(value));
        ASSERT_TRUE(back == value && std::signbit(back) == std::signbit(value)) << value;
        ASSERT_LT(ShortestText(value).size(), NumberWidth);
    }
}

TEST(KeyFilter, HalfTypedNumbersPass) {
    // Whole, signed whole, real, signed real, hexadecimal: 1 where the text is accepted.
    for (const auto& [text, accepted] : Rows(R"(=> 11111; 12 => 11111; - => 01010; . => 00110;
        -. => 00010; 1. => 00110; -1.5 => 00010; 1.5. => 00000; 1- => 00000; --1 => 00000;
        aF09 => 00001; g => 00000; 1 2 => 00000; 1e3 => 00001; +1 => 00000)")) {
        std::string kinds;
        for (const KeyKind kind : {KeyKind::Whole, KeyKind::SignedWhole, KeyKind::Real,
                                   KeyKind::SignedReal, KeyKind::Hex})
            kinds += AcceptsText(kind, text) ? '1' : '0';
        EXPECT_EQ(kinds, accepted) << text;
    }
}

}  // namespace
