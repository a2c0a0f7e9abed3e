#include "digital/DigitRuler.h"

#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "frame/Narrow.h"

#include <algorithm>

// Ticks stand where their dots begin, every 1, 2 or 5 times a power of ten dots: as close as there
// is room. A label belongs to the tick on its left, its step is a multiple of that of the ticks.

namespace {

constexpr double TextSize = 11.0;                   // all lengths in logical pixels
constexpr double TextMiddle = 9.0;                  // from the top
constexpr double TextOffset = 4.0;                  // from its tick
constexpr double LongTick = 13.0, ShortTick = 5.0;  // up from the ruler's bottom
constexpr double LabelRoom = 16.0, TickRoom = 6.0;  // what two leave between them at least
constexpr const char* WidestTime = "888.888888us";

std::string LabelOf(const DigitDocument& document, std::int32_t dot) {
    return document.ShowTime ? TimeOfDot(document, dot) : std::to_string(dot);
}

// The same for every page, so that labels keep their distances while paging.
std::int32_t WidestLabel(const DigitDocument& document) {
    const Surface& surface = document.StaticSurface;
    const std::int32_t last = surface.TextWidth(LabelOf(document, document.Dots), TextSize);
    return document.ShowTime ? std::max(last, surface.TextWidth(WidestTime, TextSize)) : last;
}

// The smallest of 1, 2, 5, 10, 20... dots that need `room` columns and divide `whole`.
std::int64_t StepWithRoom(const DigitPage& page, double room, std::int64_t whole) {
    for (std::int64_t decade = 1; decade < whole; decade *= 10)
        for (const std::int64_t step : {decade, 2 * decade, 5 * decade})
            if (static_cast<double>(step) >= room * page.ColumnDots && whole % step == 0)
                return step;
    return whole;
}

}  // namespace

void DrawRuler(DigitDocument& document, const DigitPage& page) {
    constexpr std::int64_t longest = 10'000'000'000;
    Surface& surface = document.StaticSurface;
    const DigitColours& colours = ColoursOf(document);
    const auto scaled = [&](double length) { return Scaled(length, page.Scale); };
    const std::int32_t bottom = page.Top - 1, pen = PenOf(page.Scale);
    const std::int32_t quietPen = QuietPenOf(document, page.Scale);
    const std::int64_t labels =
        StepWithRoom(page, WidestLabel(document) + scaled(LabelRoom), longest);
    const std::int64_t ticks = StepWithRoom(page, TickRoom * page.Scale, labels);
    const std::int64_t first = (page.First + ticks - 1) / ticks * ticks;
    for (std::int64_t at = first; at < page.End; at += ticks) {
        const auto dot = Narrow<std::int32_t>(at);
        const std::int32_t x = ColumnOfDot(document, page, dot);
        const bool labelled = at % labels == 0;
        const std::int32_t top = bottom - scaled(labelled ? LongTick : ShortTick);
        surface.FillBox(x, top, x + pen - 1, bottom, colours.Tick);
        if (!labelled) continue;
        surface.FillBox(x, page.Top, x + quietPen - 1, page.Height - 1, colours.RowLine);
        const std::string text = LabelOf(document, dot);
        const std::int32_t left = x + scaled(TextOffset);
        if (left + surface.TextWidth(text, TextSize) < page.Width)
            surface.Text(left, scaled(TextMiddle), text, colours.Label, TextAlign::Left, TextSize);
    }
    surface.FillBox(0, bottom - quietPen + 1, page.Width - 1, bottom, colours.Tick);
}
