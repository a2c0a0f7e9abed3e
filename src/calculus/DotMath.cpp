#include "calculus/DotMath.h"

#include <algorithm>
#include <functional>

namespace {

template <typename Operation>
std::int32_t Combine(std::span<const WaveDot> left, std::span<const WaveDot> right,
                     std::vector<WaveDot>& result, Operation operation) {
    const std::size_t count = std::min(left.size(), right.size());
    std::int32_t clipped = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double value = operation(left[i].Y, right[i].Y);
        const double held = std::clamp(value, -1.0, 1.0);
        result[i] = {left[i].X, held};
        clipped += held != value ? 1 : 0;
    }
    std::copy(left.begin() + count, left.end(), result.begin() + count);
    return clipped;
}

}  // namespace

std::int32_t CombineDots(std::span<const WaveDot> left, std::span<const WaveDot> right,
                         std::int16_t operation, std::vector<WaveDot>& result) {
    result.resize(left.size());
    switch (operation) {
        case Add:
            return Combine(left, right, result, std::plus());
        case Subtract:
            return Combine(left, right, result, std::minus());
        case Multiply:
            return Combine(left, right, result, std::multiplies());
        default:
            return Combine(left, {}, result, std::plus());
    }
}
