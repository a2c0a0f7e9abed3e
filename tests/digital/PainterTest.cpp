#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace {

constexpr std::int32_t Width = 600, Height = 90;

// Slot 0 with a bus of `width` channels whose first samples are given; the rest is 0.
DigitDocument& Open(std::uint8_t width, std::vector<std::int32_t> samples, std::int32_t dots,
                    double zoom = 1.0, double scale = 1.0, std::int32_t firstDot = 0) {
    DigitDocument& document = DigitAt(0);
    document = DigitDocument();
    document.Dots = dots;
    document.Zoom = zoom;
    document.FirstDot = firstDot;
    AppendNode(document, {.Name = "n", .Width = width});
    document.DigitSamples = std::move(samples);
    document.SampleCount = static_cast<std::int32_t>(document.DigitSamples.size());
    document.Nodes[0].DataLength = document.SampleCount;
    RenumberRows(document);
    LayoutDigitSurfaces(document,
                        {.ListWidth = 120, .PictureWidth = Width, .PictureHeight = Height}, scale);
    Paint(0, true, true);
    return document;
}

std::vector<Colour> Repaint(Flag picture) {
    Paint(0, false, picture);
    const Surface& surface = picture ? DigitAt(0).StaticSurface : DigitAt(0).ShownSurface;
    std::vector<Colour> pixels(std::size_t(surface.Height()) * surface.Width());
    for (std::int32_t i = 0; i < std::ssize(pixels); ++i)
        pixels[i] = surface.Pixel(i % surface.Width(), i / surface.Width());
    return pixels;
}

// A row of 30 begins below the ruler of 32; levels keep 6 away from its ends, the separator is 1.
TEST(DigitPainter, EdgesAndLevelsAreCrisp) {
    const std::tuple<double, std::int32_t, std::int32_t, std::int32_t, std::int32_t> rows[] = {
        {1.0, 60, 1, 38, 54}, {1.25, 75, 1, 48, 68}, {1.5, 90, 1, 57, 82}, {2.0, 120, 2, 76, 109}};
    for (const auto& [scale, edge, pen, high, low] : rows) {
        const DigitDocument& document = Open(1, {0, 1}, 50, 1.0, scale);
        const Surface& picture = document.StaticSurface;
        const Colour line = GroupColour(document, 0);
        for (std::int32_t x = edge - 3; x < edge + 6; ++x)
            EXPECT_EQ(picture.Pixel(x, (high + low) / 2) == line, x >= edge && x < edge + pen) << x;
        for (std::int32_t y = high - 3; y < low + 6; ++y)
            EXPECT_EQ(picture.Pixel(edge + 9, y) == line, y >= high && y < high + pen) << y;
        EXPECT_EQ(picture.Pixel(edge - 9, low + pen), DigitScreenColours.Back) << scale;
        EXPECT_NE(picture.Pixel(edge - 9, low + pen - 1), DigitScreenColours.Back) << scale;
    }
}

// Rise and fall fall into the columns of the dot and of the next one.
TEST(DigitPainter, PulseOfOneDotIsAStroke) {
    for (const double zoom : {128.0, 4096.0})
        for (const std::int32_t dot : {1, 700, 1137}) {
            std::vector<std::int32_t> samples(1200);
            samples[dot] = 1;
            const DigitDocument& document = Open(1, samples, 90000, zoom);
            for (std::int32_t x = 0; x < Width; ++x)
                EXPECT_EQ(document.StaticSurface.Pixel(x, 45) == GroupColour(document, 0),
                          PixelToDot(document, x) <= dot + 1 && dot < PixelToDot(document, x + 1))
                    << zoom << " at " << x;
        }
}

