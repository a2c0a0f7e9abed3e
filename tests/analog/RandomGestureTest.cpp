#include "analog/GestureFixture.h"
#include "Soak.h"

#include <random>

// Thousands of random gestures, with commands between and in the middle of them.

namespace {

using Plan = std::tuple<std::int32_t, unsigned>;  // capacity, seed

class RandomGestureTest : public GestureFixture, public ::testing::WithParamInterface<Plan> {
protected:
    std::int32_t Pick(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random_);
    }
    void Event(std::string_view letters) {
        const char letter = letters[std::size_t(Pick(0, int(letters.size()) - 1))];
        const std::int32_t x = letter == 't' ? Pick(0, 8) : letter == '=' ? 0 : Pick(-9, 70);
        Do(letter, x, Pick(-9, 50), std::to_string(Pick(-12, doc.MaxDots + 9)));
    }
    void Gesture() {
        if (Pick(0, 3) == 0) Event("t=====+-<>DrksmvzfXYAF");
        if (Pick(0, 7) == 0) Event("uexcdpaw");
        Event("PPPPPDG");
        for (std::int32_t moves = Pick(0, 4); moves > 0; --moves) {
            Event("MMMJ");
            if (Pick(0, 15) == 0) Event("uexcdpawzfkrtXYAF=");
        }
        for (const char* letter : {"R", "K", "H"}) Event(letter);
    }
    std::string Content() const {
        const std::span dots = std::span(doc.DotArray).first(doc.Dots);
        return Runs(doc) + ' ' + std::to_string(doc.LastDot) +
               std::string(reinterpret_cast<const char*>(dots.data()), dots.size_bytes());
    }
    void Check() const {
        ASSERT_NO_FATAL_FAILURE(ExpectSound(doc, 1));
        const bool ordered = doc.ViewStart < doc.ViewEnd && doc.ViewBottom < doc.ViewTop;
        const bool inside = doc.ViewStart >= 0 && doc.ViewEnd < doc.MaxDots && doc.ViewTop <= 1.0;
        ASSERT_TRUE(ordered && inside && doc.ViewBottom >= -1.0) << View();
        ASSERT_TRUE(ToolsOn().size() == 1 && !doc.MouseArmed && !doc.DrawPressed);
    }

    std::mt19937 random_{std::get<1>(GetParam())};
};

TEST_P(RandomGestureTest, LeavesASoundDocument) {
    MakePlot(0, std::get<0>(GetParam()));
    LayoutAnalogSurfaces(doc, 60 + WaveMarginWidth, 41 + WaveMarginHeight, 1.0);
    doc.BackSurface.Free();  // its labels are slow
    for (int gesture = 0; gesture < 10000; ++gesture) {
        SCOPED_TRACE(gesture);
        Gesture();
        ASSERT_NO_FATAL_FAILURE(Check());
        if (!doc.UndoAvailable || doc.LinePending || Pick(0, 1) == 0) continue;
        const std::string content = Content();
        UndoAnalog();
        ASSERT_NO_FATAL_FAILURE(Check());
        ResumeAnalog();
        ASSERT_TRUE(Content() == content);
    }
}

INSTANTIATE_TEST_SUITE_P(Capacities, RandomGestureTest,
                         ::testing::Combine(::testing::Values(8, 64, 4096),
                                            ::testing::ValuesIn(Seeds({1U}))));

}  // namespace
