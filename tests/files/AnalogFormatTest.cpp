#include "files/FileOptFuncCode.h"
#include "frame/GlobalDefineCode.h"
#include "GoldenFiles.h"
#include "platform/Settings.h"

#include <gtest/gtest.h>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

namespace {

namespace fs = std::filesystem;

void ExpectGolden(const AnalogFileContent& content, double tolerance) {
    const AnalogWaveRecord wave = GoldenWave();
    EXPECT_EQ(content.MaxDots, 8);
    EXPECT_EQ(content.LastDot, 2);
    EXPECT_EQ(content.Vpp, 2.5);
    EXPECT_EQ(content.Period, 1e-5);
    EXPECT_EQ(content.Quantify, 12);
    EXPECT_EQ(content.DotArray.size(), 8U);
    ASSERT_EQ(content.Dots, 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(content.DotArray[i].X, i);
        EXPECT_NEAR(content.DotArray[i].Y, wave.DotArray[i].Y, tolerance);
    }
    ASSERT_EQ(content.Segments.size(), 1U);
    const WaveSegment& segment = content.Segments[0];
    EXPECT_FALSE(segment.Custom);
    EXPECT_EQ(segment.Kind, 2);
    EXPECT_EQ(segment.Amplitude, 0.1F);
    EXPECT_EQ(segment.Offset, -0.5F);
    EXPECT_EQ(segment.Symmetry, 60);
    EXPECT_EQ(segment.Damp, -5.0F);
}

class AnalogFormatTest : public ::testing::Test {
protected:
    void SetUp() override {
        InstrumentModel = 0;
        SetInstrumentLimits();
    }
    AnalogFileContent content;
};

TEST_F(AnalogFormatTest, GoldenBytes) {
    EXPECT_EQ(WriteAnalogText(GoldenWave()), GoldenText);
    EXPECT_EQ(WriteAnalogCsv(GoldenWave()), GoldenCsv);
    ASSERT_TRUE(ReadAnalogText(GoldenText, content));
    ExpectGolden(content, 0);
    ASSERT_TRUE(ReadAnalogCsv(GoldenCsv, content));
    ExpectGolden(content, 1e-15);
}

TEST_F(AnalogFormatTest, TextKeepsEveryBit) {
    const double awkward[] = {0.1 + 0.2,     1.0 / 3,   -0.0,   5e-324, 2.2250738585072014e-308,
                              -1e-300 / 3,   1 - 1e-16, 9.9e-5, 1e-4,   std::nextafter(1e-4, 0),
                              -std::sqrt(.5)};
    AnalogWaveRecord wave = GoldenWave();
    wave.Dots = wave.MaxDots = std::ssize(awkward);
    wave.DotArray.clear();
    for (const double y : awkward) wave.DotArray.push_back({double(wave.DotArray.size()), y});
    wave.Vpp = 1.0 / 3;
    wave.Period = std::nextafter(1e-5, 1);
    wave.Segments[0].Custom = true;
    wave.Segments[0].EndDot = wave.Dots - 1;
    wave.Segments[0].Phase = 1.0F / 3;
    ASSERT_TRUE(ReadAnalogText(WriteAnalogText(wave), content));
    EXPECT_EQ(content.Vpp, wave.Vpp);
    EXPECT_EQ(content.Period, wave.Period);
    EXPECT_EQ(content.Segments.at(0).Phase, 1.0F / 3);
    for (int i = 0; i < wave.Dots; ++i) {
        EXPECT_EQ(content.DotArray[i].Y, awkward[i]) << i;
        EXPECT_EQ(std::signbit(content.DotArray[i].Y), std::signbit(awkward[i])) << i;
    }
}

TEST_F(AnalogFormatTest, CsvRoundsToThreeDigits) {
    AnalogWaveRecord wave = GoldenWave();
    wave.Vpp = 20;
    wave.DotArray[1].Y = 0.1234;  // 1.234 V
    ASSERT_TRUE(ReadAnalogCsv(WriteAnalogCsv(wave), content));
    EXPECT_DOUBLE_EQ(content.DotArray[1].Y * 10, 1.23);
}

TEST_F(AnalogFormatTest, EmptyDocumentAndExampleFilesGoThroughUnchanged) {
    AnalogWaveRecord empty = GoldenWave();
    empty.Dots = empty.LastDot = empty.SegmentCount = 0;
    ASSERT_TRUE(ReadAnalogText(WriteAnalogText(empty), content));
    EXPECT_EQ(content.Dots, 0);
    EXPECT_TRUE(content.Segments.empty());

    int count = 0;
    for (const auto& entry : fs::directory_iterator(TIDEMARK_SOURCE_DIR "/examples")) {
        if (entry.path().extension() != ".txt") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        ASSERT_TRUE(ReadAnalogText(bytes, content)) << entry.path();
        AnalogWaveRecord wave;
        wave.MaxDots = content.MaxDots;
        wave.Dots = content.Dots;
        wave.LastDot = content.LastDot;
        wave.Vpp = content.Vpp;
        wave.Period = content.Period;
        wave.Quantify = content.Quantify;
        wave.DotArray = content.DotArray;
        wave.Segments = content.Segments;
        wave.SegmentCount = 1;
        EXPECT_TRUE(WriteAnalogText(wave) == bytes) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 3);
}

// What spreadsheets and editors make of a file when they save it again.
struct VariantRow {
    const char* name;
    std::string (*change)(std::string line);
};
class VariantTest : public AnalogFormatTest, public ::testing::WithParamInterface<VariantRow> {};

TEST_P(VariantTest, ReadsTheSameWave) {
    const std::string_view end = GetParam().name == std::string("LineFeed") ? "\n" : "\r\n";
    for (const bool csv : {false, true}) {
        std::vector<std::string> lines = LinesOf(csv ? GoldenCsv : GoldenText);
        for (std::string& line : lines) line = GetParam().change(line);
        std::string file = JoinLines(lines, end);
        if (GetParam().name == std::string("Mark")) file.insert(0, "\xEF\xBB\xBF");
        if (GetParam().name == std::string("LastEndMissing")) file.resize(file.size() - end.size());
        ASSERT_TRUE(csv ? ReadAnalogCsv(file, content) : ReadAnalogText(file, content));
        ExpectGolden(content, 1e-15);
    }
}

std::string Same(std::string line) {
    return line;
}
std::string QuoteAll(std::string line) {
    for (std::size_t at = line.find(','); at != std::string::npos; at = line.find(',', at + 2))
        line.replace(at, 1, "\",\"");
    return '"' + line + '"';
}
std::string QuoteLine(std::string line) {
    return '"' + line + '"';
}
std::string DropBlanks(std::string line) {
    if (line.find("Norvik") != std::string::npos) return line;
    std::erase(line, ' ');
    return line;
}

INSTANTIATE_TEST_SUITE_P(
    Files, VariantTest,
    ::testing::Values(VariantRow{"LineFeed", Same}, VariantRow{"Mark", Same},
                      VariantRow{"LastEndMissing", Same}, VariantRow{"NoBlanks", DropBlanks},
                      VariantRow{"QuotedCells", QuoteAll},
                      VariantRow{"ExtraCommas", [](std::string line) { return line + ",,"; }},
                      VariantRow{"QuotedNumbers",
                                 [](std::string line) {
                                     return line.find(',') == std::string::npos ? QuoteLine(line)
                                                                                : line;
                                 }}),
    [](const auto& row) { return row.param.name; });

// Values that another program, or another model, may have left: mended, not refused.
struct MendRow {
    const char* name;
    std::size_t line;  // of the text file, from 1
    const char* text;
    bool (*holds)(const AnalogFileContent& content);
};
class MendTest : public AnalogFormatTest, public ::testing::WithParamInterface<MendRow> {};

bool IsOneCustom(const AnalogFileContent& content) {
    const WaveSegment& segment = content.Segments.at(0);
    return content.Segments.size() == 1 && segment.Custom && segment.RunStart == 0 &&
           segment.EndDot == 2 && segment.DotCount == 3;
}

TEST_P(MendTest, IsMended) {
    const MendRow& row = GetParam();
    ASSERT_TRUE(ReadAnalogText(WithLine(GoldenText, row.line, row.text), content));
    EXPECT_TRUE(row.holds(content));
}

using Content = const AnalogFileContent&;
INSTANTIATE_TEST_SUITE_P(
    Files, MendTest,
    ::testing::Values(
        MendRow{"BiggerModel", 2, "1048576", [](Content c) { return c.MaxDots == 1048576; }},
        MendRow{"SmallCapacity", 2, "3",
                [](Content c) { return c.MaxDots == 8 && c.DotArray.size() == 8; }},
        MendRow{"SpreadsheetWhole", 2, "1E+01", [](Content c) { return c.MaxDots == 10; }},
        MendRow{"QuantifyHigh", 6, "99", [](Content c) { return c.Quantify == 32; }},
        MendRow{"QuantifyLow", 6, "0", [](Content c) { return c.Quantify == 2; }},
        MendRow{"LastDot", 7, "-7", [](Content c) { return c.LastDot == 2; }},
        MendRow{"Position", 9, "77.5", [](Content c) { return c.DotArray[0].X == 0; }},
        MendRow{"AmplitudeHigh", 10, "1.5", [](Content c) { return c.DotArray[0].Y == 1; }},
        MendRow{"AmplitudeLow", 10, "-1e300", [](Content c) { return c.DotArray[0].Y == -1; }},
        MendRow{"Underflow", 10, "1e-400", [](Content c) { return c.DotArray[0].Y == 0; }},
        MendRow{"NoSegment", 8, "0", IsOneCustom},
        MendRow{"CustomAllBitsSet", 15, "-1", IsOneCustom},
        MendRow{"SegmentHole", 17, "1", IsOneCustom}, MendRow{"SegmentShort", 18, "1", IsOneCustom},
        MendRow{"SegmentLong", 18, "2147483647", IsOneCustom},
        MendRow{"UnknownKind", 19, "10",
                [](Content c) { return IsOneCustom(c) && c.Segments[0].Kind == 0; }},
        MendRow{"RunOfOtherLength", 20, "2147483647",
                [](Content c) { return bool(c.Segments[0].Custom); }}),
    [](const auto& row) { return row.param.name; });

TEST_F(AnalogFormatTest, RdfCodes) {
    AnalogWaveRecord wave = GoldenWave();
    wave.MaxDots = wave.Dots = 4;
    wave.DotArray = {{0, -1.0}, {1, 0.0}, {2, 1.0}, {3, 0.5}};
    const std::string bytes = WriteAnalogRdf(wave);
    ASSERT_EQ(bytes.size(), 8192U);
    // 0, 8191.5 to even 8192, 16383, 12287.25; each held for a quarter of the 4096 places.
    EXPECT_EQ(bytes.substr(2046, 4), std::string("\x00\x00\x00\x20", 4));
    EXPECT_EQ(bytes.substr(4094, 4), std::string("\x00\x20\xFF\x3F", 4));
    EXPECT_EQ(bytes.substr(6142, 4), std::string("\xFF\x3F\xFF\x2F", 4));
}

TEST_F(AnalogFormatTest, RdfLengths) {
    struct Row {
        std::uint8_t model;
        std::int32_t dots;
        std::size_t codes;
    };
    for (const Row& row : {Row{0, 0, 4096}, Row{0, 100, 4096}, Row{1, 4096, 4096},
                           Row{1, 4097, 524288}, Row{2, 524289, 1048576}, Row{0, 5000, 4096}}) {
        InstrumentModel = row.model;
        SetInstrumentLimits();
        AnalogWaveRecord wave;
        wave.MaxDots = wave.Dots = row.dots;
        wave.DotArray.resize(row.dots);
        EXPECT_EQ(WriteAnalogRdf(wave).size(), 2 * row.codes) << row.dots;
    }
}

TEST_F(AnalogFormatTest, RdfReading) {
    const fs::path store = fs::temp_directory_path() / "rdf-settings.ini";
    UseSettingsStore(store);
    SaveSetting(ApplicationTitle, "Tidemark_Property", "Ampltude", "50");  // above 20 V
    SaveSetting(ApplicationTitle, "Tidemark_Property", "Quanit", "no number");
    ASSERT_TRUE(ReadAnalogRdf(std::string_view("\x00\x00\xFF\x3F\xFF\xFF\x07", 7), content));
    UseSettingsStore("");
    fs::remove(store);
    EXPECT_EQ(content.Vpp, 20);
    EXPECT_EQ(content.Quantify, 12);
    EXPECT_EQ(content.Period, 1e-5);
    EXPECT_EQ(content.Dots, 3);
    EXPECT_EQ(content.MaxDots, 8);
    EXPECT_EQ(content.DotArray[0].Y, -1);
    EXPECT_EQ(content.DotArray[1].Y, 1);
    EXPECT_EQ(content.DotArray[2].Y, 1);
    EXPECT_TRUE(IsOneCustom(content));

    ASSERT_TRUE(ReadAnalogRdf(std::string(2 * 4097, 'A'), content));
    EXPECT_EQ(content.Dots, 4096);
    EXPECT_EQ(content.MaxDots, 4096);
}

TEST_F(AnalogFormatTest, FormatFollowsTheName) {
    EXPECT_EQ(FormatOfName("a.TXT"), AnalogFormat::Text);
    EXPECT_EQ(FormatOfName("a.b/c.Csv"), AnalogFormat::Csv);
    EXPECT_EQ(FormatOfName("x.RDF"), AnalogFormat::Rdf);
    EXPECT_EQ(FormatOfName("df"), AnalogFormat::Text);
}

}  // namespace
