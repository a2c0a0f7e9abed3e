#include "kernel/wavecalc.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

void stoInitArbConstruct(uint16_t* Spread, const uint16_t* Codes, int32_t LastIndex,
                         int32_t /*Flag*/, int32_t LastIndexAgain, int32_t SpreadLength) {
    const std::int64_t last = std::min(LastIndex, LastIndexAgain);
    const std::int64_t length = SpreadLength;
    if (!Spread || !Codes || last < 0 || length < 1) return;
    if (last < length) {
        // Place j * (last + 1) / length without its division, which takes longer than all else.
        std::int64_t place = 0, rest = 0;
        for (std::int64_t j = 0; j < length; ++j) {
            Spread[j] = Codes[place];
            rest += last + 1;
            if (rest < length) continue;
            rest -= length;
            ++place;
        }
        return;
    }
    Spread[0] = Codes[0];
    for (std::int64_t j = 1; j < length; ++j) {
        const double index = static_cast<double>(j * last) / static_cast<double>(length - 1);
        Spread[j] = Codes[static_cast<std::int64_t>(std::nearbyint(index))];
    }
}
