#include "calculus/EquationParser.h"

#include "Common.h"

#include <bit>

// A fault leaves the dots alone; the value of a dot does not hang on those computed before.
void Fuzz(std::string_view text) {
    constexpr EquationScales scales = {16, 3, 64, 1e-3, 10.0, 7};
    constexpr double untouched = 0.125;
    WaveDot dots[] = {{0, untouched}, {1, untouched}, {15, untouched}}, last = dots[2];
    const EquationFault fault = EvaluateEquation(text, scales, dots);
    const bool sound = fault.Error == EquationError::None;
    Require(fault.Byte <= text.size() && FaultText(fault, text).empty() == sound);
    EvaluateEquation(text, scales, {&last, 1});
    Require(std::bit_cast<std::int64_t>(last.Y) == std::bit_cast<std::int64_t>(dots[2].Y));
    Require(sound || (dots[0].Y == untouched && dots[2].Y == untouched));
}
