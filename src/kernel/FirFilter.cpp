#include "kernel/wavecalc.h"

#include <fftw3.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <mutex>
#include <numbers>
#include <type_traits>

// Convolution by fast Fourier transforms, block by block (overlap-save: A. V. Oppenheim and R. W.
// Schafer, "Discrete-Time Signal Processing", section 8.7). A long filter is the case of one block.
//
// Filter: the taps are symmetric, so only the centre and one side are kept. They are laid around
// index 0 of the block's circle, which makes their spectrum real and the delay 0.
// Wave: its first value is taken off, so that what stands before it is 0 and a constant stays
// exact. What stands behind it is taken as 0 too, which lets both ends share the same half filter
// of zeros in the circle. The constant c that really stands there adds c times the sum of the taps
// that reach beyond the last dot, and is added at the end.

namespace {

constexpr double StopbandDb = 60.0;
constexpr std::int64_t LongestBlock = std::int64_t{1} << 30;  // lengths are int in FFTW

struct FreeNumbers {
    void operator()(double* numbers) const { fftw_free(numbers); }
};
using Numbers = std::unique_ptr<double[], FreeNumbers>;

Numbers AllocateNumbers(std::int64_t count) {
    return Numbers(fftw_alloc_real(static_cast<std::size_t>(count)));
}

// Only the execution of a plan is safe in several threads at once.
std::mutex plannerGuard;

struct DestroyPlan {
    void operator()(fftw_plan plan) const {
        const std::scoped_lock lock(plannerGuard);
        fftw_destroy_plan(plan);
    }
};
using Plan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, DestroyPlan>;

struct Blocks {
    std::int64_t Length = 0;  // of a transform, 0 if there is none
    std::int64_t Step = 0;    // dots that a block yields
};

// The working memory and the transforms between Block and Spectrum.
struct Filter {
    std::int64_t Half = 0;   // taps on either side of the centre
    std::int64_t Reach = 0;  // those of them that can meet another dot of the wave
    Blocks Layout;
    Numbers Taps, Block, Gain, Carry;
    Numbers OwnSpectrum;         // null if the transforms work in place
    double* Spectrum = nullptr;  // pairs of real and imaginary part
    Plan Forward, Backward;
};

// The block length with the least work for `count` dots, out of the powers of two and three times
// them, as measured with FFTW on a wave of a million dots: a transform of length n costs about
// n log2(n), the passes over a block's dots are like 3 n more, and planning is like two transforms.
// Three times a power of two takes longer to plan, which pays for long blocks only.
Blocks ChooseBlocks(std::int64_t count, std::int64_t reach) {
    constexpr double PlanningOfThree = 2e7;
    Blocks best;
    double least = 0.0;
    for (const std::int64_t odd : {1, 3}) {
        for (std::int64_t length = odd; length <= LongestBlock; length *= 2) {
            const bool whole = length >= count + reach;
            const std::int64_t step = whole ? count : length - 2 * reach;
            if (step < 1) continue;
            const std::int64_t blocks = (count + step - 1) / step;
            const auto transforms = static_cast<double>(2 * blocks + 3);
            const auto size = static_cast<double>(length);
            const double work =
                transforms * size * (std::log2(size) + 3.0) + (odd == 3 ? PlanningOfThree : 0.0);
            if (best.Length == 0 || work < least) {
                best = {length, step};
                least = work;
            }
            if (whole) break;
        }
    }
    return best;
}

// Kaiser's window I0(beta sqrt(1 - (k / half)^2)) for k = 0 .. half, not normalised, with the beta
// for the wanted attenuation (J. F. Kaiser, "Nonrecursive digital filter design using the I0-sinh
// window function", 1974). I0(x) is the sum of (x / 2)^(2 j) / (j!)^2, a polynomial of the window's
// 1 - (k / half)^2 itself. With this beta the terms beyond the last are below 1e-17 of the sum.
constexpr double Beta = 0.1102 * (StopbandDb - 8.7);
constexpr auto BesselTerms = [] {
    std::array<double, 20> terms{1.0};
    for (std::size_t j = 1; j < terms.size(); ++j)
        terms[j] = terms[j - 1] * (Beta * Beta / 4.0) / static_cast<double>(j * j);
    return terms;
}();

void FillKaiserWindow(double* taps, std::int64_t half) {
    const double perHalf = 1.0 / static_cast<double>(half);
    for (std::int64_t k = 0; k <= half; ++k) {
        // The processor turns several whole numbers into doubles at once where they have 32 bits.
        const double place = static_cast<double>(static_cast<std::int32_t>(k)) * perHalf;
        const double rest = 1.0 - place * place;
        double sum = BesselTerms.back();
        for (std::size_t j = BesselTerms.size() - 1; j-- > 0;) sum = sum * rest + BesselTerms[j];
        taps[k] = sum;
    }
}

// Multiplies tap k by sin(w k) / (w k), w = pi * cutOff. Within a stretch the sines follow from
// those of the first one by the addition theorem, which is as exact and far quicker.
void MultiplyBySinc(double* taps, std::int64_t half, double cutOff) {
    constexpr int Stretch = 64;
    const double w = std::numbers::pi * cutOff;
    if (w == 0.0) return;
    std::array<double, Stretch> sines, cosines;
    for (int i = 0; i < Stretch; ++i) {
        sines[i] = std::sin(w * i);
        cosines[i] = std::cos(w * i);
    }
    const double centre = taps[0];
    for (std::int64_t start = 0; start <= half; start += Stretch) {
        const auto first = static_cast<double>(start);
        const double sine = std::sin(w * first), cosine = std::cos(w * first);
        const int count = static_cast<int>(std::min<std::int64_t>(Stretch, half + 1 - start));
        for (int i = 0; i < count; ++i)
            taps[start + i] *= (sine * cosines[i] + cosine * sines[i]) / (w * (first + i));
    }
    taps[0] = centre;
}

// Turns tap k into the sum of the taps k + 1 .. half; returns the sum of both sides and the centre.
double SumTails(double* taps, std::int64_t half) {
    const double centre = taps[0];
    double tail = 0.0;
    for (std::int64_t k = half; k >= 0; --k) {
        const double tap = taps[k];
        taps[k] = tail;
        tail += tap;
    }
    return 2.0 * tail - centre;
}

// False if memory cannot be had. For short blocks planning is most of the work, and transforms in
// place take twice as long to plan; for long ones it is the memory to be touched for the first
// time.
bool AllocateFilter(Filter& filter, std::int64_t count) {
    constexpr std::int64_t LongestApart = std::int64_t{1} << 17;
    const auto [length, step] = filter.Layout;
    const std::int64_t pairs = length / 2 + 1;
    const bool apart = length <= LongestApart;
    filter.Taps = AllocateNumbers(filter.Half + 1);
    filter.Block = AllocateNumbers(2 * pairs);
    filter.Gain = AllocateNumbers(pairs);
    if (step < count) filter.Carry = AllocateNumbers(filter.Reach);
    if (apart) filter.OwnSpectrum = AllocateNumbers(2 * pairs);
    filter.Spectrum = apart ? filter.OwnSpectrum.get() : filter.Block.get();
    return filter.Taps && filter.Block && filter.Gain && filter.Spectrum &&
           (filter.Carry || step >= count);
}

bool PlanFilter(Filter& filter) {
    const int length = static_cast<int>(filter.Layout.Length);
    double* block = filter.Block.get();
    auto* spectrum = reinterpret_cast<fftw_complex*>(filter.Spectrum);
    const std::scoped_lock lock(plannerGuard);
    filter.Forward.reset(fftw_plan_dft_r2c_1d(length, block, spectrum, FFTW_ESTIMATE));
    filter.Backward.reset(fftw_plan_dft_c2r_1d(length, spectrum, block, FFTW_ESTIMATE));
    return filter.Forward && filter.Backward;
}

// Lays the taps around the circle and takes their spectrum, which is real. Gain also brings the sum
// of the taps to 1 and takes back the transforms' factor. Returns the sum of the taps.
double ComputeGain(Filter& filter) {
    double* block = filter.Block.get();
    const std::int64_t length = filter.Layout.Length;
    const double* taps = filter.Taps.get();
    std::fill_n(block, length, 0.0);
    block[0] = taps[0];
    for (std::int64_t k = 1; k <= filter.Reach; ++k) block[k] = block[length - k] = taps[k];
    const double sum = SumTails(filter.Taps.get(), filter.Half);
    fftw_execute(filter.Forward.get());
    const double scale = 1.0 / (sum * static_cast<double>(length));
    for (std::int64_t k = 0; k <= length / 2; ++k) filter.Gain[k] = filter.Spectrum[2 * k] * scale;
    return sum;
}

// Brings a block with the wave's dots from `start` on, behind the last Reach ones before them.
// Those have been rewritten by now, so each block leaves them for the next one.
void LoadBlock(Filter& filter, const WaveDot* dots, std::int64_t count, std::int64_t start,
               double first) {
    double* block = filter.Block.get();
    const auto [length, step] = filter.Layout;
    const std::int64_t reach = filter.Reach, loaded = std::min(length - reach, count - start);
    if (start == 0) std::fill_n(block, reach, 0.0);
    if (start > 0) std::copy_n(filter.Carry.get(), reach, block);
    for (std::int64_t i = 0; i < loaded; ++i) block[reach + i] = dots[start + i].Y - first;
    std::fill(block + reach + loaded, block + length, 0.0);
    if (start + step < count) std::copy_n(block + step, reach, filter.Carry.get());
}

void FilterWave(Filter& filter, WaveDot* dots, std::int64_t count, double first) {
    const auto [length, step] = filter.Layout;
    const double* yields = filter.Block.get() + filter.Reach;
    const double* gain = filter.Gain.get();
    double* spectrum = filter.Spectrum;
    for (std::int64_t start = 0; start < count; start += step) {
        LoadBlock(filter, dots, count, start, first);
        fftw_execute(filter.Forward.get());
        for (std::int64_t k = 0; k <= length / 2; ++k) {
            spectrum[2 * k] *= gain[k];
            spectrum[2 * k + 1] *= gain[k];
        }
        fftw_execute(filter.Backward.get());
        const std::int64_t yielded = std::min(step, count - start);
        for (std::int64_t i = 0; i < yielded; ++i) dots[start + i].Y = yields[i] + first;
    }
}

}  // namespace

