#pragma once
// 16-bit truth value: all bits set or none. It cannot be built from a number, so no third value
// can be stored. Files and settings write it as 1 or 0.
#include <concepts>
#include <cstdint>

class Flag {
public:
    constexpr Flag() = default;
    constexpr Flag(std::same_as<bool> auto on) : bits_(on ? std::int16_t{-1} : std::int16_t{0}) {}
    constexpr explicit operator bool() const { return bits_ != 0; }
    friend constexpr bool operator==(Flag, Flag) = default;

private:
    std::int16_t bits_ = 0;
};
