#include "files/FileOptFuncCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "GoldenFiles.h"
#include "platform/Host.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

// A user who answers `reply` to every question and picks `chosen` in every dialog.
class FlowTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "flow-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        for (AnalogWaveRecord& wave : AnalogDocs) wave = AnalogWaveRecord();
        AnalogInUse.fill(false);
        AnalogDocCount = ActiveAnalogIndex = 0;
        InstrumentModel = 0;
        InitialiseGlobals();
        UseEnglish = 1;
        former = TheHost();
        TheHost().Ask = [this](std::string_view text, Buttons, MessageIcon) {
            asked.emplace_back(text);
            return reply;
        };
        TheHost().ChooseFile = [this](const FileChoice& choice) {
            titles.push_back(choice.Title);
            choice.FilterIndex = filter;
            return chosen;
        };
    }
    void TearDown() override {
        TheHost() = former;
        fs::remove_all(folder);
    }

    std::string Put(const std::string& name, std::string_view bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return folder / name;
    }
    std::string Content(const std::string& name) {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // The golden wave as a new, unsaved document in slot 0.
    AnalogWaveRecord& PutDocument() {
        AnalogDocs[0] = GoldenWave();
        AnalogDocs[0].Name = "Waveform0";
        AnalogDocs[0].Modified = true;
        AnalogInUse[0] = true;
        AnalogDocCount = 1;
        return AnalogDocs[0];
    }
    void ExpectNothingOpened(std::string_view message) {
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_EQ(asked[0].substr(0, message.size()), message);
        EXPECT_EQ(AnalogDocCount, 0);
        EXPECT_FALSE(AnalogInUse[0]);
        EXPECT_TRUE(AnalogDocs[0].DotArray.empty());
    }

    fs::path folder;
    Host former;
    Answer reply = Answer::No;
    std::string chosen;
    std::int32_t filter = 0;
    std::vector<std::string> asked, titles;
};

constexpr std::string_view InvalidFormat = "The file format is invalid！";

TEST_F(FlowTest, OpenMakesAnActiveDocument) {
    PutDocument();
    chosen = Put("Three.TXT", GoldenText);
    OpenAnalog();
    EXPECT_EQ(titles.at(0), "Open File");
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(AnalogDocCount, 2);
    EXPECT_EQ(ActiveAnalogIndex, 1);
    const AnalogWaveRecord& wave = AnalogDocs[1];
    EXPECT_TRUE(AnalogInUse[1]);
    EXPECT_EQ(wave.Name, "Three.TXT");
    EXPECT_EQ(wave.FileName, chosen);
    EXPECT_EQ(wave.FolderName, folder);
    EXPECT_TRUE(wave.Saved);
    EXPECT_FALSE(wave.Modified);
    EXPECT_EQ(wave.ViewStart, 0);
    EXPECT_EQ(wave.ViewEnd, 7);
    EXPECT_EQ(wave.ViewTop, 1.0);
    EXPECT_EQ(wave.ViewBottom, -1.0);
    EXPECT_EQ(wave.UndoDotArray.size(), 8U);
    EXPECT_EQ(WriteAnalogText(wave), GoldenText);
}

TEST_F(FlowTest, TenDocumentsAreTheLimit) {
    AnalogDocCount = 10;
    AnalogInUse.fill(true);
    OpenAnalog();
    UseEnglish = 0;
    EXPECT_FALSE(OpenAnalogFile(Put("a.txt", GoldenText)));
    EXPECT_TRUE(titles.empty());
    EXPECT_EQ(asked, (std::vector<std::string>{"Exceed maximum file numbers limit",
                                               "波形文件数目达到上限"}));
}

TEST_F(FlowTest, SaveAsksForANameOnce) {
    AnalogWaveRecord& wave = PutDocument();
    chosen = folder / "ring.1";
    filter = 1;
    EXPECT_TRUE(SaveAnalog(0));
    EXPECT_EQ(Content("ring.1.csv"), GoldenCsv);
    EXPECT_EQ(wave.Name, "ring.1.csv");
    EXPECT_EQ(wave.FileName, folder / "ring.1.csv");
    EXPECT_EQ(wave.FolderName, folder);
    EXPECT_TRUE(wave.Saved);
    EXPECT_FALSE(wave.Modified);
    wave.Modified = true;
    EXPECT_TRUE(SaveAnalog(0));
    EXPECT_FALSE(wave.Modified);
    EXPECT_EQ(titles, std::vector<std::string>{"Save File"});
    EXPECT_TRUE(asked.empty());
}

TEST_F(FlowTest, SaveAsAsksBeforeItReplaces) {
    AnalogWaveRecord& wave = PutDocument();
    chosen = Put("old.txt", "old");
    EXPECT_FALSE(SaveAnalogAs(0));
    EXPECT_EQ(Content("old.txt"), "old");
    EXPECT_TRUE(wave.Modified);
    reply = Answer::Yes;
    EXPECT_TRUE(SaveAnalogAs(0));
    EXPECT_EQ(Content("old.txt"), GoldenText);
    EXPECT_TRUE(SaveAnalogAs(0));  // now its own file
    EXPECT_EQ(asked, std::vector<std::string>(2, "This file is existed,overwrite?"));
    EXPECT_EQ(titles.at(0), "Save as file！");
}

TEST_F(FlowTest, FailedSaveKeepsOldFileAndModified) {
    AnalogWaveRecord& wave = PutDocument();
    wave.FileName = Put("full.rdf", "old");  // 8192 bytes to write, 4096 allowed
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    const bool saved = SaveAllAnalog();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(saved);
    EXPECT_EQ(asked, std::vector<std::string>{"The file could not be saved: File too large"});
    EXPECT_TRUE(wave.Modified);
    EXPECT_EQ(Content("full.rdf"), "old");
}

