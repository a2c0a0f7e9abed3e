#include "analog/DacCode.h"
#include "calculus/PropertyFuncBox.h"
#include "files/FileOptFuncCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "kernel/wavecalc.h"

#include <algorithm>
#include <cstdint>
#include <vector>

// RDF format: the instrument's sample codes and nothing else, 16 bits each, low byte first, no
// header. Code 0 is -1.0, code 16383 is 1.0. A file always has one of the instruments' lengths;
// a shorter wave is spread over it, each of its codes held for several places.

namespace {

constexpr std::int32_t ShortLength = 4096, LongLength = 524288;  // codes

std::int32_t CodeCount(std::int32_t dots) {
    std::int32_t length = MaxWaveDots;
    if (dots <= ShortLength)
        length = ShortLength;
    else if (dots <= LongLength)
        length = LongLength;
    // A document may hold more than the model now selected; codes are left out then.
    return dots > MaxWaveDots ? MaxWaveDots : length;
}

}  // namespace

std::string WriteAnalogRdf(const AnalogWaveRecord& wave) {
    // A document without dots becomes a flat line of 0 V.
    std::vector<std::uint16_t> codes(std::max(wave.Dots, 1), CodeOf(0.0));
    for (std::int32_t i = 0; i < wave.Dots; ++i) codes[i] = CodeOf(wave.DotArray[i].Y);
    const std::int32_t last = Narrow<std::int32_t>(std::ssize(codes)) - 1;
    std::vector<std::uint16_t> spread(CodeCount(wave.Dots));
    stoInitArbConstruct(spread.data(), codes.data(), last, 1, last,
                        Narrow<std::int32_t>(std::ssize(spread)));
    std::string bytes(2 * spread.size(), '\0');
    // A char may lie anywhere, so that both arrays would be looked up anew behind each.
    char* to = bytes.data();
    for (const std::uint16_t code : spread) {
        *to++ = static_cast<char>(code & 0xFF);
        *to++ = static_cast<char>(code >> 8);
    }
    return bytes;
}

bool ReadAnalogRdf(std::string_view bytes, LoadedWave& content) {
    const std::int64_t held = std::min<std::int64_t>(std::ssize(bytes) / 2, MaxWaveDots);
    if (held == 0) return false;
    content.Dots = Narrow<std::int32_t>(held);
    content.MaxDots = std::max(content.Dots, MinWaveDots);
    content.LastDot = content.Dots - 1;
    content.Vpp = StoredVpp();
    content.Period = StoredPeriod();
    content.Quantify = StoredQuantify();
    content.DotArray.assign(content.MaxDots, WaveDot{});
    for (std::int32_t i = 0; i < content.Dots; ++i) {
        const auto at = std::size_t{2} * static_cast<std::size_t>(i);
        const int low = static_cast<unsigned char>(bytes[at]);
        const int high = static_cast<unsigned char>(bytes[at + 1]);
        const double y = (high * 256 + low) / double(LargestCode) * 2 - 1;
        content.DotArray[i] = {static_cast<double>(i), std::clamp(y, -1.0, 1.0)};
    }
    CoverWithOneSegment(content);
    return true;
}
