#include "analog/ScreenColours.h"

#include "analog/AnalogFixture.h"
#include "analog/DrawAnalogWave.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

namespace {

class ScreenColoursTest : public AnalogFixture, protected TempFolder {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        UseSettingsStore(PathOf("settings.ini"));
        LoadScreenColours();
        TheHost().ChooseColour = [this](auto text, auto colour) {
            title = text;
            offered = colour;
            return reply;
        };
        TheHost().ShowPlot = [this](std::int16_t slot) { painted.push_back(slot); };
    }
    void TearDown() override {
        std::filesystem::remove(PathOf("settings.ini"));
        LoadScreenColours();
        AnalogFixture::TearDown();
    }
    std::optional<std::uint32_t> reply;
    std::string title;
    std::uint32_t offered = 0;
    std::vector<std::int16_t> painted;
};

TEST_F(ScreenColoursTest, ContrastIsTheRatioOfLuminances) {
    EXPECT_DOUBLE_EQ(ContrastOf(0xFFFFFF, 0x000000), 21.0);
    EXPECT_DOUBLE_EQ(ContrastOf(0x123456, 0x123456), 1.0);
    EXPECT_NEAR(ContrastOf(0x777777, 0xFFFFFF), 4.48, 0.005);  // a usual example of WCAG
}

TEST_F(ScreenColoursTest, ChosenColoursHoldForAllDocumentsAndTheNextStart) {
    MakeDocument("c", 50, 100, 0);
    MakeDocument("c", 50, 100, 3);
    reply = 0x00FF7F;
    ChooseCurveColour();
    EXPECT_EQ(title, "Waveform Colour");
    EXPECT_EQ(std::tuple(offered, ScreenColours.Curve), std::tuple(0xFFC93CU, 0x00FF7FU));
    EXPECT_EQ(painted, (std::vector<std::int16_t>{0, 3}));
    reply = 0x406080;
    ChooseGridColour();
    EXPECT_EQ(ScreenColours.Axis, 0x798FA6U);  // 0x40 * 0.7 + 0xFF * 0.3 = 121.3, and so on
    reply = std::nullopt;
    ChooseGridColour();
    SetScreenColours(0, 0);
    LoadScreenColours();
    EXPECT_EQ(std::tuple(ScreenColours.Curve, ScreenColours.Grid),
              std::tuple(0x00FF7FU, 0x406080U));
    reply = UsualColour;
    ChooseGridColour();
    EXPECT_EQ(std::tuple(ScreenColours.Grid, ScreenColours.Axis), std::tuple(0x1F2A33U, 0x3B4C5AU));
    EXPECT_TRUE(asked.empty());
}

TEST_F(ScreenColoursTest, InvisibleAndDamagedColoursAreKeptOut) {
    reply = 0x0B1016;
    ChooseCurveColour();
    ChooseGridColour();
    EXPECT_EQ(asked.size(), 2U);
    for (const char* text :
         {"", "#12345", "#1234567", "ffc93c0", "#GGGGGG", "#-FFFFF", "#0B1015"}) {
        SaveSetting(ApplicationTitle, "Tidemark_Colour", "Wave", text);
        LoadScreenColours();
        EXPECT_EQ(ScreenColours.Curve, 0xFFC93CU) << text;
    }
}

}  // namespace
