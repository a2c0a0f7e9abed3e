#include "analog/AnalogFixture.h"
#include "files/FileOptFuncCode.h"
#include "GoldenFiles.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

#include <bit>
#include <regex>
#include <tuple>

namespace {

class AnalogFormatTest : public AnalogFixture, protected TempFolder {
protected:
    /// What a file is read as, in the text format, which shows every field to the last digit.
    std::string ReadText(const char* name, std::string_view bytes) {
        DocumentClosed(0);
        EXPECT_TRUE(OpenAnalogFile(Put(name, bytes))) << bytes.substr(0, 200);
        return WriteAnalogText(read);
    }
    const AnalogWaveRecord& read = AnalogDocs[0];
};

TEST_F(AnalogFormatTest, GoldenBytes) {
    EXPECT_EQ(WriteAnalogText(GoldenWave()), GoldenText);
    EXPECT_EQ(WriteAnalogCsv(GoldenWave()), GoldenCsv);
}

TEST_F(AnalogFormatTest, TextKeepsEveryBit) {
    AnalogWaveRecord wave = GoldenWave();
    const double awkward[] = {-0.0, 5e-324, -std::sqrt(.5)};
    for (int i = 0; i < wave.Dots; ++i) wave.DotArray[i].Y = awkward[i];
    wave.Vpp = 1.0 / 3;
    wave.Period = std::nextafter(1e-5, 1);
    wave.Segments[0].Phase = 1.0F / 3;
    ReadText("bits.txt", WriteAnalogText(wave));
    EXPECT_TRUE(read.Vpp == wave.Vpp && read.Period == wave.Period);
    EXPECT_EQ(read.Segments.at(0).Phase, 1.0F / 3);
    for (int i = 0; i < wave.Dots; ++i) {
        const auto bits = std::bit_cast<std::uint64_t>(read.DotArray.at(i).Y);
        EXPECT_EQ(bits, std::bit_cast<std::uint64_t>(awkward[i])) << i;
    }
}

TEST_F(AnalogFormatTest, EmptyDocumentAndExampleFilesGoThroughUnchanged) {
    AnalogWaveRecord empty = GoldenWave();
    empty.Dots = empty.LastDot = empty.SegmentCount = 0;
    std::vector<std::string> files = {WriteAnalogText(empty)};
    for (const char* name : {"decaying-ring", "heart-beat", "two-tone"}) {
        std::ifstream file(std::string(TIDEMARK_SOURCE_DIR "/examples/") + name + ".txt");
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    for (const std::string& file : files)
        EXPECT_TRUE(ReadText("whole.txt", file) == file) << file.substr(0, 200);
}

// What spreadsheets and editors make of a file when they save it again.
TEST_F(AnalogFormatTest, ForeignEditorsKeepTheWave) {
    const std::pair<const char*, const char*> changes[] = {
        {"\r\n", "\n"},             // line ends
        {"^", "\xEF\xBB\xBF"},      // byte order mark
        {"\r\n$", ""},              // last line end
        {" ?\r\n ?", "\r\n"},       // blanks
        {"\r\n", ",,\r\n"},         // empty cells
        {"([^,\r\n]+)", "\"$1\""},  // quoted cells
    };
    for (const auto& [from, to] : changes) {
        const auto change = [&, &from = from, &to = to](const std::string& file) {
            return std::regex_replace(file, std::regex(from), to);
        };
        EXPECT_EQ(ReadText("foreign.txt", change(GoldenText)), GoldenText) << to;
        EXPECT_EQ(ReadText("foreign.csv", change(GoldenCsv)), GoldenText) << to;
    }
}

// Values that another program, or another model, may have left: mended, not refused.
TEST_F(AnalogFormatTest, MendsValues) {
    const std::tuple<int, const char*, const char*> rows[] = {
        {2, "1048576", " 1048576 "}, {2, "3", " 8 "},    {2, "1E+01", " 10 "},
        {6, "99", " 32 "},           {6, "0", " 2 "},    {7, "-7", " 2 "},
        {9, "77.5", " 0 "},          {10, "1.5", " 1 "}, {10, "-1e300", "-1 "},
        {10, "1e-400", " 0 "},       {15, "-1", " 1 "}};
    for (const auto& [line, text, mended] : rows) {
        const std::string expected = WithLine(GoldenText, line, mended);
        EXPECT_EQ(ReadText("odd.txt", WithLine(GoldenText, line, text)), expected);
        EXPECT_TRUE(std::ssize(read.DotArray) == read.MaxDots && read.DotArray.at(0).X == 0);
    }
}

TEST_F(AnalogFormatTest, MendsSegments) {
    std::string whole = WithLine(WithLine(GoldenText, 15, " 1 "), 19, " 0 ");
    for (int line = 21; line <= 30; ++line) whole = WithLine(whole, line, " 0 ");
    const std::pair<int, const char*> uncovering[] = {
        {8, "0"}, {17, "1"}, {18, "1"}, {18, "2147483647"}, {18, "-1"}};
    for (const auto& [line, text] : uncovering)
        EXPECT_EQ(ReadText("odd.txt", WithLine(GoldenText, line, text)), whole) << line << text;
    ReadText("kind.txt", WithLine(GoldenText, 19, "10"));
    EXPECT_TRUE(read.Segments.at(0).Custom && read.Segments[0].Kind == 0);
    ReadText("count.txt", WithLine(GoldenText, 20, "2147483647"));
    EXPECT_TRUE(read.Segments.at(0).Custom);
}

TEST_F(AnalogFormatTest, RdfCodes) {
    AnalogWaveRecord wave = GoldenWave();
    wave.MaxDots = wave.Dots = 4;
    wave.DotArray = {{0, -1.0}, {1, 0.0}, {2, 1.0}, {3, 0.5}};
    const std::string bytes = WriteAnalogRdf(wave);
    // 0, 8191.5 to even 8192, 16383, 12287.25; each held for a quarter of the 4096 places.
    EXPECT_EQ(bytes.substr(2046, 4), std::string("\x00\x00\x00\x20", 4));
    EXPECT_EQ(bytes.substr(4094, 4), std::string("\x00\x20\xFF\x3F", 4));
    EXPECT_EQ(bytes.substr(6142, 4), std::string("\xFF\x3F\xFF\x2F", 4));
    const std::tuple<std::uint8_t, int, std::size_t> lengths[] = {
        {0, 0, 4096},        {1, 4096, 4096},      {1, 4097, 524288},
        {2, 524288, 524288}, {2, 524289, 1048576}, {0, 5000, 4096}};
    for (const auto& [model, dots, codes] : lengths) {
        InstrumentModel = model;
        SetInstrumentLimits();
        wave.MaxDots = wave.Dots = dots;
        wave.DotArray.resize(dots);
        EXPECT_EQ(WriteAnalogRdf(wave).size(), 2 * codes) << dots;
    }
    EXPECT_EQ(WriteAnalogRdf(AnalogWaveRecord()).substr(8190), std::string("\x00\x20", 2));
}

TEST_F(AnalogFormatTest, RdfReading) {
    UseSettingsStore(PathOf("settings.ini"));
    SaveSetting(ApplicationTitle, "Tidemark_Property", "Ampltude", "50");  // above 20 V
    SaveSetting(ApplicationTitle, "Tidemark_Property", "Quanit", "no number");
    const std::string_view codes("\x00\x00\xFF\x3F\xFF\xFF\x55\x15\x07", 9);
    const std::string text = ReadText("codes.rdf", codes);
    const char* expected =
        " 8 \r\n 4 \r\n 20 \r\n 1E-05 \r\n 12 \r\n 3 \r\n 1 \r\n"
        " 0 \r\n-1 \r\n 1 \r\n 1 \r\n 2 \r\n 1 \r\n 3 \r\n";
    EXPECT_NE(text.find(expected), std::string::npos) << text;
    EXPECT_NEAR(read.DotArray.at(3).Y, -1.0 / 3, 1e-15);  // 5461 of 16383
    EXPECT_TRUE(read.Segments.at(0).Custom);
    ReadText("long.rdf", std::string(8194, 'A'));
    EXPECT_EQ(read.Dots, 4096);
}

}  // namespace
