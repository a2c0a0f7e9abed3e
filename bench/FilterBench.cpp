// The low-pass against FFTW's transforms alone and against overlap-save written plainly; resizing
// against plain loops of the same arithmetic. FFTW remembers how it planned a length; it is made to
// forget before each round, so that planning is in both figures of a pair.
#include "bench/MillionDots.h"

#include <benchmark/benchmark.h>

#include <fftw3.h>
#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

constexpr std::int32_t LongTaps = MillionDots - 1, ShortTaps = 1001, ShrunkDots = 700001;
constexpr double CutOff = 0.02;

using Dots = std::vector<WaveDot>;
using Numbers = std::unique_ptr<double[], decltype(&fftw_free)>;

Dots MakeNoise(std::int32_t count) {
    Dots dots(count);
    drawcurves(dots.data(), 0, count, 6, 2.0F, 0.0F, 1, 0.0F, 0, 0, 0, 0, 0, 0.0F);
    return dots;
}

Numbers MakeNumbers(std::size_t count) {
    Numbers numbers(fftw_alloc_real(count), &fftw_free);
    std::fill_n(numbers.get(), count, 0.5);
    return numbers;
}

fftw_complex* Complex(double* numbers) {
    return reinterpret_cast<fftw_complex*>(numbers);
}

template <typename Round>
void MeasurePlanned(benchmark::State& state, Round round) {
    for (auto _ : state) {
        state.PauseTiming();
        fftw_forget_wisdom();
        state.ResumeTiming();
        round();
        benchmark::ClobberMemory();
    }
}

void LowPassLong(benchmark::State& state) {
    Dots dots = MakeNoise(MillionDots);
    MeasurePlanned(state,
                   [&] { Fir_Calculate(dots.data(), MillionDots, LongTaps, CutOff, 1 << 22); });
}

void LowPassLongBase(benchmark::State& state) {
    constexpr int Length = 2 * MillionDots;
    const Numbers wave = MakeNumbers(Length + 2), filter = MakeNumbers(Length + 2);
    MeasurePlanned(state, [&] {
        double* numbers = wave.get();
        const fftw_plan forward =
            fftw_plan_dft_r2c_1d(Length, numbers, Complex(numbers), FFTW_ESTIMATE);
        const fftw_plan backward =
            fftw_plan_dft_c2r_1d(Length, Complex(numbers), numbers, FFTW_ESTIMATE);
        fftw_execute(forward);
        fftw_execute_dft_r2c(forward, filter.get(), Complex(filter.get()));
        fftw_execute(backward);
        fftw_destroy_plan(forward);
        fftw_destroy_plan(backward);
        // Unscaled transforms of their own results would soon overflow.
        wave[0] = filter[0] = 0.5;
    });
}

void LowPassShort(benchmark::State& state) {
    Dots dots = MakeNoise(MillionDots);
    MeasurePlanned(state,
                   [&] { Fir_Calculate(dots.data(), MillionDots, ShortTaps, CutOff, 1 << 22); });
}

void FillTaps(double* taps) {
    constexpr int Half = ShortTaps / 2;
    constexpr double Beta = 5.65326;
    double sum = 0.0;
    for (int k = -Half; k <= Half; ++k) {
        const double x = std::numbers::pi * CutOff * k, place = static_cast<double>(k) / Half;
        const double sinc = k == 0 ? 1.0 : std::sin(x) / x;
        taps[k + Half] = sinc * std::cyl_bessel_i(0.0, Beta * std::sqrt(1.0 - place * place));
        sum += taps[k + Half];
    }
    for (int k = 0; k < ShortTaps; ++k) taps[k] /= sum;
}

// A copy of the wave with its ends continued, then block after block of it.
void FilterPlainly(Dots& dots, double* block, double* result, fftw_complex* gain,
                   fftw_complex* spectrum) {
    constexpr int Length = 8192, Step = Length - (ShortTaps - 1), Half = ShortTaps / 2;
    const auto count = static_cast<int>(dots.size());
    const fftw_plan forward = fftw_plan_dft_r2c_1d(Length, block, spectrum, FFTW_ESTIMATE);
    const fftw_plan backward = fftw_plan_dft_c2r_1d(Length, spectrum, result, FFTW_ESTIMATE);
    std::fill_n(block, Length, 0.0);
    FillTaps(block);
    fftw_execute_dft_r2c(forward, block, gain);
    std::vector<double> wave(count + 2 * Half + Length);
    for (int i = 0; i < static_cast<int>(wave.size()); ++i)
        wave[i] = dots[std::clamp(i - Half, 0, count - 1)].Y;
    for (int start = 0; start < count; start += Step) {
        std::copy_n(wave.data() + start, Length, block);
        fftw_execute(forward);
        for (int k = 0; k <= Length / 2; ++k) {
            const double re = spectrum[k][0], im = spectrum[k][1];
            spectrum[k][0] = (re * gain[k][0] - im * gain[k][1]) / Length;
            spectrum[k][1] = (re * gain[k][1] + im * gain[k][0]) / Length;
        }
        fftw_execute(backward);
        const int yielded = std::min(Step, count - start);
        for (int i = 0; i < yielded; ++i) dots[start + i].Y = result[ShortTaps - 1 + i];
    }
    fftw_destroy_plan(forward);
    fftw_destroy_plan(backward);
}

