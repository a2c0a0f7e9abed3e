#include "kernel/wavecalc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

// The passes over the dots behind every repaint.
// MaxMin looks for values alone, block by block with independent running extremes, which keeps the
// processor's adders busy; only the block that won is read again for the position.
// PlotWaveDot walks column by column and remembers for each row the last column that marked it:
// dots come in rising order, so this finds every duplicate and nothing is cleared between columns.

namespace {

constexpr std::int32_t BlockDots = 128;
constexpr std::int32_t Lanes = 4;

struct Extremes {
    double Max = -std::numeric_limits<double>::infinity();
    double Min = std::numeric_limits<double>::infinity();
};

// Comparisons with a value that is not a number are false, so such dots never win.
void Widen(Extremes& extremes, double max, double min) {
    extremes.Max = max > extremes.Max ? max : extremes.Max;
    extremes.Min = min < extremes.Min ? min : extremes.Min;
}

Extremes ScanBlock(const WaveDot* dots, std::int32_t count) {
    Extremes lanes[Lanes];
    std::int32_t i = 0;
    for (; i + Lanes <= count; i += Lanes)
        for (std::int32_t lane = 0; lane < Lanes; ++lane)
            Widen(lanes[lane], dots[i + lane].Y, dots[i + lane].Y);
    for (; i < count; ++i) Widen(lanes[0], dots[i].Y, dots[i].Y);
    for (std::int32_t lane = 1; lane < Lanes; ++lane)
        Widen(lanes[0], lanes[lane].Max, lanes[lane].Min);
    return lanes[0];
}

struct Found {
    std::int32_t Pos = 0;
    double Y = 0.0;
};

// First dot from `start` on, within one block, whose Y is `wanted`.
Found FindInBlock(const WaveDot* dots, std::int32_t start, std::int32_t count, double wanted) {
    const std::int32_t length = std::min(BlockDots, count - start);
    for (std::int32_t i = start; i < start + length; ++i)
        if (dots[i].Y == wanted) return {i, dots[i].Y};
    return {};
}

// Nearest whole number, ties to even, without a call: 1.5 * 2^52 leaves no room for a fraction.
// Values too large for the trick stay large.
double RoundToEven(double value) {
    constexpr double Shift = 0x1.8p52;
    return value + Shift - Shift;
}

struct HorizontalView {
    std::int32_t Start, End, Width;
};

// Column of a dot, below 0 or past the last one outside the area.
double ColumnOfDot(const HorizontalView& view, std::int64_t dot) {
    const double span = static_cast<double>(view.End) - view.Start;
    const auto fromStart = static_cast<double>(dot - view.Start);
    const double column = RoundToEven(fromStart / span * view.Width);
    // The last half column of the view rounds up to the border; it belongs to the last column.
    return dot <= view.End && column == view.Width ? view.Width - 1 : column;
}

// End, at most `end`, of the dots from `dot` on that stand in its column. The estimate is right to
// a dot or two: if it is late the column's own rounding takes it back, if early the rest of the
// column follows as a run of its own.
std::int64_t EndOfColumn(const HorizontalView& view, std::int64_t dot, std::int64_t end,
                         double column) {
    const double span = static_cast<double>(view.End) - view.Start;
    const double estimate = view.Start + (column + 0.5) * span / view.Width;
    const double held =
        std::clamp(estimate, static_cast<double>(dot + 1), static_cast<double>(end));
    auto next = static_cast<std::int64_t>(held);
    while (next > dot + 1 && ColumnOfDot(view, next - 1) != column) --next;
    return next;
}

}  // namespace

void MaxMin(const WaveDot* Dots, int32_t /*First*/, int32_t Count, int32_t* MaxPos, int32_t* MinPos,
            double* MaxY, double* MinY) {
    Found max, min;
    if (Dots && Count > 0) {
        Extremes best;
        std::int32_t maxBlock = 0, minBlock = 0;
        for (std::int32_t start = 0;; start += BlockDots) {
            const Extremes block = ScanBlock(Dots + start, std::min(BlockDots, Count - start));
            if (block.Max > best.Max) maxBlock = start;
            if (block.Min < best.Min) minBlock = start;
            Widen(best, block.Max, block.Min);
            if (Count - start <= BlockDots) break;
        }
        max = FindInBlock(Dots, maxBlock, Count, best.Max);
        min = FindInBlock(Dots, minBlock, Count, best.Min);
    }
    if (MaxPos) *MaxPos = max.Pos;
    if (MinPos) *MinPos = min.Pos;
    if (MaxY) *MaxY = max.Y;
    if (MinY) *MinY = min.Y;
}

int32_t PlotWaveDot(const WaveDot* Dots, int32_t* Pixels, int32_t First, int32_t Last,
                    int32_t Width, int32_t Height, double ViewTop, double ViewBottom,
                    int32_t ViewStart, int32_t ViewEnd) {
    if (!Dots || !Pixels || Width < 1 || Height < 1 || ViewEnd <= ViewStart) return 0;
    if (ViewTop == ViewBottom || !std::isfinite(ViewTop) || !std::isfinite(ViewBottom)) return 0;
    const auto rowCount = static_cast<std::size_t>(Height);
    const std::unique_ptr<std::int32_t[]> marked(new (std::nothrow) std::int32_t[rowCount]);
    if (!marked) return 0;
    std::fill_n(marked.get(), rowCount, -1);

    const HorizontalView view{ViewStart, ViewEnd, Width};
    const double span = ViewTop - ViewBottom;
    const double lastRow = Height - 1;
    const std::int64_t end = static_cast<std::int64_t>(std::min(Last, ViewEnd)) + 1;
    const std::int64_t area = static_cast<std::int64_t>(Width) * Height;
    std::int64_t pairs = 0;
    for (std::int64_t dot = std::max(First, 0); dot < end && pairs < area;) {
        const double column = ColumnOfDot(view, dot);
        const std::int64_t columnEnd = EndOfColumn(view, dot, end, column);
        if (!(column >= 0 && column < Width)) {
            dot = columnEnd;
            continue;
        }
        const auto x = static_cast<std::int32_t>(column);
        for (; dot < columnEnd && pairs < area; ++dot) {
            const double y = RoundToEven((ViewTop - Dots[dot].Y) / span * lastRow);
            if (!(y >= 0 && y <= lastRow)) continue;
            // Written always and kept if new: whether a noisy dot is new cannot be predicted.
            const auto row = static_cast<std::int32_t>(y);
            Pixels[2 * pairs] = x;
            Pixels[2 * pairs + 1] = row;
            pairs += marked[static_cast<std::size_t>(row)] != x;
            marked[static_cast<std::size_t>(row)] = x;
        }
    }
    return static_cast<std::int32_t>(pairs);
}