TEST_F(FlowTest, CancelledSaveStopsSaveAll) {
    PutDocument();
    AnalogDocs[1] = GoldenWave();
    AnalogDocs[1].Modified = true;
    AnalogDocs[1].FileName = folder / "second.txt";
    AnalogInUse[1] = true;
    EXPECT_FALSE(SaveAllAnalog());
    EXPECT_FALSE(fs::exists(folder / "second.txt"));
    AnalogDocs[0].Modified = false;
    EXPECT_TRUE(SaveAllAnalog());
    EXPECT_EQ(Content("second.txt"), GoldenText);
}

TEST_F(FlowTest, UnreadableFileTellsTheReason) {
    EXPECT_FALSE(OpenAnalogFile(folder));
    EXPECT_FALSE(OpenAnalogFile(folder / "none.txt"));
    EXPECT_EQ(asked, (std::vector<std::string>{
                         "The file could not be opened: Is a directory",
                         "The file could not be opened: No such file or directory"}));
    if (geteuid() == 0) return;
    fs::permissions(Put("closed.txt", GoldenText), fs::perms::none);
    EXPECT_FALSE(OpenAnalogFile(folder / "closed.txt"));
    EXPECT_EQ(asked.back(), "The file could not be opened: Permission denied");
}

TEST_F(FlowTest, TruncatedFilesAreRefused) {
    for (const bool csv : {false, true}) {
        std::vector<std::string> lines = LinesOf(csv ? GoldenCsv : GoldenText);
        while (!lines.empty()) {
            lines.pop_back();
            asked.clear();
            EXPECT_FALSE(OpenAnalogFile(Put(csv ? "cut.csv" : "cut.txt", JoinLines(lines))))
                << lines.size();
            ExpectNothingOpened(InvalidFormat);
        }
    }
}

struct HostileRow {
    const char* name;
    const char* file;
    std::string bytes;
};
class HostileTest : public FlowTest, public ::testing::WithParamInterface<HostileRow> {};

TEST_P(HostileTest, NothingIsMade) {
    EXPECT_FALSE(OpenAnalogFile(Put(GetParam().file, GetParam().bytes)));
    ExpectNothingOpened(InvalidFormat);
}

HostileRow TextRow(const char* name, std::size_t line, const char* text) {
    return {name, "bad.txt", WithLine(GoldenText, line, text)};
}
HostileRow CsvRow(const char* name, std::size_t line, const char* text) {
    return {name, "bad.csv", WithLine(GoldenCsv, line, text)};
}

INSTANTIATE_TEST_SUITE_P(
    Files, HostileTest,
    ::testing::Values(
        HostileRow{"EmptyText", "bad.txt", ""}, HostileRow{"EmptyRdf", "bad.rdf", ""},
        HostileRow{"LoneByteRdf", "bad.rdf", "\x07"}, HostileRow{"CsvAsText", "bad.txt", GoldenCsv},
        HostileRow{"TextAsCsv", "bad.csv", GoldenText},
        HostileRow{"ZeroBytes", "bad.txt", std::string(1000, '\0')},
        TextRow("OtherTitle", 1, "Norvik Technologies,Inc."),
        TextRow("LongTitle", 1, std::string(100000, 'N').c_str()),
        TextRow("MaxDotsHuge", 2, "2147483647"), TextRow("MaxDotsAboveAllModels", 2, "1048577"),
        TextRow("MaxDotsNegative", 2, "-1"), TextRow("MaxDotsZero", 2, "0"),
        TextRow("MaxDotsFraction", 2, "8.5"), TextRow("MaxDotsTooWide", 2, "4294967304"),
        TextRow("MaxDotsEmpty", 2, ""), TextRow("DotsHuge", 3, "2147483647"),
        TextRow("DotsNegative", 3, "-3"), TextRow("DotsAboveMaxDots", 3, "9"),
        TextRow("MaxDotsBelowDots", 2, "2"), TextRow("DotsMissing", 3, "8"),
        TextRow("VppZero", 4, "0"), TextRow("VppNegative", 4, "-2"), TextRow("VppNan", 4, "nan"),
        TextRow("VppInf", 4, "inf"), TextRow("VppTooLarge", 4, "1e10"),
        TextRow("VppPastRange", 4, "1e400"), TextRow("PeriodZero", 5, "0"),
        TextRow("QuantifyTooWide", 6, "32768"), TextRow("LastDotText", 7, "end"),
        TextRow("SegmentsHuge", 8, "2147483647"), TextRow("SegmentsNegative", 8, "-1"),
        TextRow("SegmentsMissing", 8, "2"), TextRow("PositionText", 9, "x"),
        TextRow("AmplitudeNan", 10, "nan"), TextRow("AmplitudeInf", 10, "-inf"),
        TextRow("AmplitudeHex", 10, "0x1p-2"), TextRow("AmplitudeTwice", 10, "0.1 0.2"),
        TextRow("AmplitudeSigns", 10, "+-1"), TextRow("DutyTooWide", 25, "40000"),
        TextRow("DampTooWide", 30, "1e39"), CsvRow("NoCaption", 2, "2.50E00"),
        CsvRow("NoColumns", 10, "0,0"), CsvRow("CellMissing", 11, "0"),
        CsvRow("NoComma", 11, "0 1.25"), CsvRow("CellText", 11, "0,#NUM!"),
        CsvRow("DotsHugeCsv", 5, "Data Dots:,2147483647"),
        CsvRow("SegmentsHugeCsv", 8, "Wave:,2147483647")),
    [](const auto& row) { return row.param.name; });

}  // namespace
