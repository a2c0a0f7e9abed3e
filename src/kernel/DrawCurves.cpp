#include "kernel/wavecalc.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <numbers>

// Phases are counted, not summed. One period is Count * PhaseUnits places long, a dot is a step of
// Cycles * PhaseUnits places, and a degree is Count * 65536 places, so that every dot of a run with
// any phase stands on a whole place. A place fits 56 bits (Count < 2^31, PhaseUnits < 2^25), and
// place / period is rounded once: a dot that stands exactly on an edge, such as the end of the duty
// time, compares equal to it.

namespace {

constexpr std::int64_t UnitsPerDegree = 65536;
constexpr std::int64_t PhaseUnits = 360 * UnitsPerDegree;
constexpr double MaxDamp = 500.0;  // e^500 is still far from the largest double

// Increment and first state of SplitMix64. Its state after n outputs is seed + n * increment, so
// a call can claim its whole stretch of the sequence in one atomic step.
constexpr std::uint64_t NoiseIncrement = 0x9E3779B97F4A7C15;
std::atomic<std::uint64_t> noiseState{1};

struct Run {
    WaveDot* Dots;  // first dot of the run
    std::int32_t Start, Count, Cycles;
    double Half, Offset;  // Y = Offset + Half * shape
    std::int64_t FirstPlace;
};

double FiniteOrZero(float value) {
    return std::isfinite(value) ? static_cast<double>(value) : 0.0;
}

std::int64_t PlaceOfPhase(double degrees, std::int32_t count) {
    const double turn = std::fmod(degrees, 360.0);
    const auto units = static_cast<std::int64_t>(std::nearbyint(turn * UnitsPerDegree));
    return (units + PhaseUnits) % PhaseUnits * count;
}

// Writes the run; shape(p) is asked once a dot, in order, with p in [0, 1).
template <typename Shape>
void FillRun(const Run& run, Shape shape) {
    const std::int64_t period = run.Count * PhaseUnits;
    const std::int64_t step = run.Cycles * PhaseUnits % period;
    const auto length = static_cast<double>(period);
    const double start = run.Start, half = run.Half, offset = run.Offset;
    std::int64_t place = run.FirstPlace;
    for (std::int32_t k = 0; k < run.Count; ++k) {
        const double p = static_cast<double>(place) / length;
        run.Dots[k] = {start + k, offset + half * shape(p)};
        place += step;
        if (place >= period) place -= period;
    }
}

// The angle is brought to a quarter turn on either side of 0 first: half turns then give exactly 0
// where sin(2 pi p) of the rounded angle does not, and the sine of a small angle is quicker.
double Sine(double p) {
    const double turn = p <= 0.25 ? p : p <= 0.75 ? 0.5 - p : p - 1.0;
    return std::sin(2.0 * std::numbers::pi * turn);
}

void FillRamp(const Run& run, int symmetry) {
    const double top = std::clamp(symmetry, 0, 100) / 100.0;
    FillRun(run, [top](double p) {
        return p < top ? 2.0 * (p / top) - 1.0 : 1.0 - 2.0 * ((p - top) / (1.0 - top));
    });
}

void FillPulse(const Run& run, std::int32_t widthDots, std::int32_t slopeDots) {
    const auto fraction = [&run](std::int32_t dots) {
        const std::int64_t dotCycles = static_cast<std::int64_t>(std::max(dots, 0)) * run.Cycles;
        return static_cast<double>(dotCycles) / run.Count;
    };
    const double width = std::min(fraction(widthDots), 1.0);
    const double slope = std::min({fraction(slopeDots), width, 1.0 - width});
    FillRun(run, [width, slope](double p) {
        if (p < slope) return 2.0 * (p / slope) - 1.0;
        if (p < width) return 1.0;
        if (p < width + slope) return 1.0 - 2.0 * ((p - width) / slope);
        return -1.0;
    });
}

void FillExponential(const Run& run, double damp, double sign) {
    damp = std::clamp(damp, -MaxDamp, MaxDamp);
    if (damp == 0.0) {
        FillRun(run, [sign](double p) { return sign * (2.0 * p - 1.0); });
        return;
    }
    // expm1 keeps its digits where the exponent is small.
    const double end = std::expm1(damp);
    FillRun(run, [=](double p) { return sign * (2.0 * (std::expm1(damp * p) / end) - 1.0); });
}

void FillNoise(const Run& run) {
    std::uint64_t state =
        noiseState.fetch_add(NoiseIncrement * static_cast<std::uint64_t>(run.Count));
    FillRun(run, [&state](double) {
        state += NoiseIncrement;
        std::uint64_t bits = state;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        bits ^= bits >> 31;
        return static_cast<double>(bits >> 11) * 0x1p-52 - 1.0;
    });
}

void FillSinc(const Run& run, int overzero) {
    const double span = std::numbers::pi * (2 * std::max(overzero, 1) + 1);
    FillRun(run, [span](double p) {
        const double angle = (p - 0.5) * span;
        return angle == 0.0 ? 1.0 : std::sin(angle) / angle;
    });
}

}  // namespace

void drawcurves(WaveDot* Dots, int32_t Start, int32_t Count, int32_t Kind, float Amplitude,
                float Offset, int32_t Cycles, float Phase, int16_t Duty, int32_t PWidthDots,
                int32_t SlopeDots, int16_t Symmetry, int16_t Overzero, float Damp) {
    if (!Dots || Start < 0 || Count < 1) return;
    const Run run{Dots + Start,
                  Start,
                  Count,
                  std::max(Cycles, 1),
                  FiniteOrZero(Amplitude) / 2.0,
                  FiniteOrZero(Offset),
                  PlaceOfPhase(FiniteOrZero(Phase), Count)};
    const double high = std::clamp<int>(Duty, 0, 100) / 100.0;
    switch (Kind) {
        case 0:
            FillRun(run, Sine);
            break;
        case 1:
            FillRun(run, [high](double p) { return p < high ? 1.0 : -1.0; });
            break;
        case 2:
            FillRamp(run, Symmetry);
            break;
        case 3:
            FillPulse(run, PWidthDots, SlopeDots);
            break;
        case 4:
            FillExponential(run, FiniteOrZero(Damp), 1.0);
            break;
        case 5:
            FillExponential(run, FiniteOrZero(Damp), -1.0);
            break;
        case 6:
            FillNoise(run);
            break;
        case 7:
            FillSinc(run, Overzero);
            break;
        case 8:
            FillRun(run, [](double) { return 0.0; });
            break;
        default:
            break;
    }
}

void wavecalc_seed(uint32_t Seed) {
    noiseState = Seed;
}