void LowPassShortBase(benchmark::State& state) {
    constexpr int Length = 8192;
    Dots dots = MakeNoise(MillionDots), check = dots;
    const Numbers block = MakeNumbers(Length), result = MakeNumbers(Length);
    const Numbers gain = MakeNumbers(Length + 2), spectrum = MakeNumbers(Length + 2);
    const auto filterOnce = [&](Dots& wave) {
        FilterPlainly(wave, block.get(), result.get(), Complex(gain.get()),
                      Complex(spectrum.get()));
    };
    Dots plain = check;
    filterOnce(plain);
    Fir_Calculate(check.data(), MillionDots, ShortTaps, CutOff, 1 << 22);
    for (std::int32_t i = 0; i < MillionDots; ++i) {
        if (std::abs(check[i].Y - plain[i].Y) < 1e-12) continue;
        state.SkipWithError("the two filters differ");
        return;
    }
    MeasurePlanned(state, [&] { filterOnce(dots); });
}

void MeasureResize(benchmark::State& state, std::int32_t from, std::int32_t to,
                   void (*resize)(Dots&, const Dots&)) {
    const Dots source = MakeNoise(from);
    Dots target(to);
    for (auto _ : state) {
        resize(target, source);
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

void ResizeByKernel(Dots& target, const Dots& source) {
    const auto from = static_cast<std::int32_t>(source.size());
    resizewv(target.data(), source.data(), from, static_cast<std::int32_t>(target.size()) - from,
             90, 0);
}

double SlopeAt(const Dots& source, int i) {
    const int last = static_cast<int>(source.size()) - 1;
    const double before = source[std::max(i, 1)].Y - source[std::max(i, 1) - 1].Y;
    const double behind = source[std::min(i, last - 1) + 1].Y - source[std::min(i, last - 1)].Y;
    return before * behind > 0.0 ? 2.0 * before * behind / (before + behind) : 0.0;
}

void GrowPlainly(Dots& target, const Dots& source) {
    const int last = static_cast<int>(source.size()) - 1, count = static_cast<int>(target.size());
    for (int k = 0; k < count; ++k) {
        const double place = static_cast<double>(k) * last / (count - 1);
        const int cell = std::min(static_cast<int>(place), last - 1);
        const double t = place - cell, from = source[cell].Y, to = source[cell + 1].Y;
        const double m0 = SlopeAt(source, cell), m1 = SlopeAt(source, cell + 1), step = to - from;
        const double y =
            from + t * (m0 + t * (3.0 * step - 2.0 * m0 - m1 + t * (m0 + m1 - 2.0 * step)));
        target[k] = {static_cast<double>(k),
                     std::clamp(y, std::min(from, to), std::max(from, to)) * 0.9};
    }
}

void ShrinkPlainly(Dots& target, const Dots& source) {
    const int last = static_cast<int>(source.size()) - 1, count = static_cast<int>(target.size());
    const double step = static_cast<double>(last) / (count - 1);
    for (int k = 0; k < count; ++k) {
        const double begin = std::max((k - 0.5) * step + 0.5, 0.0);
        const double end = std::min((k + 0.5) * step + 0.5, last + 1.0);
        double sum = 0.0;
        for (int i = static_cast<int>(begin); i < end; ++i)
            sum += source[i].Y * (std::min(i + 1.0, end) - std::max<double>(i, begin));
        target[k] = {static_cast<double>(k), sum / (end - begin) * 0.9};
    }
}

void ResizeGrow(benchmark::State& state) {
    MeasureResize(state, MillionDots / 2, MillionDots, ResizeByKernel);
}

void ResizeGrowBase(benchmark::State& state) {
    MeasureResize(state, MillionDots / 2, MillionDots, GrowPlainly);
}

void ResizeShrink(benchmark::State& state) {
    MeasureResize(state, MillionDots, ShrunkDots, ResizeByKernel);
}

void ResizeShrinkBase(benchmark::State& state) {
    MeasureResize(state, MillionDots, ShrunkDots, ShrinkPlainly);
}

BENCHMARK(LowPassLong);
BENCHMARK(LowPassLongBase);
BENCHMARK(LowPassShort);
BENCHMARK(LowPassShortBase);
BENCHMARK(ResizeGrow);
BENCHMARK(ResizeGrowBase);
BENCHMARK(ResizeShrink);
BENCHMARK(ResizeShrinkBase);

}  // namespace
