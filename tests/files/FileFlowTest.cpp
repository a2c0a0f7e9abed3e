#include "analog/AnalogFixture.h"
#include "files/FileOptFuncCode.h"
#include "GoldenFiles.h"
#include "platform/TempFolder.h"
#include "TextRows.h"

#include <sstream>

namespace {

using Texts = std::vector<std::string>;

// A user who answers No to every question and picks `chosen` in every dialog.
class FlowTest : public AnalogFixture, protected TempFolder {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        answer = Answer::No;
        TheHost().ChooseFile = [this](const FileChoice& choice) {
            titles.push_back(choice.Title);
            choice.FilterIndex = filter;
            return chosen;
        };
    }

    // The golden wave as a modified document.
    static AnalogWaveRecord& PutDocument(std::int16_t slot = 0) {
        AnalogDocs[slot] = GoldenWave();
        AnalogDocs[slot].Modified = true;
        AnalogInUse[slot] = true;
        ++AnalogDocCount;
        return AnalogDocs[slot];
    }
    void ExpectRefused(std::string_view name, std::string_view bytes) {
        asked.clear();
        EXPECT_FALSE(OpenAnalogFile(Put(name, bytes))) << bytes.substr(0, 500);
        EXPECT_EQ(asked, Texts{"The file format is invalid！"}) << bytes.substr(0, 500);
        EXPECT_TRUE(AnalogDocCount == 0 && !AnalogInUse[0] && AnalogDocs[0].DotArray.empty());
    }

    std::string chosen;
    std::int32_t filter = 0;
    Texts titles;
};

TEST_F(FlowTest, OpenMakesAnActiveDocument) {
    PutDocument();
    chosen = Put("Three.TXT", GoldenText);
    OpenAnalog();
    EXPECT_EQ(titles, Texts{"Open File"});
    EXPECT_TRUE(AnalogDocCount == 2 && ActiveAnalogIndex == 1 && AnalogInUse[1]);
    const AnalogWaveRecord& wave = AnalogDocs[1];
    EXPECT_EQ((Texts{wave.Name, wave.FileName, wave.FolderName}),
              (Texts{"Three.TXT", chosen, folder}));
    EXPECT_TRUE(wave.Saved && !wave.Modified && wave.ViewEnd == 7 && wave.ViewTop == 1.0);
    EXPECT_EQ(WriteAnalogText(wave), GoldenText);
    AnalogDocCount = 10;
    OpenAnalog();
    EXPECT_EQ(titles.size(), 1U);  // no file is asked for
    EXPECT_EQ(asked, Texts{"Exceed maximum file numbers limit"});
}

// The golden wave has 3 dots, -1.25, 0.125 and 0.0000625 V, and room for 5 more.
TEST_F(FlowTest, InsertKeepsVoltsAndDropsWhatHasNoRoom) {
    const std::tuple<std::int32_t, double, std::int32_t, double> rows[] = {
        {8, 2.5, 3, -1.0}, {8, 1.0, 3, -1.0}, {8, 5.0, 3, -0.5}, {5, 10.0, 2, -0.25}};
    for (const auto& [maxDots, vpp, inserted, first] : rows) {
        AnalogWaveRecord& wave = PutDocument() = GoldenWave();
        wave.MaxDots = maxDots;
        wave.Vpp = vpp;
        wave.UndoDotArray.resize(8);
        wave.HasSelection = true;
        chosen = Put("more.csv", GoldenCsv);
        asked.clear();
        InsertFromFile();
        EXPECT_DOUBLE_EQ(wave.DotArray[3].Y, first);
        EXPECT_DOUBLE_EQ(wave.DotArray[4].Y, 0.125 / (vpp / 2));
        EXPECT_EQ(Runs(wave), "g0-2 c3-" + std::to_string(2 + inserted));
        ExpectSound(wave);
        EXPECT_TRUE(wave.UndoAvailable && !wave.HasSelection);
        const Texts told = {"2 of 3 dots were inserted; the others do not fit."};
        EXPECT_EQ(asked, inserted == 3 ? Texts() : told);
        UndoAnalog();
        EXPECT_EQ(wave.Dots, 3);
    }
}

TEST_F(FlowTest, InsertThatCannotBeLeavesTheDocument) {
    AnalogWaveRecord& wave = PutDocument();
    const std::string before = WriteAnalogText(wave);
    EXPECT_FALSE(InsertAnalogFile(Put("bad.csv", "7")));
    const std::string header = GoldenText.substr(0, GoldenText.find(" 0 \r\n-1"));
    const std::string none = WithLine(WithLine(header, 3, "0"), 8, "0");
    EXPECT_FALSE(InsertAnalogFile(Put("none.txt", none)));
    wave.MaxDots = 4;
    InsertFromFile();
    EXPECT_EQ(asked, (Texts{"The file format is invalid！", "The file holds no dots.",
                            "Waveform Dots up limit"}));
    EXPECT_TRUE(titles.empty() && !wave.UndoAvailable && wave.UndoDots == 0);
    wave.MaxDots = 8;
    EXPECT_EQ(WriteAnalogText(wave), before);
}

