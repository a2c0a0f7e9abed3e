// The whole road over USB and over the pseudo-terminal. A waveform sent over the serial line is
// read back over USB, since the simulator has both.
#include "RoadFixture.h"
#include "ui/Theme.h"

namespace {

struct RoadCase {
    bool Digital;
    std::uint8_t Transport;
    std::int32_t BaudRate, Dots;
    bool Pauses;
};

class RoadTest : public RoadFixture, public testing::WithParamInterface<RoadCase> {
protected:
    static bool OpenAnalog(std::int32_t dots) {
        LoadedWave wave;
        wave.MaxDots = wave.Dots = dots;
        wave.LastDot = dots - 1;
        wave.Vpp = 8.0;
        wave.Period = 0.001;
        for (std::int32_t i = 0; i < dots; ++i)
            wave.DotArray.push_back({double(i), std::sin(i * 0.01) * (i % 3 == 0 ? -1.0 : 1.0)});
        CoverWithOneSegment(wave);
        return OpenLoadedWave(wave);
    }
    static bool OpenDigital(std::int32_t dots) {
        LoadedDigit wave;
        wave.Dots = dots;
        wave.Rate = 250000.0;
        for (std::int32_t i = 0; i < dots; ++i) wave.DigitSamples.push_back(i * 7919 & 0xFFFF);
        for (std::uint8_t n = 0; n < 16; ++n) {
            DigitNode& node = wave.Nodes.emplace_back();
            node.Channels[0] = n;
            node.DataLength = dots;
        }
        return OpenLoadedDigit(wave, "there");
    }
};

}  // namespace

TEST_P(RoadTest, AWaveformGoesThereAndBack) {
    const auto& [digital, transport, baud, dots, pauses] = GetParam();
    ASSERT_TRUE(digital ? OpenDigital(dots) : OpenAnalog(dots));
    if (pauses) TheHost().Wait = WaitFor;
    Link.BaudRate = baud;
    SendThereAndBack(transport);
}

INSTANTIATE_TEST_SUITE_P(Quick, RoadTest,
                         testing::Values(RoadCase{false, UsbLink, 9600, 40000, false},
                                         RoadCase{false, UsbLink, 9600, 1, false},
                                         RoadCase{false, SerialLink, 9600, 4096, false},
                                         RoadCase{false, SerialLink, 115200, 4096, false},
                                         RoadCase{true, UsbLink, 9600, 40000, false},
                                         RoadCase{true, UsbLink, 9600, 1, false}));
INSTANTIATE_TEST_SUITE_P(RealPauses, RoadTest,
                         testing::Values(RoadCase{false, SerialLink, 9600, 4096, true},
                                         RoadCase{false, SerialLink, 115200, 4096, true}));

int main(int count, char** arguments) {
    QApplication app(count, arguments);
    ApplyTheme(app);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