// Zoomed in, a column that begins exactly with a dot belongs to it.
TEST(DigitPainter, SelectionCoversTheColumnsOfItsDots) {
    for (const double scale : {1.0, 1.5, 2.0})
        for (const double zoom : {0.125, 1.0, 64.0, 128.0, 4096.0}) {
            const auto page = static_cast<std::int32_t>(Width / 60.0 * zoom);
            DigitDocument& document = Open(1, {}, 900000, zoom, scale, 7);
            document.Nodes[0].WaveSelected = true;
            const std::int32_t start = document.Nodes[0].SelectStart = 7 + page / 5;
            const std::int32_t end = document.Nodes[0].SelectEnd = 7 + page / 3;
            const auto dotAt = [&](std::int32_t column) {
                const double dot = column / scale / 60 * zoom;
                const std::int32_t mapped = PixelToDot(document, column / scale);
                return zoom / 60 < scale && dot == std::floor(dot) ? 7 + RoundToInt(dot) : mapped;
            };
            const std::int32_t y = RoundToInt(34 * scale);
            std::vector<Colour> plain(document.StaticSurface.Width());
            for (std::int32_t x = 0; x < std::ssize(plain); ++x)
                plain[x] = document.StaticSurface.Pixel(x, y);
            Paint(0, false, true);
            for (std::int32_t x = 1; x < Width * scale; ++x)
                EXPECT_EQ(document.StaticSurface.Pixel(x, y) != plain[x],
                          dotAt(x) <= end && std::max(dotAt(x), dotAt(x + 1) - 1) >= start)
                    << zoom << " at " << x;
            EXPECT_FLOAT_EQ(document.Nodes[0].SelectLeft, float((start - 7) * 60 / zoom));
            EXPECT_FLOAT_EQ(document.Nodes[0].SelectRight, float((end - 6) * 60 / zoom));
        }
}

TEST(DigitPainter, CellsOfABusMeetWhereItChanges) {
    const DigitDocument& document = Open(2, {1, 1, 3, 3, 3, 0, 0, 0, 0, 0}, 50);
    for (std::int32_t x = 10; x < 550; ++x) {  // slanted ends are four columns wide
        const bool meets = std::abs(x - 119.5) < 4 || std::abs(x - 299.5) < 4;
        EXPECT_EQ(document.StaticSurface.Pixel(x, 38) != GroupColour(document, 0), meets) << x;
    }
}

// Neither dots outside of the page nor bits behind a node's data are seen.
TEST(DigitPainter, OnlyDotsOfThePageCount) {
    for (const double zoom : {1.0, 64.0, 4096.0})
        for (const std::uint8_t width : {std::uint8_t{1}, std::uint8_t{3}}) {
            const std::int32_t first = 101;
            DigitDocument& document = Open(width, std::vector(50000, 5), 60000, zoom, 1.0, first);
            const bool ends = width == 1;  // the node ends inside the page
            const std::int32_t length =
                ends ? first + 3 + static_cast<std::int32_t>(2 * zoom) : document.LastDot + 1;
            if (ends) document.Nodes[0].DataLength = length;
            const auto expected = Repaint(true);
            for (std::int32_t dot = 0; dot < 50000; ++dot)
                if (dot < first || dot >= length) document.DigitSamples[dot] = dot % 3 * 5;
            EXPECT_TRUE(Repaint(true) == expected) << zoom;
            document.DigitSamples[first + static_cast<std::int32_t>(zoom)] = 0;
            EXPECT_FALSE(Repaint(true) == expected) << zoom;
        }
    const DigitDocument& document = Open(1, {1, 1, 1, 1, 1}, 5);
    for (std::int32_t x = 300; x < Width; ++x)  // in the rows of levels; lines go on
        for (const std::int32_t y : {10, 38, 45, 54})
            EXPECT_EQ(document.StaticSurface.Pixel(x, y), DigitScreenColours.Outside) << x;
}

TEST(DigitPainter, MovingCaliperLeavesThePicture) {
    DigitDocument& document = Open(1, {0, 1, 0, 1}, 50);
    document.CaliperPixel = 100;
    const auto before = Repaint(false);
    document.DigitSamples.assign(4, 0);  // not looked at until the next full repaint
    document.CaliperPixel = 333;
    document.SelectDrag = true;
    document.SelectEndDot = 3;
    const auto between = Repaint(false);
    EXPECT_EQ(document.ShownSurface.Pixel(333, 100), DigitScreenColours.Caliper);
    EXPECT_EQ(document.ShownSurface.Pixel(239, 45), DigitScreenColours.RubberBand);
    document.SelectDrag = false;
    document.CaliperPixel = 100;
    EXPECT_TRUE(Repaint(false) == before && between != before);
}

}  // namespace
