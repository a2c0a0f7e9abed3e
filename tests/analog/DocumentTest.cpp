#include "analog/AnalogFixture.h"

namespace {

class DocumentTest : public AnalogFixture {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        // The property dialog: turns to the first free slot and, on OK, sizes the dots.
        TheHost().RunDialog = [this](std::string_view window, std::int16_t) {
            EXPECT_EQ(window, "PropertyFrm");
            ActiveAnalogIndex = FirstFreeAnalogSlot();
            if (confirms) AllocateDots(ActiveAnalog(), 500);
            PropertyConfirmed = confirms;
            return confirms;
        };
        TheHost().OpenAnalogWindow = [](std::int16_t slot) {
            AnalogDocs[slot].PlotWidth = 1000;
            AnalogDocs[slot].PlotHeight = 800;
        };
    }
    bool confirms = true;
};

TEST_F(DocumentTest, NewDocumentHasItsDefaults) {
    AnalogDocs[0].Modified = true;
    AnalogDocs[0].GridOn = false;
    NewAnalogDocument();
    const AnalogWaveRecord& wave = AnalogDocs[0];
    EXPECT_EQ(wave.Name, "Waveform0");
    EXPECT_EQ(AnalogDocCount, 1);
    EXPECT_TRUE(AnalogInUse[0] && wave.InUse && wave.GridOn && !wave.Modified && !wave.Saved);
    EXPECT_EQ(wave.ViewEnd, 499);
    // The limit lines of a plot of 1000 by 800 pixels.
    EXPECT_EQ(wave.XLimitLeft, 200.0F);
    EXPECT_EQ(wave.XLimitRight, 800.0F);
    EXPECT_EQ(wave.YLimitTop, 100.0F);
    EXPECT_EQ(wave.YLimitBottom, 699.0F);
    EXPECT_TRUE(DocReady && !DocBuilding);
    EXPECT_GT(refreshes, 0);
    EXPECT_EQ(status, ResText(8));
}

TEST_F(DocumentTest, EleventhDocumentIsRefused) {
    for (int i = 0; i < 10; ++i) NewAnalogDocument();
    EXPECT_EQ(AnalogDocs[9].Name, "Waveform9");
    ASSERT_TRUE(asked.empty());
    ActiveAnalogIndex = 4;
    NewAnalogDocument();
    EXPECT_FALSE(CreateAnalogDocument());  // the way of opened files
    EXPECT_EQ(asked, std::vector<std::string>(2, "Exceed maximum file numbers limit"));
    EXPECT_EQ(AnalogDocCount, 10);
    EXPECT_EQ(ActiveAnalogIndex, 4);
    EXPECT_FALSE(AnalogInUse[10]);
    UseEnglish = 0;
    NewAnalogDocument();
    EXPECT_EQ(asked.back(), "波形文件数目达到上限");
}

TEST_F(DocumentTest, FreedSlotIsTakenAgain) {
    for (int i = 0; i < 5; ++i) NewAnalogDocument();
    DocumentClosed(3);
    DocumentClosed(3);  // a second report of the same window
    EXPECT_EQ(AnalogDocCount, 4);
    EXPECT_TRUE(AnalogDocs[3].DotArray.empty());
    confirms = false;  // cancelled properties leave everything
    ActiveAnalogIndex = 1;
    NewAnalogDocument();
    EXPECT_EQ(AnalogDocCount, 4);
    EXPECT_EQ(ActiveAnalogIndex, 1);
    EXPECT_FALSE(AnalogInUse[3]);
    confirms = true;
    NewAnalogDocument();
    EXPECT_EQ(AnalogDocCount, 5);
    EXPECT_EQ(ActiveAnalogIndex, 3);
    EXPECT_TRUE(AnalogInUse[3]);
}

TEST_F(DocumentTest, CloseAsksOnlyForChanges) {
    NewAnalogDocument();
    static std::int16_t saved;
    const auto save = [](std::int16_t slot) {
        saved = slot;
        return true;
    };
    const auto fails = [](std::int16_t) { return false; };
    const struct {
        bool modified;
        Answer answer;
        bool (*save)(std::int16_t);
        bool closes;
        std::int16_t saved;
    } rows[] = {
        {false, Answer::Cancel, save, true, -1}, {true, Answer::Yes, save, true, 0},
        {true, Answer::Yes, fails, false, -1},   {true, Answer::No, save, true, -1},
        {true, Answer::Cancel, save, false, -1},
    };
    for (const auto& row : rows) {
        asked.clear();
        saved = -1;
        AnalogDocs[0].Modified = row.modified;
        answer = row.answer;
        EXPECT_EQ(QueryCloseDocument(0, row.save), row.closes) << int(row.answer);
        EXPECT_EQ(saved, row.saved) << int(row.answer);
        EXPECT_EQ(asked, std::vector<std::string>(row.modified, "Save changes to Waveform0 ?"));
    }
    UseEnglish = 0;
    QueryCloseDocument(0, save);
    EXPECT_EQ(asked.back(), "是否保存对 Waveform0 的更改？");
}

TEST_F(DocumentTest, LastDocumentClosedAsksForANewOne) {
    NewAnalogDocument();
    NewAnalogDocument();
    status.clear();
    DocumentClosed(0);
    EXPECT_EQ(status, "");
    refreshes = 0;
    DocumentClosed(1);
    EXPECT_EQ(status, "Please create a new analog waveform file");
    EXPECT_GT(refreshes, 0);
}

}  // namespace
