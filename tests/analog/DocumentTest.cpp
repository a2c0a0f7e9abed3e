#include "analog/AnalogFixture.h"

namespace {

using DocumentTest = AnalogFixture;

TEST_F(DocumentTest, TenSlotsAreFilledAndFilledAgain) {
    bool confirms = true;
    // The property dialog: turns to the first free slot and, on OK, sizes the dots.
    TheHost().RunDialog = [&](auto, auto) {
        ActiveAnalogIndex = FirstFreeSlot(AnalogInUse);
        if (confirms) AllocateDots(ActiveAnalog(), 500);
        PropertyConfirmed = confirms;
        return confirms;
    };
    AnalogWaveRecord& first = AnalogDocs[0];
    first.Modified = true;
    first.PlotWidth = 1000;
    first.PlotHeight = 800;
    for (int i = 0; i < 10; ++i) NewAnalogDocument();
    EXPECT_TRUE(first.XLimitLeft == 200 && first.XLimitRight == 800);
    EXPECT_TRUE(first.YLimitTop == 100 && first.YLimitBottom == 699 && !first.Modified);
    ActiveAnalogIndex = 4;
    NewAnalogDocument();
    EXPECT_FALSE(CreateAnalogDocument());  // the way of opened files
    EXPECT_EQ(asked, std::vector<std::string>(2, "Exceed maximum file numbers limit"));
    EXPECT_TRUE(AnalogDocCount == 10 && ActiveAnalogIndex == 4);
    DocumentClosed(3);
    DocumentClosed(3);  // a second report of the same window
    EXPECT_EQ(AnalogDocCount, 9);
    confirms = false;  // cancelled properties leave everything
    NewAnalogDocument();
    EXPECT_TRUE(AnalogDocCount == 9 && ActiveAnalogIndex == 4);
    confirms = true;
    NewAnalogDocument();
    EXPECT_TRUE(AnalogDocCount == 10 && ActiveAnalogIndex == 3 && status == ResText(8));
    for (std::int16_t slot = 0; slot < 10; ++slot) DocumentClosed(slot);
    EXPECT_EQ(status, "Please create a new analog waveform file");
}

}  // namespace
