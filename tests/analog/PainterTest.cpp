#include "analog/DrawAnalogWave.h"

#include "analog/AnalogFixture.h"

namespace {

using Pixels = std::vector<Colour>;

class PainterTest : public AnalogFixture {
protected:
    static constexpr std::int32_t Width = 200, Height = 101;  // amplitude 0 stands on row 50

    // A document whose plot is Width by Height.
    static AnalogWaveRecord& MakePlot(std::int32_t maxDots, std::int32_t dots) {
        AnalogWaveRecord& wave = MakeDocument("", 0, maxDots);
        if (dots > 0) AppendSegment(wave, WaveSegment{.DotCount = dots}, 0);
        wave.Dots = dots;
        LayoutAnalogSurfaces(wave, Width + WaveMarginWidth, Height + WaveMarginHeight, 1.0);
        return wave;
    }
    static Pixels Shown(const Surface& plot) {
        Pixels pixels;
        for (std::int32_t y = 0; y < plot.Height(); ++y)
            for (std::int32_t x = 0; x < plot.Width(); ++x) pixels.push_back(plot.Pixel(x, y));
        return pixels;
    }
    static std::vector<std::int32_t> ColumnsOf(const Surface& plot, std::int32_t y, Colour colour) {
        std::vector<std::int32_t> columns;
        for (std::int32_t x = 0; x < plot.Width(); ++x)
            if (plot.Pixel(x, y) == colour) columns.push_back(x);
        return columns;
    }
    static std::int64_t CountOf(const Surface& plot, Colour colour) {
        const Pixels pixels = Shown(plot);
        return std::count(pixels.begin(), pixels.end(), colour);
    }
};

TEST_F(PainterTest, SpansAreDividedByTheirRow) {
    const struct {
        std::int32_t span, count, step;
        bool exact;
    } rows[] = {{0, 0, 0, true},       {1, 1, 1, true},
                {10, 10, 1, true},     {11, 0, 10, false},
                {14, 0, 10, false},    {15, 1, 10, false},
                {20, 2, 10, true},     {94, 8, 10, false},
                {95, 9, 10, false},    {99, 9, 10, false},
                {100, 10, 10, true},   {101, 9, 10, false},
                {105, 9, 11, false},   {990, 10, 99, true},
                {999, 9, 100, false},  {1000, 10, 100, true},
                {1001, 10, 100, true}, {1016, 10, 102, true},
                {4095, 10, 410, true}, {1048575, 10, 104858, true}};
    for (const auto& row : rows) {
        const GridDivision division = DivideSpan(row.span);
        EXPECT_EQ(division.Count, row.count) << row.span;
        EXPECT_EQ(division.Step, row.step) << row.span;
        EXPECT_EQ(division.Exact, row.exact) << row.span;
    }
}

// Dots map by the width, amplitudes by the height less one.
TEST_F(PainterTest, PixelsOfDotsAndAmplitudes) {
    const WaveView view = {100, 300, 0.5, -0.5};
    EXPECT_EQ(DotToPixel(100, view, 400), 0.0);
    EXPECT_EQ(DotToPixel(300, view, 400), 400.0);
    EXPECT_EQ(DotToPixel(90, view, 400), -20.0);
    EXPECT_EQ(ValueToPixel(0.5, view, 101), 0.0);
    EXPECT_EQ(ValueToPixel(-0.5, view, 101), 100.0);
    EXPECT_EQ(ValueToPixel(1.0, view, 101), -50.0);
    EXPECT_EQ(PixelToDot(399, view, 400), 300);  // 299.5, ties to even
    EXPECT_EQ(PixelToDot(397, view, 400), 298);
    EXPECT_EQ(PixelToDot(400, view, 400), 300);
    EXPECT_EQ(PixelToValue(100, view, 101), -0.5);
    EXPECT_EQ(PixelToValue(25, view, 101), 0.25);
}

TEST_F(PainterTest, SpikeOfOneDotIsSeenAtFullWidth) {
    constexpr std::int32_t dots = 1048576;
    for (const std::int32_t at : {0, 1, 2621, 524288, 777777, dots - 2, dots - 1}) {
        AnalogWaveRecord& wave = MakePlot(dots, dots);
        wave.DotArray[at].Y = 1.0;
        RepaintAnalog(0, true);
        const auto columns = ColumnsOf(wave.PlotSurface, 0, ScreenColours.Curve);
        ASSERT_FALSE(columns.empty()) << at;
        const auto expected =
            std::min<std::int64_t>(std::llround(double(at) / (dots - 1) * Width), Width - 1);
        EXPECT_LE(std::abs(columns.front() - expected), 1) << at;
        EXPECT_LE(columns.size(), 2U) << at;  // there, and on the line to the next dot
        EXPECT_NE(wave.PlotSurface.Pixel(columns.front(), 25), ScreenColours.Back) << at;
    }
}

TEST_F(PainterTest, FlatLineCoversItsRow) {
    for (const std::int32_t dots : {2, 150, 201, 5000}) {
        AnalogWaveRecord& wave = MakePlot(dots, dots);
        wave.GridOn = wave.SegmentMarkOn = false;
        RepaintAnalog(0, true);
        for (std::int32_t x = 1; x < Width; ++x) {
            ASSERT_EQ(wave.PlotSurface.Pixel(x, 50), ScreenColours.Curve) << dots << ", " << x;
            ASSERT_EQ(wave.PlotSurface.Pixel(x, 47), ScreenColours.Back) << dots << ", " << x;
            ASSERT_EQ(wave.PlotSurface.Pixel(x, 53), ScreenColours.Back) << dots << ", " << x;
        }
    }
}

TEST_F(PainterTest, EdgeOfASquareIsOneColumn) {
    AnalogWaveRecord& wave = MakePlot(2001, 2001);  // ten dots a column
    wave.GridOn = wave.SegmentMarkOn = false;
    for (const std::int32_t edge : {1001, 1004, 1005, 1006, 1009}) {
        for (std::int32_t i = 0; i < wave.Dots; ++i) wave.DotArray[i].Y = i < edge ? 0.8 : -0.8;
        RepaintAnalog(0, true);
        const auto columns = ColumnsOf(wave.PlotSurface, 50, ScreenColours.Curve);
        ASSERT_EQ(columns.size(), 1U) << edge;
        EXPECT_EQ(columns[0], std::lround(edge / 10.0)) << edge;
        EXPECT_EQ(wave.PlotSurface.Pixel(columns[0] - 1, 10), ScreenColours.Curve) << edge;
        EXPECT_EQ(wave.PlotSurface.Pixel(columns[0] + 1, 90), ScreenColours.Curve) << edge;
        EXPECT_EQ(wave.PlotSurface.Pixel(columns[0] + 1, 10), ScreenColours.Back) << edge;
    }
}

TEST_F(PainterTest, PointsModeSetsExactlyThePixelsOfTheDots) {
    AnalogWaveRecord& wave = MakePlot(5, 5);  // a dot every fifty columns
    const double values[] = {1.0, 0.5, 0.0, -0.5, -1.0};
    for (std::int32_t i = 0; i < 5; ++i) wave.DotArray[i].Y = values[i];
    wave.DotLinkOn = wave.SegmentMarkOn = false;
    RepaintAnalog(0, true);
    const PixelPoint dots[] = {{0, 0}, {50, 25}, {100, 50}, {150, 75}, {Width - 1, 100}};
    for (const PixelPoint& dot : dots)
        EXPECT_EQ(wave.PlotSurface.Pixel(dot.X, dot.Y), ScreenColours.Curve) << dot.X;
    EXPECT_EQ(CountOf(wave.PlotSurface, ScreenColours.Curve), 5);
}

TEST_F(PainterTest, EmptyDocumentHasAGridAndNoCurve) {
    AnalogWaveRecord& wave = MakePlot(1000, 0);
    RepaintAnalog(0, true);
    EXPECT_EQ(CountOf(wave.PlotSurface, ScreenColours.Curve), 0);
    EXPECT_GT(CountOf(wave.PlotSurface, ScreenColours.Grid), 0);
    EXPECT_GT(CountOf(wave.BackSurface, ScreenColours.Label), 0);
}

TEST_F(PainterTest, SelectionBarUndoesItself) {
    AnalogWaveRecord& wave = MakePlot(1000, 1000);
    RepaintAnalog(0, true);
    const Pixels plain = Shown(wave.PlotSurface);
    SelectDots(wave, 200, 400);
    RepaintAnalog(0, false);
    Surface& plot = wave.PlotSurface;
    for (const auto& [x, changed] : {std::pair{39, false}, {40, true}, {80, true}, {81, false}})
        EXPECT_EQ(plot.Pixel(x, 10) != plain[10 * Width + x], changed) << x;
    EXPECT_EQ(plot.Pixel(50, 10), ~(ScreenColours.Back ^ SelectionColour) & 0xFFFFFF);
    plot.SetMode(DrawMode::NotXor);
    plot.FillBox(wave.SelPixelLeft, 0, wave.SelPixelRight, Height - 1, SelectionColour);
    EXPECT_EQ(Shown(plot), plain);
}

// 0..999 on 200 columns: a column is five dots.
TEST_F(PainterTest, SelectionBarMovesByMoreThanOnePixelOnly) {
    AnalogWaveRecord& wave = MakePlot(1001, 1001);
    const struct {
        std::int32_t first, last, left, right;
    } rows[] = {{200, 400, 40, 80}, {205, 395, 40, 80}, {195, 405, 40, 80},
                {210, 390, 42, 78}, {200, 405, 40, 81}, {200, 399, 40, 81}};
    SelectDots(wave, 200, 400);
    for (const auto& row : rows) {
        wave.SelStart = row.first;
        wave.SelEnd = row.last;
        RepaintAnalog(0, false);
        EXPECT_EQ(wave.SelPixelLeft, row.left) << row.first;
        EXPECT_EQ(wave.SelPixelRight, row.right) << row.last;
    }
}

// Both edges of the bar lie far outside the plot, at a large zoom further apart than 32 bits count.
TEST_F(PainterTest, SelectionAroundANarrowViewCoversThePlot) {
    AnalogWaveRecord& wave = MakePlot(1048576, 1048576);
    LayoutAnalogSurfaces(wave, 4000 + WaveMarginWidth, Height + WaveMarginHeight, 1.0);
    wave.ViewStart = 524288;
    wave.ViewEnd = 524289;
    RepaintAnalog(0, true);
    const Colour before = wave.PlotSurface.Pixel(2003, 20);
    SelectAllAnalog();
    EXPECT_NE(wave.PlotSurface.Pixel(2003, 20), before);
}

TEST_F(PainterTest, LimitLinesFormARectangle) {
    for (const auto& [across, down] : {std::pair{true, false}, {false, true}, {true, true}}) {
        AnalogWaveRecord& wave = MakePlot(1000, 0);
        wave.XLimitLeft = 40.0F;
        wave.XLimitRight = 160.0F;
        wave.YLimitTop = 20.0F;
        wave.YLimitBottom = 80.0F;
        wave.XLimitOn = across;
        wave.YLimitOn = down;
        RepaintAnalog(0, true);
        const auto seen = [&](std::int32_t left, std::int32_t top, std::int32_t right,
                              std::int32_t bottom) {
            for (std::int32_t y = top; y <= bottom; ++y)
                for (std::int32_t x = left; x <= right; ++x)
                    if (wave.PlotSurface.Pixel(x, y) == ScreenColours.Limit) return true;
            return false;
        };
        SCOPED_TRACE(::testing::Message() << "x " << across << ", y " << down);
        const bool above = !down, beside = !across;  // a pair alone runs over the whole plot
        EXPECT_EQ(seen(0, 0, Width - 1, 19), above);
        EXPECT_EQ(seen(0, 81, Width - 1, Height - 1), above);
        EXPECT_EQ(seen(0, 0, 39, Height - 1), beside);
        EXPECT_EQ(seen(161, 0, Width - 1, Height - 1), beside);
        for (const std::int32_t column : {40, 160}) EXPECT_EQ(seen(column, 40, column, 60), across);
        for (const std::int32_t row : {20, 80}) EXPECT_EQ(seen(90, row, 110, row), down);
    }
}

TEST_F(PainterTest, SurfaceOrViewWithoutSizeIsHarmless) {
    AnalogWaveRecord& wave = MakePlot(1000, 1000);
    wave.XLimitOn = wave.YLimitOn = true;
    wave.XZoomed = wave.YZoomed = true;
    SelectDots(wave, 10, 20);
    FreeAnalogSurfaces(wave);
    EXPECT_FALSE(wave.PlotSurface.Create(0, 10));
    for (const bool linked : {true, false}) {
        wave.DotLinkOn = linked;
        RepaintAnalog(0, true);
        EXPECT_TRUE(wave.PlotSurface.IsNull());
    }
    LayoutAnalogSurfaces(wave, Width + WaveMarginWidth, Height + WaveMarginHeight, 1.0);
    wave.ViewStart = wave.ViewEnd = 500;
    for (const bool linked : {true, false}) {
        wave.DotLinkOn = linked;
        RepaintAnalog(0, true);
        EXPECT_EQ(CountOf(wave.PlotSurface, ScreenColours.Curve), 0);
    }
    EXPECT_EQ(DotToPixel(500, ViewOf(wave), Width), 0.0);
    RepaintAnalog(-1, true);
    RepaintAnalog(11, true);
}

}  // namespace
