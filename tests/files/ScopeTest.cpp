#include "analog/AnalogFixture.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/ImportScopeFileFuncBox.h"
#include "files/OpenFileFuncBox.h"
#include "GoldenFiles.h"
#include "platform/TempFolder.h"

#include <cstring>
#include <sstream>

namespace {

// Channel 1: 2 V per division, 80 mV to a count, 0 V at 125. Channel 2: 0.5 V, 20 mV, 0 V at 175.
struct Header {
    unsigned char First = 1, Second = 0, Mode = 0;
    std::int32_t Count = 4;
    float Rate = 1e6F;
    std::int16_t FirstPosition = 0;
    std::int32_t FirstScale = 2000000;
};

std::string FileOf(const Header& header, const std::string& samples = "\x7D\x96\x64\x7E") {
    std::string bytes(272, '\xEE');
    const auto put = [&](std::size_t at, auto value) {
        std::memcpy(&bytes[at], &value, sizeof value);
    };
    put(28, header.Count), put(100, header.Rate), put(142, header.Mode);
    put(49, header.First), put(36, header.FirstScale), put(40, header.FirstPosition);
    put(73, header.Second), put(60, std::int32_t{500000}), put(64, std::int16_t{-50});
    return bytes + samples;
}

class ScopeTest : public AnalogFixture, protected TempFolder {
protected:
    LoadedWave wave;
};

// Samples are 125, 150, 100, 126. Volts by hand: those less 125, plus the position, times a
// count's.
TEST_F(ScopeTest, ChannelVoltsAndFaults) {
    const std::string faults[] = {"", "TooShort", "NoChannel", "NoRate", "Flat"};
    const std::pair<std::string, std::vector<Header>> rows[] = {
        {"0 2 -2 0.08", {{1, 0}, {1, 1}, {0, 1, 4}}},
        {"-1 -0.5 -1.5 -0.98", {{2, 7}, {0, 1, 3}}},
        {"-2 0", {{1, 0, 0, 2, 1, -25}}},
        {"NoChannel", {{0, 0, 4, 0, 0}}},
        {"NoRate", {{1, 0, 0, 0, 0}, {.Rate = -1}, {.Rate = INFINITY}, {.Rate = NAN}}},
        {"TooShort", {{.Count = 0}, {.Count = -5}, {.Count = 5}}},
        {"Flat", {{1, 0, 0, 1}, {.FirstScale = 0}}}};
    for (const auto& [expected, headers] : rows)
        for (const Header& header : headers) {
            wave = {};
            std::ostringstream text;
            text << faults[std::size_t(ReadScopeWave(FileOf(header), wave))];
            for (int i = 0; i < wave.Dots; ++i)
                text << (i > 0 ? " " : "") << wave.DotArray[i].Y * wave.Vpp / 2;
            EXPECT_EQ(text.str(), expected) << &header - headers.data();
        }
    for (std::size_t length = 0; length < 276; ++length)
        ASSERT_EQ(ReadScopeWave(FileOf({}).substr(0, length), wave), ScopeFault::TooShort);
}

TEST_F(ScopeTest, CountIsHeldAndFewDotsKeepTheirSpacing) {
    const auto expect = [&](const std::string& file, std::int32_t dots, std::int32_t room) {
        ASSERT_EQ(ReadScopeWave(file, wave), ScopeFault::None);
        EXPECT_TRUE(wave.Dots == dots && wave.MaxDots == room && std::ssize(wave.DotArray) == room);
        EXPECT_DOUBLE_EQ(wave.Period, room * 1e-6);
    };
    const std::int32_t most[] = {4096, 524288, 524289};
    for (InstrumentModel = 0; InstrumentModel < 3; ++InstrumentModel) {
        SetInstrumentLimits();
        const std::int32_t dots = most[InstrumentModel];
        expect(FileOf({.Count = 2000000}, std::string(600000, 'a')), dots, dots);
    }
    expect(FileOf({}), 4, 8);
}

TEST_F(ScopeTest, ImportMakesADocumentOrTells) {
    std::string chosen;
    TheHost().ChooseFile = [&](const FileChoice& choice) {
        EXPECT_EQ(choice.Title + choice.Filter, "Open Waveform file波形文件 (*.wfm)|*.wfm");
        return chosen;
    };
    for (const std::string& file : {std::string(), Put("none", FileOf({0})), folder})
        chosen = file, ImportWave();
    EXPECT_EQ(asked, (std::vector<std::string>{"没有可用的波形数据",
                                               "The file could not be opened: Is a directory"}));
    std::string much;
    much.resize(10000000, 'a');
    chosen = Put("long.wfm", FileOf({.Count = 4096}, much));
    ImportWave();
    EXPECT_TRUE(AnalogDocCount == 1 && AnalogDocs[0].Dots == 4096 && !AnalogDocs[0].Modified);
    EXPECT_EQ(AnalogDocs[0].Name + AnalogDocs[0].FileName, "Waveform0");
    ExpectSound(AnalogDocs[0]);
}

using OpenFileTest = ScopeTest;

TEST_F(OpenFileTest, TheEndingOfTheNameChoosesTheKind) {
    // Four dots at 100000 bits per second without a node.
    const std::string drig = " 4 \r\n 100000 \r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n";
    // The last columns count the documents that are open behind the row.
    const std::tuple<std::string, std::string, int, int> rows[] = {
        {"a.DRIG", drig, 0, 1},     {"DRIG", GoldenText, 1, 1},   {"a.DRIG.txt", GoldenText, 2, 1},
        {"a.CSV", GoldenCsv, 3, 1}, {"a.drig", GoldenText, 3, 1}, {"a.WFM", "", 3, 1}};
    DigitDocUsed.fill(false);
    DigitDocCount = 0;
    for (const auto& [name, bytes, analog, digital] : rows) {
        const int before = AnalogDocCount + DigitDocCount;
        EXPECT_EQ(OpenWaveFile(Put(name, bytes)), analog + digital > before) << name;
        EXPECT_TRUE(AnalogDocCount == analog && DigitDocCount == digital) << name;
    }
    EXPECT_EQ(asked, (std::vector<std::string>{"The file format is invalid！",
                                               "The file is too short for its waveform."}));
}

}  // namespace