void Fir_Calculate(WaveDot* Dots, int32_t Count, int32_t FilterLen, double CutOff,
                   int32_t /*FftLength*/) {
    if (!Dots || Count < 1) return;
    Filter filter;
    filter.Half = (static_cast<std::int64_t>(FilterLen) - 1) / 2;
    if (filter.Half < 1) return;
    filter.Reach = std::min<std::int64_t>(filter.Half, Count - 1);
    filter.Layout = ChooseBlocks(Count, filter.Reach);
    if (filter.Layout.Length == 0 || !AllocateFilter(filter, Count) || !PlanFilter(filter)) return;
    const double cutOff = std::isfinite(CutOff) ? std::clamp(CutOff, 0.0, 1.0) : 0.0;
    FillKaiserWindow(filter.Taps.get(), filter.Half);
    MultiplyBySinc(filter.Taps.get(), filter.Half, cutOff);
    const double sum = ComputeGain(filter);

    const double first = Dots[0].Y, behind = Dots[Count - 1].Y - first;
    FilterWave(filter, Dots, Count, first);
    const std::int64_t touched = std::min<std::int64_t>(filter.Half, Count);
    for (std::int64_t i = 0; i < touched; ++i)
        Dots[Count - 1 - i].Y += behind / sum * filter.Taps[i];
}
