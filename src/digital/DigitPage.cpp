#include "digital/DigitPage.h"

#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "frame/Narrow.h"

#include <algorithm>
#include <cmath>

namespace {

// Takes away what a scale such as 1.1 adds in the last place, so that a border on a column stays
// there.
constexpr double Slack = 1e-6;

std::int32_t DotUnder(const DigitDocument& document, const DigitPage& page, std::int32_t column) {
    return PixelToDot(document, column / page.Scale);
}

std::int32_t EndColumnOf(const DigitDocument& document, const DigitPage& page) {
    if (page.End <= page.First) return 0;
    if (page.End < document.Dots) return page.Width;
    const std::int32_t column = page.ByColumn ? ColumnOfDot(document, page, page.End - 1) + 1
                                              : ColumnOfDot(document, page, page.End);
    return std::clamp(column, 0, page.Width);
}

}  // namespace

std::int32_t PenOf(double scale) {
    return std::max(1, static_cast<std::int32_t>(scale));
}

std::int32_t QuietPenOf(const DigitDocument& document, double scale) {
    return document.PrintMode ? PenOf(scale) : 1;
}

Colour MixColours(Colour ground, Colour over, double share) {
    Colour mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double low = ground >> shift & 0xFFU, high = over >> shift & 0xFFU;
        mixed |= static_cast<Colour>(RoundToInt(low + (high - low) * share)) << shift;
    }
    return mixed;
}

DigitPage PageOf(const DigitDocument& document) {
    const Surface& surface = document.StaticSurface;
    const double scale = surface.Scale();
    DigitPage page{};
    page.Scale = scale;
    page.Width = surface.Width();
    page.Height = surface.Height();
    page.Top = Scaled(RulerHeight, scale);
    page.ColumnDots = document.Zoom / (DotWidth * scale);
    page.ByColumn = page.ColumnDots >= 1.0;
    page.First = document.FirstDot;
    page.End = std::max(page.First, std::min(document.LastDot, document.Dots - 1) + 1);
    page.EndColumn = EndColumnOf(document, page);
    return page;
}

std::int32_t FirstDotOf(const DigitDocument& document, const DigitPage& page, std::int32_t column) {
    return std::clamp(DotUnder(document, page, column), page.First, page.End);
}

std::int32_t ColumnOfDot(const DigitDocument& document, const DigitPage& page, std::int32_t dot) {
    if (!page.ByColumn)
        return RoundToInt(std::ceil(DotToPixel(document, dot) * page.Scale - Slack));
    // Near the guess lies the last column that begins at the dot or before.
    std::int32_t column = RoundToInt(std::floor((dot - page.First + 1) / page.ColumnDots));
    while (column > 0 && DotUnder(document, page, column) > dot) --column;
    while (DotUnder(document, page, column + 1) <= dot) ++column;
    return column;
}

ColumnSpan ColumnsOfSpan(const DigitDocument& document, const DigitPage& page, std::int32_t start,
                         std::int32_t end) {
    if (end < page.First || start >= page.End || end < start) return {0, -1};
    const std::int32_t left = start <= page.First ? 0 : ColumnOfDot(document, page, start);
    std::int32_t right = page.EndColumn - 1;
    if (end < page.End - 1)
        right = page.ByColumn ? ColumnOfDot(document, page, end)
                              : ColumnOfDot(document, page, end + 1) - 1;
    return {left, std::min(right, page.EndColumn - 1)};
}

ColumnSpan SelectedColumns(const DigitDocument& document, const DigitPage& page, std::int32_t row) {
    const DigitTarget target = TargetAtRow(document, row);
    if (target.Node < 0 || document.PrintMode) return {0, -1};
    const DigitNode& node = NodeAt(document, target.Node);
    if (node.WaveSelected || node.ListSelected)
        return ColumnsOfSpan(document, page, node.SelectStart, node.SelectEnd);
    if (target.Member < 0) return {0, -1};
    const auto k = static_cast<std::size_t>(target.Member);
    if (!node.MemberWaveSelected[k] && !node.MemberListSelected[k]) return {0, -1};
    return ColumnsOfSpan(document, page, node.MemberSelectStart[k], node.MemberSelectEnd[k]);
}

RowBox BoxOfRow(const DigitDocument& document, std::int32_t origin, double scale,
                std::int32_t row) {
    const std::int32_t place = row - document.FirstRow;
    return {origin + Scaled(place * RowHeight, scale),
            origin + Scaled((place + 1) * RowHeight, scale) - 1};
}

std::int32_t EndOfRows(const DigitDocument& document, std::int32_t origin, double scale,
                       std::int32_t height) {
    const double room = (height - origin) / (RowHeight * scale);
    const double fit = document.PrintMode ? std::floor(room) : std::ceil(room);
    const auto rows = Narrow<std::int32_t>(std::ssize(document.ListRows));
    return std::min(rows, document.FirstRow + RoundToInt(fit));
}
