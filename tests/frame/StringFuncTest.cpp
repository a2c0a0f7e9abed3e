#include "frame/StringFunc.h"

#include "frame/KeyFilter.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace {

TEST(TextToNumber, TakesWholeTextOnly) {
    const std::pair<const char*, double> rows[] = {{"", 0.0},       {"-", 0.0},
                                                   {".", 0.0},      {"-.", 0.0},
                                                   {"1e3", 1000.0}, {" 12.5 ", 12.5},
                                                   {"+1", 1.0},     {".5", 0.5},
                                                   {"-5.", -5.0},   {"1.5E-3", 0.0015},
                                                   {"1e-999", 0.0}, {"-1e-400", 0.0},
                                                   {"0e9999", 0.0}, {"1e-99999999999", 0.0}};
    for (const auto& [text, number] : rows) EXPECT_EQ(TextToNumber(text), number) << text;
    for (const char* text :
         {"+", "- ", "   ", "inf", "nan", "0x10", "1e", "1e+", "--1", "+-1", "1 2", "1.2.3", "1,5",
          ".e1", "5V", "1e999", "-1e999", "1e99999999999"})
        EXPECT_EQ(TextToNumber(text), std::nullopt) << text;
    EXPECT_TRUE(std::signbit(*TextToNumber("-0")));
}

struct TextRow {
    const char* typed;
    const char* shown;
};

// Some rows stand at a bound ("9.9999", "9999900"); those of 1.2345 tell the nudge, which moves
// away from zero in volts and towards it in negative microvolts.
TEST(UnitText, Volts) {
    const TextRow rows[] = {{"5", "5.00V"},
                            {"10", "10.0V"},
                            {"100", "100V"},
                            {"0.5", "500mV"},
                            {"0.05", "50.0mV"},
                            {"0.005", "5.00mV"},
                            {"0.0005", "500uV"},
                            {"5e-5", "50.0uV"},
                            {"5e-6", "5.00uV"},
                            {"1e-7", "0.00mV"},
                            {"0", "0.00mV"},
                            {"1000", "1.00kV"},
                            {"10000", "10.0kV"},
                            {"100000", "100kV"},
                            {"1000000", "1.00MV"},
                            {"9999900", "???.?V"},
                            {"9999800", "10.00MV"},
                            {"9990000", "9.99MV"},
                            {"-5", "-5.00V"},
                            {"-0.0005", "-500uV"},
                            {"-4.99e-6", "-4.99uV"},
                            {"-999000", "-999kV"},
                            {"-1000000", "???.?V"},
                            {"-1e-7", "0.00mV"},
                            {"9.9999", "10.0V"},
                            {"9.9998", "10.00V"},
                            {"9.9999e-7", "1.00uV"},
                            {"1.2345", "1.24V"},
                            {"-1.2345", "-1.24V"},
                            {"1.2345e-6", "1.24uV"},
                            {"-1.2355e-6", "-1.23uV"},
                            {"abc", "0.00mV"},
                            {"1e300", "???.?V"}};
    for (const TextRow& row : rows) EXPECT_EQ(VoltToText(row.typed), row.shown) << row.typed;
    EXPECT_EQ(VoltToText(-0.25), "-250mV");
}

TEST(UnitText, Seconds) {
    const TextRow rows[] = {
        {"0", "0.000s"},         {"1e-9", "1.000ns"},     {"-0.5", "-500.0ms"},
        {"123456", "123456.0s"}, {"100", "100.0s"},       {"99.998", "100.00s"},
        {"12.346", "12.35s"},    {"1.5", "1.500s"},       {"0.0123", "12.30ms"},
        {"0.00123", "1.230ms"},  {"0.000123", "123.0us"}, {"1.23e-5", "12.30us"},
        {"1.23e-6", "1.230us"},  {"1.23e-7", "123.0ns"},  {"-1.23e-8", "-12.30ns"},
        {"2e-10", "200.0ps"},    {"2e-11", "20.00ps"},    {"-2e-12", "-2.000ps"},
        {"9e-13", "0.000s"},     {"x", "0.000s"}};
    for (const TextRow& row : rows) EXPECT_EQ(TimeToText(row.typed), row.shown) << row.typed;
}

// The last row has more digits than 32 bits hold.
TEST(UnitText, FineSeconds) {
    const TextRow rows[] = {{"2", "2.000000s"},        {"-2", "-2.000s"},
                            {"-0.002", "-2.000000ms"}, {"0.25", "250.000000ms"},
                            {"2e-6", "2.000000us"},    {"2.5e-9", "2.500000ns"},
                            {"3e-12", "3.000000ps"},   {"-3e-12", "-3.000000ps"},
                            {"9e-13", "0.000000s"},    {"0.123456789", "123.456789ms"}};
    for (const TextRow& row : rows) EXPECT_EQ(TimeToTextFine(row.typed), row.shown) << row.typed;
}

