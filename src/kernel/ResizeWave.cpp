#include "kernel/wavecalc.h"

#include <algorithm>
#include <cstdint>

// Both ways walk the source once. Places between source dots are counted, not summed: a place is a
// whole dot and a rest in units of a new dot's step, so that a new dot that falls on a source dot
// is known to, and the last one of a long run is as exact as the first.

namespace {

struct Run {
    WaveDot* Target;
    const WaveDot* Source;
    std::int64_t Sources, Targets;  // dots
    double Start, Scale;            // X of the first new dot; factor of each Y
};

void PutDot(const Run& run, std::int64_t i, double y) {
    run.Target[i] = {run.Start + static_cast<double>(i), y * run.Scale};
}

// Slopes, in Y per source dot, of the monotone cubic interpolant of F. N. Fritsch and J. Butland,
// "A method for constructing local monotone piecewise cubic interpolants", SIAM J. Sci. Stat.
// Comput. 5 (1984): for evenly spaced dots the harmonic mean of the steps on either side, and 0 at
// a peak. At the ends the parabola's slope through three dots, held to 0 .. 3 times the end's step,
// the bounds of monotonicity of F. N. Fritsch and R. E. Carlson, SIAM J. Numer. Anal. 17 (1980).
double InnerSlope(double before, double behind) {
    const double product = before * behind;
    return product > 0.0 ? 2.0 * product / (before + behind) : 0.0;
}

double EndSlope(double step, double nextStep) {
    const double slope = 1.5 * step - 0.5 * nextStep;
    return std::clamp(slope, std::min(0.0, 3.0 * step), std::max(0.0, 3.0 * step));
}

// New dot k stands at k * (Sources - 1) / (Targets - 1) of the source.
void Grow(const Run& run) {
    const WaveDot* dots = run.Source;
    const std::int64_t cells = run.Sources - 1, unit = run.Targets - 1;
    const double perUnit = 1.0 / static_cast<double>(unit);
    double step = dots[1].Y - dots[0].Y;
    double slope = EndSlope(step, cells > 1 ? dots[2].Y - dots[1].Y : step);
    std::int64_t k = 0, rest = 0;
    for (std::int64_t cell = 0; cell < cells; ++cell) {
        const double from = dots[cell].Y, to = dots[cell + 1].Y;
        const double before = step;
        step = to - from;
        const double nextSlope = cell + 1 < cells ? InnerSlope(step, dots[cell + 2].Y - to)
                                                  : EndSlope(step, cells > 1 ? before : step);
        const double square = 3.0 * step - 2.0 * slope - nextSlope;
        const double cube = slope + nextSlope - 2.0 * step;
        const double low = std::min(from, to), high = std::max(from, to);
        if (rest == 0) {
            PutDot(run, k++, from);
            rest += cells;
        }
        for (; rest < unit; rest += cells) {
            const double t = static_cast<double>(rest) * perUnit;
            const double y = from + t * (slope + t * (square + t * cube));
            PutDot(run, k++, std::clamp(y, low, high));
        }
        rest -= unit;
        slope = nextSlope;
    }
    PutDot(run, k, dots[cells].Y);
}

// With source dot i filling the places i .. i + 1 and s = (Sources - 1) / (Targets - 1), the new
// dots are the averages over cells of width s around i * s + 1/2, the two outer ones cut to the
// source. The border behind new dot k is thus ((2 k + 1) s + 1) / 2. As s > 1, a cell ends in a
// later dot than it begins in. An average leaves the range of its dots by rounding only.
void Shrink(const Run& run) {
    const std::int64_t steps = run.Sources - 1, gaps = std::max<std::int64_t>(run.Targets - 1, 1);
    const std::int64_t unit = 2 * gaps;
    const double perUnit = 1.0 / static_cast<double>(unit);
    std::int64_t dot = 0, border = (steps + gaps) / unit, rest = (steps + gaps) % unit;
    double used = 0.0;  // part of `dot` that belongs to the cell before
    for (std::int64_t k = 0; k < run.Targets; ++k) {
        if (k == run.Targets - 1) border = run.Sources, rest = 0;
        const double part = static_cast<double>(rest) * perUnit;
        const double width = static_cast<double>(border - dot) + (part - used);
        double low = run.Source[dot].Y, high = low, sum = low * (1.0 - used);
        const auto add = [&](double y, double weight) {
            sum += y * weight;
            low = std::min(low, y);
            high = std::max(high, y);
        };
        while (++dot < border) add(run.Source[dot].Y, 1.0);
        if (rest > 0) add(run.Source[border].Y, part);
        PutDot(run, k, std::clamp(sum / width, low, high));

        used = part;
        border += steps / gaps;
        rest += 2 * (steps % gaps);
        if (rest >= unit) {
            rest -= unit;
            ++border;
        }
    }
}

}  // namespace

void resizewv(WaveDot* Target, const WaveDot* Source, int32_t SourceCount, int32_t Delta,
              int32_t AmplPercent, int32_t SelStart) {
    const std::int64_t targets = static_cast<std::int64_t>(SourceCount) + Delta;
    if (!Target || !Source || SourceCount < 1 || targets < 1) return;
    const Run run{
        Target, Source, SourceCount, targets, static_cast<double>(SelStart), AmplPercent / 100.0};
    if (Delta < 0) {
        Shrink(run);
    } else if (Delta > 0 && SourceCount > 1) {
        Grow(run);
    } else {
        const std::int64_t last = SourceCount - 1;
        for (std::int64_t i = 0; i < targets; ++i) PutDot(run, i, Source[std::min(i, last)].Y);
    }
}
