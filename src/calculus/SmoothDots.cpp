#include "calculus/SmoothDots.h"

#include "frame/Narrow.h"

#include <algorithm>
#include <array>

// A running sum: the dot that enters the window is added, the one that leaves is taken off. One
// sum alone would wait for each of its additions, so the run is cut into four lanes that are walked
// side by side, dot i of each at the same time:
//
//   lane 0            lane 1            lane 2            lane 3
//   |--x--------------|--x--------------|--x--------------|--x-----------|
//
// Dots are written behind the window's right edge, so what enters is still there, but what leaves
// is not: the last entered values stand in a ring. The first dots of a lane are written before the
// lane in front of it has come to its end; they are kept as its tail. Sums start anew every
// RestartDots dots, so that their rounding errors cannot pile up.

namespace {

constexpr std::int32_t Lanes = 4;
constexpr std::int32_t RingDots = 128;  // a power of two, more than a window
constexpr std::int32_t RestartDots = 2048;
constexpr std::int32_t LeastLane = 64;  // more than half a window
static_assert(LongestSmooth < RingDots && LongestSmooth / 2 < LeastLane);

using LaneValues = std::array<double, Lanes>;

struct Average {
    std::span<WaveDot> Dots;
    std::int32_t Half;  // dots of the window on either side
    std::int32_t Lane;  // dots of a lane
    double Scale;
    LaneValues Sums;                        // of the window but its last dot
    std::array<LaneValues, RingDots> Ring;  // entered values
    // What follows the end of each lane.
    std::array<std::array<double, LeastLane>, Lanes> Tails;
};

std::int32_t CountOf(const Average& average) {
    return Narrow<std::int32_t>(std::ssize(average.Dots));
}

LaneValues& RingAt(Average& average, std::int32_t i) {
    return average.Ring[static_cast<std::uint32_t>(i) % RingDots];
}

double ValueAt(const Average& average, std::int32_t dot) {
    return dot >= 0 && dot < CountOf(average) ? average.Dots[dot].Y : 0.0;
}

void BeginLanes(Average& average) {
    for (std::int32_t lane = 0; lane < Lanes; ++lane) {
        const std::int32_t start = lane * average.Lane;
        for (std::int32_t i = -average.Half; i < average.Half; ++i)
            RingAt(average, i)[lane] = ValueAt(average, start + i);
        for (std::int32_t i = 0; i < average.Half; ++i)
            average.Tails[lane][i] = ValueAt(average, start + average.Lane + i);
    }
}

void RestartSums(Average& average, std::int32_t i) {
    average.Sums = {};
    for (std::int32_t k = i - average.Half; k < i + average.Half; ++k)
        for (std::int32_t lane = 0; lane < Lanes; ++lane)
            average.Sums[lane] += RingAt(average, k)[lane];
}

// Dots first..end-1 of every lane. Inside, the windows of all lanes end before their lanes do.
template <bool Inside>
void WalkLanes(Average& average, std::int32_t first, std::int32_t end) {
    const std::int32_t count = CountOf(average), half = average.Half, length = average.Lane;
    const double scale = average.Scale;
    WaveDot* const dots = average.Dots.data();
    LaneValues sums = average.Sums;
    for (std::int32_t i = first; i < end; ++i) {
        LaneValues entering;
        for (std::int32_t lane = 0; lane < Lanes; ++lane) {
            const std::int32_t at = i + half, dot = lane * length + at;
            if (Inside)
                entering[lane] = dots[dot].Y;
            else
                entering[lane] =
                    at < length ? ValueAt(average, dot) : average.Tails[lane][at - length];
        }
        LaneValues means;
        for (std::int32_t lane = 0; lane < Lanes; ++lane)
            means[lane] = std::min(std::max((sums[lane] + entering[lane]) * scale, -1.0), 1.0);
        RingAt(average, i + half) = entering;
        const LaneValues& leaving = RingAt(average, i - half);
        for (std::int32_t lane = 0; lane < Lanes; ++lane)
            sums[lane] += entering[lane] - leaving[lane];
        for (std::int32_t lane = 0; lane < Lanes; ++lane) {
            const std::int32_t dot = lane * length + i;
            if (Inside || dot < count) dots[dot].Y = means[lane];
        }
    }
    average.Sums = sums;
}

}  // namespace

void SmoothDots(std::span<WaveDot> dots, std::int32_t smoothDot) {
    const auto count = Narrow<std::int32_t>(std::ssize(dots));
    const std::int32_t lane = std::max((count + Lanes - 1) / Lanes, LeastLane);
    Average average{dots, smoothDot / 2, lane, 1.0 / smoothDot, {}, {}, {}};
    BeginLanes(average);
    const std::int32_t inside = std::max(count - (Lanes - 1) * lane - average.Half, 0);
    for (std::int32_t first = 0; first < lane; first += RestartDots) {
        const std::int32_t end = std::min(first + RestartDots, lane);
        RestartSums(average, first);
        WalkLanes<true>(average, first, std::min(end, inside));
        WalkLanes<false>(average, std::max(first, std::min(end, inside)), end);
    }
}