TEST(FormatPattern, RoundsAndPads) {
    struct Row {
        double value;
        const char* pattern;
        const char* text;
    };
    const Row rows[] = {{0.5, "#.00", ".50"},
                        {0, "###", ""},
                        {0, "#.00", ".00"},
                        {7, "000", "007"},
                        {1234, "000", "1234"},
                        {0, "#0.000", "0.000"},
                        {2.5, "0", "3"},
                        {-2.5, "0", "-3"},
                        {0.5, "0", "1"},
                        {0.49, "0", "0"},
                        {1.005, "0.00", "1.01"},
                        {-1.005, "0.00", "-1.01"},
                        {-0.004, "0.00", "0.00"},
                        {9.996, "0.00", "10.00"},
                        {0.05, "0.0", "0.1"},
                        {0.04, "0.0", "0.0"},
                        {0.004, "0.0", "0.0"},
                        {1.5, "0.##", "1.5"},
                        {1e-6, "0.000000000000000", "0.000001000000000"},
                        {1e20, "0.0", "100000000000000000000.0"},
                        {0, "0.00E-00", "0.00E00"},
                        {9.999, "0.00E-00", "1.00E01"},
                        {1.234, "0.00E-00", "1.23E00"},
                        {-0.00012, "0.00E-00", "-1.20E-04"},
                        {1.005, "0.00E-00", "1.01E00"},
                        {9.995e-5, "0.00E-00", "1.00E-04"},
                        {1e-100, "0.00E-00", "1.00E-100"}};
    for (const Row& row : rows)
        EXPECT_EQ(FormatPattern(row.value, row.pattern), row.text) << row.value << row.pattern;
}

TEST(FormatPattern, QuickExponentFormAgrees) {
    std::vector<double> values = {0.0,  -0.0,     1.0,   9.995,  9.994999999999999,  99.95, 1e-19,
                                  1e22, 9.999e21, 1e300, 5e-324, 1.0049999999999999, 999.5, 0.1,
                                  1e-5};
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-24, 24);
    for (int i = 0; i < 20000; ++i) {
        const double decade = std::pow(10.0, std::floor(exponent(random)));
        const double volts = double(random() % 90000 + 10000);  // often a tie at the third digit
        values.push_back((i % 2 ? -volts : volts) * decade);
        values.push_back(std::nextafter(volts * decade, 0.0));
        values.push_back(std::pow(10.0, exponent(random)));
    }
    for (const double value : values) {
        char text[NumberWidth];
        ASSERT_EQ(std::string(text, WriteExponent2(text, value)), FormatPattern(value, "0.00E-00"))
            << std::hexfloat << value;
    }
}

TEST(GeneralText, FifteenDigits) {
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
    EXPECT_EQ(GeneralText(-0.0), "0");
    EXPECT_EQ(GeneralText(1e-5), "1E-05");
    EXPECT_EQ(GeneralText(-1234567.5), "-1234567.5");
}

TEST(ShortestText, PlainRangeAndExponent) {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {{0, "0"},
                        {-0.0, "-0"},
                        {0.1, "0.1"},
                        {1e-4, "0.0001"},
                        {9.99e-5, "9.99E-05"},
                        {1e-5, "1E-05"},
                        {-2.5e-105, "-2.5E-105"},
                        {999999999999999, "999999999999999"},
                        {1e15, "1E+15"},
                        {1.5e20, "1.5E+20"},
                        {5e-324, "5E-324"},
                        {4096, "4096"},
                        {1e300, "1E+300"}};
    for (const Row& row : rows) EXPECT_EQ(ShortestText(row.value), row.text);
    EXPECT_EQ(ShortestText(0.1f), "0.1");
    EXPECT_EQ(ShortestText(1e-4f), "0.0001");
    EXPECT_EQ(ShortestText(1e-5f), "1E-05");
    EXPECT_EQ(ShortestText(3.4028235e38f), "3.4028235E+38");
}

TEST(ShortestText, GivesTheValueBackToTheLastBit) {
    std::mt19937_64 random(11);
    std::string text;
    int unused = 0;
    for (int i = 0; i < 20000; ++i) {
        double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        if (i % 2) value = std::ldexp(std::frexp(value, &unused), i % 60 - 20);
        text.clear();
        AppendShortest(text, value);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*TextToNumber(text)),
                  std::bit_cast<std::uint64_t>(value))
            << text;
        ASSERT_LT(text.size(), NumberWidth);
    }
}

TEST(KeyFilter, HalfTypedNumbersPass) {
    struct Row {
        const char* text;
        bool whole, signedWhole, real, signedReal, hex;
    };
    const Row rows[] = {
        {"", true, true, true, true, true},         {"12", true, true, true, true, true},
        {"-", false, true, false, true, false},     {".", false, false, true, true, false},
        {"-.", false, false, false, true, false},   {"1.", false, false, true, true, false},
        {"-1.5", false, false, false, true, false}, {"1.5.", false, false, false, false, false},
        {"1-", false, false, false, false, false},  {"--1", false, false, false, false, false},
        {"aF09", false, false, false, false, true}, {"g", false, false, false, false, false},
        {"1 ", false, false, false, false, false},  {"1e3", false, false, false, false, true},
        {"+1", false, false, false, false, false}};
    for (const Row& row : rows) {
        EXPECT_EQ(AcceptsText(KeyKind::Whole, row.text), row.whole) << row.text;
        EXPECT_EQ(AcceptsText(KeyKind::SignedWhole, row.text), row.signedWhole) << row.text;
        EXPECT_EQ(AcceptsText(KeyKind::Real, row.text), row.real) << row.text;
        EXPECT_EQ(AcceptsText(KeyKind::SignedReal, row.text), row.signedReal) << row.text;
        EXPECT_EQ(AcceptsText(KeyKind::Hex, row.text), row.hex) << row.text;
    }
}

}  // namespace
