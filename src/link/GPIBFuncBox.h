#pragma once
// The GPIB transport is declared and does nothing: it exists as a setting of older stores.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

inline void GPIBSendText(std::string_view) {}
inline void GPIBSendBlock(std::span<const std::uint8_t>) {}
inline std::string GPIBQueryText(std::string_view) {
    return {};
}