TEST_F(FlowTest, SaveAsksForANameOnceAndSaveAsBeforeItReplaces) {
    AnalogWaveRecord& wave = PutDocument();
    chosen = PathOf("ring.1");
    filter = 1;
    EXPECT_TRUE(SaveAnalog(0) && Content("ring.1.csv") == GoldenCsv);
    EXPECT_EQ((Texts{wave.Name, wave.FileName, wave.FolderName}),
              (Texts{"ring.1.csv", PathOf("ring.1.csv"), folder}));
    EXPECT_TRUE(wave.Saved && !wave.Modified && SaveAnalog(0));
    EXPECT_EQ(titles, Texts{"Save File"});

    wave.Modified = true;
    chosen = Put("old.txt", "old");
    EXPECT_TRUE(!SaveAnalogAs(0) && Content("old.txt") == "old" && wave.Modified);
    answer = Answer::Yes;
    EXPECT_TRUE(SaveAnalogAs(0) && Content("old.txt") == GoldenText);
    EXPECT_TRUE(SaveAnalogAs(0));  // now its own file
    EXPECT_EQ(asked, Texts(2, "This file is existed,overwrite?"));
    EXPECT_EQ(titles.at(1), "Save as file！");
}

TEST_F(FlowTest, SaveAllEndsWithACancelledOrFailedSave) {
    PutDocument();
    AnalogWaveRecord& second = PutDocument(1);
    second.FileName = Put("full.rdf", "old");  // 8192 bytes to write
    EXPECT_FALSE(SaveAllAnalog());             // no file is chosen for the first
    EXPECT_EQ(Content("full.rdf"), "old");
    AnalogDocs[0].Modified = false;
    EXPECT_FALSE(RunOnFullDisk(SaveAllAnalog));
    EXPECT_EQ(asked, Texts{"The file could not be saved: File too large"});
    EXPECT_TRUE(second.Modified && Content("full.rdf") == "old");
    EXPECT_TRUE(SaveAllAnalog() && Content("full.rdf").size() == 8192U);
}

TEST_F(FlowTest, TruncatedFilesAreRefused) {
    for (const bool csv : {false, true}) {
        std::string file = csv ? GoldenCsv : GoldenText;
        while (!file.empty()) {
            file.resize(file.size() - 2);
            const auto end = file.rfind("\r\n");
            file.resize(end == std::string::npos ? 0 : end + 2);
            ExpectRefused(csv ? "cut.csv" : "cut.txt", file);
        }
    }
}

TEST_F(FlowTest, UnreadableAndHostileFilesAreRefused) {
    EXPECT_FALSE(OpenAnalogFile(folder));
    EXPECT_FALSE(OpenAnalogFile(PathOf("none.txt")));
    EXPECT_EQ(asked, (Texts{"The file could not be opened: Is a directory",
                            "The file could not be opened: No such file or directory"}));
    ExpectRefused("empty.rdf", "");
    ExpectRefused("byte.rdf", "\x07");
    ExpectRefused("csv.txt", GoldenCsv);
    ExpectRefused("text.csv", GoldenText);
    ExpectRefused("long.txt", WithLine(GoldenText, 1, std::string(100000, 'N')));
    // The capacity in line 2; then dots, volts, period, levels, end, segments, dots, the segment.
    for (const auto& [line, texts] : Rows(R"(1 => Norvik Technologies,Inc.;
        2 => 2147483647|1048577|-1|0|8.5|4294967304||2; 3 => 2147483647|-3|9|8;
        4 => 0|-2|nan|inf|1e10|1e400; 5 => 0; 6 => 32768; 7 => end; 8 => 2147483647|-1|2; 9 => x;
        10 => nan|-inf|0x1p-2|0.1 0.2|+-1; 25 => 40000; 30 => 1e39)")) {
        std::istringstream list(texts);
        for (std::string text; std::getline(list, text, '|');)
            ExpectRefused("bad.txt", WithLine(GoldenText, std::stoi(line), text));
    }
    const std::pair<int, const char*> csvLines[] = {
        {2, "2.50E00"},         {10, "0,0"},     {11, "0"},
        {11, "0 1.25"},         {11, "0,#NUM!"}, {5, "Data Dots:,2147483647"},
        {8, "Wave:,2147483647"}};
    for (const auto& [line, text] : csvLines)
        ExpectRefused("bad.csv", WithLine(GoldenCsv, line, text));
}

}  // namespace
