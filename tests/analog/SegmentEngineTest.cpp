#include "analog/SegmentEngine.h"

#include "analog/AnalogFixture.h"

namespace {

using SegmentEngineTest = AnalogFixture;

TEST_F(SegmentEngineTest, RemovedRunShortensSplitsAndMoves) {
    const struct {
        const char* name;
        std::int32_t first, last;
        const char* runs;
    } rows[] = {
        {"all", 0, 299, ""},
        {"first segment", 0, 99, "c0-99 g100-199"},
        {"middle segment", 100, 199, "g0-99 g100-199"},
        {"last segment", 200, 299, "g0-99 c100-199"},
        {"first dot", 0, 0, "c0-98 c99-198 g199-298"},
        {"last dot", 299, 299, "g0-99 c100-199 c200-298"},
        {"end of a segment", 90, 99, "c0-89 c90-189 g190-289"},
        {"start of a segment", 200, 209, "g0-99 c100-199 c200-289"},
        {"inside a generated one", 250, 259, "g0-99 c100-199 c200-289"},
        {"inside a custom one", 150, 150, "g0-99 c100-198 g199-298"},
        {"over one border", 50, 149, "c0-49 c50-99 g100-199"},
        {"over two borders", 50, 250, "c0-49 c50-98"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AnalogWaveRecord& wave = MakeDocument("gcg");
        RemoveRunSegments(wave, row.first, row.last);
        EXPECT_EQ(Runs(wave), row.runs);
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i)
            EXPECT_EQ(wave.Segments[i].StartDot, wave.Segments[i].RunStart) << i;
        wave.Dots -= row.last - row.first + 1;
        wave.LastDot = std::max(wave.Dots - 1, 0);
        ExpectSound(wave);
    }
}

TEST_F(SegmentEngineTest, FreeSelectionCollapsesIntoOneCustomRun) {
    const struct {
        const char *before, *name;
        std::int32_t first, last, dots;
        const char* runs;
        std::vector<std::int32_t> starts;  // later segments keep where they were first generated
    } rows[] = {
        {"gcg", "over a border", 50, 120, 81, "c0-209 g210-309", {0, 200}},
        {"ggg", "same length", 120, 129, 10, "g0-99 c100-199 g200-299", {0, 100, 200}},
        {"ggg", "shorter", 120, 139, 10, "g0-99 c100-189 g190-289", {0, 100, 200}},
        {"gg", "on both borders", 100, 199, 50, "g0-99 c100-149", {0, 100}},
        {"ggg", "over all", 0, 299, 300, "c0-299", {0}},
        {"cgcg", "between custom ones", 150, 159, 20, "c0-309 g310-409", {0, 300}},
        {"ggc", "custom on the right", 110, 119, 10, "g0-99 c100-299", {0, 100}},
        {"cgg", "custom on the left", 110, 119, 10, "c0-199 g200-299", {0, 200}},
    };
    WaveSegment sinc = {.Kind = 7};
    for (const auto& row : rows) {
        for (const bool generated : {true, false}) {
            SCOPED_TRACE(std::string(row.name) + (generated ? ", wave" : ", free-form"));
            AnalogWaveRecord& wave = MakeDocument(row.before);
            SelectDots(wave, row.first, row.last);
            sinc.DotCount = row.dots;
            generated ? ReplaceRunSegments(wave, sinc) : MarkRunCustom(wave, row.dots);
            EXPECT_EQ(Runs(wave), row.runs);
            EXPECT_EQ(Starts(wave), row.starts);
            for (std::int32_t i = 0; i < wave.SegmentCount; ++i)
                EXPECT_NE(wave.Segments[i].Kind, 7) << "a free selection keeps no wave";
        }
    }
}

TEST_F(SegmentEngineTest, PickedSegmentIsRewrittenInItsPlace) {
    const struct {
        const char* before;
        std::int32_t pick, dots;
        bool generated;
        const char* runs;
        std::vector<std::int32_t> starts;  // of the picked one kept with the length
    } rows[] = {
        {"gcg", 0, 120, true, "g0-119 c120-219 g220-319", {0, 120, 220}},
        {"gcg", 1, 100, true, "g0-99 g100-199 g200-299", {0, 170, 200}},
        {"gcg", 2, 40, true, "g0-99 c100-199 g200-239", {0, 100, 200}},
        {"cgc", 1, 90, true, "c0-99 g100-189 c190-289", {0, 100, 190}},
        {"gcg", 0, 120, false, "c0-219 g220-319", {0, 220}},
        {"gcg", 1, 90, false, "g0-99 c100-189 g190-289", {0, 100, 190}},
        {"gcg", 2, 100, false, "g0-99 c100-299", {0, 100}},
        {"cgc", 1, 110, false, "c0-309", {0}},
    };
    WaveSegment sinc = {.Kind = 7};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.runs);
        AnalogWaveRecord& wave = MakeDocument(row.before);
        wave.Segments[row.pick].StartDot = 170;  // made there, moved since
        PickSegment(wave, row.pick);
        sinc.DotCount = row.dots;
        row.generated ? ReplaceRunSegments(wave, sinc) : MarkRunCustom(wave, row.dots);
        EXPECT_EQ(Runs(wave), row.runs);
        EXPECT_EQ(Starts(wave), row.starts);
        EXPECT_TRUE(!row.generated || wave.Segments[row.pick].Kind == 7);
    }
}

TEST_F(SegmentEngineTest, NothingHappensWithoutASelection) {
    AnalogWaveRecord& wave = MakeDocument("gcg");
    wave.SelStart = 50;
    wave.SelEnd = 149;
    MarkRunCustom(wave, 10);
    ReplaceRunSegments(wave, WaveSegment{.DotCount = 10});
    EXPECT_EQ(Runs(wave), "g0-99 c100-199 g200-299");
}

TEST_F(SegmentEngineTest, TruncatedListEndsWithTheDots) {
    const std::pair<std::int32_t, const char*> rows[] = {{299, "g0-99 c100-199 c200-298"},
                                                         {200, "g0-99 c100-199"},
                                                         {101, "g0-99 c100-100"},
                                                         {100, "c0-99"},  // reached: custom as well
                                                         {8, "c0-7"}};
    for (const auto& [dots, runs] : rows) {
        AnalogWaveRecord& wave = MakeDocument("gcg");
        TruncateSegments(wave.Segments, wave.SegmentCount, dots);
        EXPECT_EQ(Runs(wave), runs) << dots;
    }
}

}  // namespace
