// An equation over a million dots, against its library alone.
#include "bench/MillionDots.h"
#include "calculus/EquationParser.h"

#include <benchmark/benchmark.h>

#include <muParser.h>
#include <cmath>
#include <numbers>

namespace {

constexpr char Equation[] = "5*exp(-5*x)*sin(2*pi*10*x)";
constexpr std::int32_t Checked = 150000;  // dot

std::vector<WaveDot> NumberedDots() {
    std::vector<WaveDot> dots(MillionDots);
    for (std::int32_t i = 0; i < MillionDots; ++i) dots[i].X = i;
    return dots;
}

void EvaluateDots(benchmark::State& state) {
    std::vector<WaveDot> dots = NumberedDots();
    const EquationScales scales = {
        .Dots = MillionDots, .MaxDots = MillionDots, .Period = 1e-3, .Vpp = 10.0};
    for (auto _ : state) {
        const EquationFault fault = EvaluateEquation(Equation, scales, dots);
        benchmark::DoNotOptimize(&fault);
        benchmark::ClobberMemory();
    }
    const double x = dots[Checked].X / (MillionDots - 1);
    if (std::abs(dots[Checked].Y -
                 5.0 * std::exp(-5.0 * x) * std::sin(20.0 * std::numbers::pi * x)) > 1e-9)
        state.SkipWithError("other values than the formula's");
}

void EvaluateDotsBase(benchmark::State& state) {
    std::vector<WaveDot> dots = NumberedDots();
    double x = 0.0;
    mu::Parser parser;
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineVar("x", &x);
    parser.SetExpr(Equation);
    for (auto _ : state) {
        for (WaveDot& dot : dots) {
            x = dot.X / (MillionDots - 1);
            dot.Y = parser.Eval();
        }
        benchmark::ClobberMemory();
    }
}

BENCHMARK(EvaluateDots);
BENCHMARK(EvaluateDotsBase);

}  // namespace
