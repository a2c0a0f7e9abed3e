#pragma once
// The data that editor and instrument exchange in tests of the USB driver.
#include <cstddef>
#include <string>

/// `count` bytes whose period is no multiple of a packet, so that a lost or doubled one shows.
inline std::string Pattern(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(i % 251);
    return bytes;
}
