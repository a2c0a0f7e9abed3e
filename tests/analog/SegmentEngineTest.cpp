#include "analog/SegmentEngine.h"

#include "analog/AnalogFixture.h"

namespace {

using SegmentEngineTest = AnalogFixture;

TEST_F(SegmentEngineTest, RemovedRunShortensSplitsAndMoves) {
    const std::tuple<int, int, const char*> rows[] = {{0, 299, ""},
                                                      {100, 199, "g0-99 g100-199"},
                                                      {0, 0, "c0-98 c99-198 g199-298"},
                                                      {200, 209, "g0-99 c100-199 c200-289"},
                                                      {150, 150, "g0-99 c100-198 g199-298"},
                                                      {50, 149, "c0-49 c50-99 g100-199"},
                                                      {50, 250, "c0-49 c50-98"}};
    for (const auto& [first, last, runs] : rows) {
        AnalogWaveRecord& wave = MakeDocument("gcg");
        RemoveRunSegments(wave, first, last);
        EXPECT_EQ(Runs(wave), runs);
    }
}

// A free selection collapses into one custom run, a picked segment is rewritten in its place.
TEST_F(SegmentEngineTest, RewrittenSelectionMovesWhatFollows) {
    const struct {
        const char* before;
        std::int32_t first, last, dots;
        const char* freeForm;
        const char* picked = nullptr;  // its new wave of kind 7; null: a free selection
    } rows[] = {
        {"gcg", 50, 120, 81, "c0-209 g210-309@200"},
        {"ggg", 120, 139, 10, "g0-99 c100-189 g190-289@200"},
        {"gg", 100, 199, 50, "g0-99 c100-149"},
        {"cgcg", 150, 159, 20, "c0-309 g310-409@300"},  // between custom ones
        {"ggc", 110, 119, 10, "g0-99 c100-299"},
        {"cgg", 110, 119, 10, "c0-199 g200-299"},
        {"ggg", -1, -1, 10, "g0-99 g100-199 g200-299"},  // nothing selected
        {"gcg", 0, 99, 120, "c0-219 g220-319", "s0-119 c120-219 g220-319"},
        {"gcg", 100, 199, 100, "g0-99 c100-199@170 g200-299", "g0-99 s100-199@170 g200-299"},
        {"cgc", 100, 199, 90, "c0-289", "c0-99 s100-189 c190-289"},
        {"gcg", 200, 299, 40, "g0-99 c100-239", "g0-99 c100-199 s200-239"},
    };
    for (const auto& row : rows) {
        for (const bool generated : {true, false}) {
            AnalogWaveRecord& wave = MakeDocument(row.before);
            if (row.first >= 0) SelectDots(wave, row.first, row.last);
            if (row.picked) {
                wave.Segments[row.first / 100].StartDot = 170;  // made there, moved since
                PickSegment(wave, row.first / 100);
            }
            const WaveSegment made = {.Kind = 7, .DotCount = row.dots};
            generated ? ReplaceRunSegments(wave, made) : MarkRunCustom(wave, row.dots);
            EXPECT_EQ(Runs(wave), generated && row.picked ? row.picked : row.freeForm);
        }
    }
}

}  // namespace
