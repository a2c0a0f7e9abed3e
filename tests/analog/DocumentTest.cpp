#include "analog/AnalogFixture.h"

namespace {

class DocumentTest : public AnalogFixture {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        // The property dialog: turns to the first free slot and, on OK, sizes the dots.
        TheHost().RunDialog = [this](std::string_view, std::int16_t) {
            ActiveAnalogIndex = FirstFreeAnalogSlot();
            if (confirms) AllocateDots(ActiveAnalog(), 500);
            PropertyConfirmed = confirms;
            return confirms;
        };
    }
    bool confirms = true;
};

TEST_F(DocumentTest, NewDocumentHasItsDefaults) {
    AnalogDocs[0].Modified = true;
    AnalogDocs[0].PlotWidth = 1000;
    AnalogDocs[0].PlotHeight = 800;
    NewAnalogDocument();
    const AnalogWaveRecord& wave = AnalogDocs[0];
    EXPECT_EQ(wave.Name, "Waveform0");
    EXPECT_TRUE(AnalogInUse[0] && !wave.Modified && wave.ViewEnd == 499);
    EXPECT_TRUE(wave.XLimitLeft == 200 && wave.XLimitRight == 800);
    EXPECT_TRUE(wave.YLimitTop == 100 && wave.YLimitBottom == 699);
}

TEST_F(DocumentTest, TenSlotsAreFilledAndFilledAgain) {
    for (int i = 0; i < 10; ++i) NewAnalogDocument();
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
    EXPECT_TRUE(AnalogDocCount == 10 && ActiveAnalogIndex == 3);
    EXPECT_EQ(status, ResText(8));
    for (std::int16_t slot = 0; slot < 10; ++slot) DocumentClosed(slot);
    EXPECT_EQ(status, "Please create a new analog waveform file");
}

TEST_F(DocumentTest, CloseAsksOnlyForChanges) {
    NewAnalogDocument();
    static bool saves, saved;
    const auto save = [](std::int16_t) { return (saved = true) && saves; };
    const struct {
        bool modified, saves;
        Answer answer;
        bool closes, saved;
    } rows[] = {{false, true, Answer::Cancel, true, false},
                {true, true, Answer::Yes, true, true},
                {true, false, Answer::Yes, false, true},
                {true, true, Answer::No, true, false},
                {true, true, Answer::Cancel, false, false}};
    for (const auto& row : rows) {
        asked.clear();
        saved = false;
        saves = row.saves;
        answer = row.answer;
        AnalogDocs[0].Modified = row.modified;
        EXPECT_EQ(QueryCloseDocument(0, save), row.closes) << int(row.answer);
        EXPECT_EQ(saved, row.saved) << int(row.answer);
        EXPECT_EQ(asked, std::vector<std::string>(row.modified, "Save changes to Waveform0 ?"));
    }
}

}  // namespace
