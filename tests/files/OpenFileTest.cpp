#include "analog/AnalogFixture.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/OpenFileFuncBox.h"
#include "GoldenFiles.h"
#include "platform/TempFolder.h"

namespace {

class OpenFileTest : public AnalogFixture, protected TempFolder {};

TEST_F(OpenFileTest, TheEndingOfTheNameChoosesTheKind) {
    // Four dots at 100000 bits per second without a node.
    const std::string drig = " 4 \r\n 100000 \r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n";
    const std::tuple<std::string, std::string, int, int> rows[] = {
        {"a.DRIG", drig, 0, 1},     {"a.Drig", drig, 0, 1},
        {"DRIG", GoldenText, 1, 0}, {"a.DRIG.txt", GoldenText, 1, 0},
        {"a.CSV", GoldenCsv, 1, 0}, {"a.drig", GoldenText, 0, 0},
        {"a.WFM", "", 0, 0},
    };
    for (const auto& [name, bytes, analog, digital] : rows) {
        AnalogDocCount = DigitDocCount = 0;
        AnalogInUse.fill(false);
        DigitDocUsed.fill(false);
        EXPECT_EQ(OpenWaveFile(Put(name, bytes)), analog + digital == 1) << name;
        EXPECT_TRUE(AnalogDocCount == analog && DigitDocCount == digital) << name;
    }
    EXPECT_FALSE(OpenWaveFile(PathOf("none.DRIG")) || OpenWaveFile(PathOf("none")));
    const std::string missing = "The file could not be opened: No such file or directory";
    EXPECT_EQ(asked, (std::vector<std::string>{"The file format is invalid！",
                                               "The file is too short for its waveform.", missing,
                                               missing}));
}

}  // namespace
