#include "analog/DrawAnalogWave.h"

#include "analog/AnalogFixture.h"

namespace {

constexpr std::int32_t Width = 200, Height = 101;  // of the plot; amplitude 0 stands on row 50

class PainterTest : public AnalogFixture {
protected:
    static AnalogWaveRecord& MakePlot(std::int32_t dots) {
        AnalogWaveRecord& wave = MakeDocument("", 0, dots);
        wave.Dots = dots;
        for (std::int32_t i = 0; i < dots; ++i) wave.DotArray[i] = {double(i), 0.0};
        wave.GridOn = false;
        LayoutAnalogSurfaces(wave, Width + WaveMarginWidth, Height + WaveMarginHeight, 1.0);
        return wave;
    }
    struct Box {
        std::int32_t Left = 0, Top = 0, Right = Width - 1, Bottom = Height - 1;
    };
    // The pixels of one colour on the plot, row by row.
    static std::vector<PixelPoint> Find(Colour colour, const Box& box) {
        std::vector<PixelPoint> found;
        for (std::int32_t y = box.Top; y <= box.Bottom; ++y)
            for (std::int32_t x = box.Left; x <= box.Right; ++x)
                if (AnalogDocs[0].PlotSurface.Pixel(x, y) == colour) found.push_back({x, y});
        return found;
    }
};

TEST_F(PainterTest, SpansAreDividedByTheirRow) {
    const std::pair<std::int32_t, GridDivision> rows[] = {
        {0, {0, 0, true}},      {10, {10, 1, true}},    {14, {0, 10, false}}, {15, {1, 10, false}},
        {20, {2, 10, true}},    {94, {8, 10, false}},   {95, {9, 10, false}}, {101, {9, 10, false}},
        {999, {9, 100, false}}, {1016, {10, 102, true}}};
    for (const auto& [span, expected] : rows) {
        const GridDivision division = DivideSpan(span);
        EXPECT_EQ(division.Count, expected.Count) << span;
        EXPECT_TRUE(division.Step == expected.Step && division.Exact == expected.Exact) << span;
    }
}

TEST_F(PainterTest, LinesHaveBothEndsInEveryDirection) {
    for (std::int32_t i = 0; i < 25; ++i) {
        Surface surface;
        surface.Create(5, 5);
        surface.Line(2, 2, i % 5, i / 5, 1);
        EXPECT_TRUE(surface.Pixel(2, 2) && surface.Pixel(i % 5, i / 5)) << i;
    }
}

TEST_F(PainterTest, SpikeOfOneDotIsSeenAtFullWidth) {
    constexpr std::int32_t dots = 1048576;
    for (const std::int32_t at : {0, 2621, 777777, dots - 2, dots - 1}) {
        AnalogWaveRecord& wave = MakePlot(dots);
        wave.DotArray[at].Y = 1.0;
        RepaintAnalog(0, true);
        const auto peak = Find(ScreenColours.Curve, {.Bottom = 0});
        // Dot 2621 is the last one of its column and begins the line to the next.
        ASSERT_EQ(peak.size(), at == 2621 ? 2U : 1U) << at;
        EXPECT_NEAR(peak[0].X, std::min(at / (dots - 1.0) * Width, Width - 1.0), 1.5) << at;
        EXPECT_EQ(wave.PlotSurface.Pixel(peak[0].X, 25), ScreenColours.Curve) << at;
    }
}

TEST_F(PainterTest, FlatLineCoversItsRow) {
    for (const std::int32_t dots : {2, 150, 5000}) {
        MakePlot(dots);
        RepaintAnalog(0, true);
        const auto line = Find(ScreenColours.Curve, {.Left = 1});
        EXPECT_EQ(line.size(), Width - 1) << dots;
        EXPECT_TRUE(line.front().Y == 50 && line.back().Y == 50) << dots;
    }
}

TEST_F(PainterTest, PointsModeSetsExactlyThePixelsOfTheDots) {
    AnalogWaveRecord& wave = MakePlot(5);  // a dot every fifty columns
    for (std::int32_t i = 0; i < 5; ++i) wave.DotArray[i].Y = 1.0 - i / 2.0;
    wave.DotLinkOn = false;
    RepaintAnalog(0, true);
    const auto drawn = Find(ScreenColours.Curve, {});
    ASSERT_EQ(drawn.size(), 5U);
    for (std::int32_t i = 0; i < 5; ++i)
        EXPECT_TRUE(drawn[i].X == std::min(50 * i, Width - 1) && drawn[i].Y == 25 * i) << i;
}

// A column is five dots. The drawn bar stays while its edges move by a pixel only.
TEST_F(PainterTest, SelectionBarIsSteadyAndUndoesItself) {
    AnalogWaveRecord& wave = MakePlot(1001);
    Surface& plot = wave.PlotSurface;
    RepaintAnalog(0, true);
    const auto plain = Find(ScreenColours.Back, {});
    SelectDots(wave, 200, 400);
    const std::int32_t rows[][4] = {
        {200, 400, 40, 80}, {205, 395, 40, 80}, {195, 410, 40, 82}, {190, 405, 38, 82}};
    for (const auto& [first, last, left, right] : rows) {
        wave.SelStart = first;
        wave.SelEnd = last;
        RepaintAnalog(0, false);
        const auto bar = Find(~(ScreenColours.Back ^ SelectionColour) & 0xFFFFFF, {});
        EXPECT_EQ(bar.front().X, left) << first;
        EXPECT_EQ(bar.back().X, right) << last;
    }
    plot.SetMode(DrawMode::NotXor);
    plot.FillBox(wave.SelPixelLeft, 0, wave.SelPixelRight, Height - 1, SelectionColour);
    EXPECT_EQ(Find(ScreenColours.Back, {}).size(), plain.size());
}

TEST_F(PainterTest, LimitLinesFormARectangle) {
    for (const auto& [across, down] : {std::pair{true, false}, {false, true}, {true, true}}) {
        AnalogWaveRecord& wave = MakePlot(1000);
        std::tie(wave.XLimitLeft, wave.XLimitRight) = std::tuple(40.0F, 160.0F);
        std::tie(wave.YLimitTop, wave.YLimitBottom) = std::tuple(20.0F, 80.0F);
        wave.XLimitOn = across;
        wave.YLimitOn = down;
        RepaintAnalog(0, true);
        const auto drawn = [](const Box& box) { return !Find(ScreenColours.Limit, box).empty(); };
        for (const std::int32_t x : {40, 160}) EXPECT_EQ(drawn({x, 30, x, 45}), across) << down;
        for (const std::int32_t y : {20, 80}) EXPECT_EQ(drawn({90, y, 110, y}), down) << across;
        EXPECT_TRUE(drawn({.Bottom = 19}) != down && drawn({.Top = 81}) != down) << across;
        EXPECT_TRUE(drawn({.Right = 39}) != across && drawn({.Left = 161}) != across) << down;
    }
}

TEST_F(PainterTest, NothingToDrawIsHarmless) {
    for (const bool linked : {true, false}) {
        AnalogWaveRecord& wave = MakePlot(1000);
        wave.DotLinkOn = linked;
        wave.GridOn = wave.XZoomed = wave.YZoomed = wave.XLimitOn = true;
        wave.Dots = 0;
        RepaintAnalog(0, true);
        EXPECT_TRUE(Find(ScreenColours.Curve, {}).empty() && !Find(ScreenColours.Grid, {}).empty());
        wave.Dots = 1000;
        SelectDots(wave, 600, 700);
        wave.ViewStart = wave.ViewEnd = 500;
        RepaintAnalog(0, true);
        EXPECT_TRUE(Find(ScreenColours.Curve, {}).empty());
        wave.ViewEnd = 900;
        for (Surface* layer : {&wave.BackSurface, &wave.PlotSurface, &wave.WaveSurface})
            layer->Free();
        RepaintAnalog(0, true);
        EXPECT_TRUE(wave.PlotSurface.IsNull());
    }
}

}  // namespace
