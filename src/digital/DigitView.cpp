#include "digital/DigitView.h"

#include "digital/DigitFuncCode.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>
#include <limits>

// Zoom is dots per 60 pixels, so the picture shows width / 60 * Zoom dots; FirstDot alone says
// which.

namespace {

constexpr std::int32_t MostPages = std::numeric_limits<std::int16_t>::max();
constexpr double SmallestZoom = 0.125;
constexpr double MostVisible = 1e9;  // a picture zoomed far out, then widened

std::int32_t Whole(double value) {
    return RoundToInt(std::trunc(value));
}

// Page numbers must stay within 16 bits: longer pages where they would not.
void CountPages(DigitDocument& document) {
    const std::int32_t dots = document.Dots;
    std::int32_t& page = document.PageDots;
    const auto wholePages = [&] { return std::max((dots - page) / page, 1); };
    const std::int32_t n = wholePages();
    if (n > MostPages) {
        page = dots / (MostPages + 2) + 1;  // the smallest for which n fits
        document.PageCount = wholePages();
        return;
    }
    const std::int64_t covered = std::int64_t{n} * page + page;
    document.PageCount = n + 1;
    if (covered < dots - 1) document.PageCount += Narrow<std::int32_t>((dots - covered) / page);
}

void PlaceCaliper(DigitDocument& document) {
    document.CaliperPixel = DotToPixel(document, document.Caliper);
}

void SetFirstDot(DigitDocument& document, std::int32_t dot) {
    document.FirstDot = std::clamp(dot, 0, std::max(document.Dots - 1, 0));
    document.LastDot = document.FirstDot + document.VisibleDots;
}

void ShowPage(std::int16_t index) {
    TheHost().RefreshCommands();
    Paint(index, true, true);
}

// A new zoom: the page figures follow, the caliper stays on its dot.
void SetZoom(std::int16_t index, double zoom) {
    DigitDocument& document = DigitAt(index);
    document.Zoom = zoom;
    SetPageFigures(document);
    PlaceCaliper(document);
    TheHost().RefreshCommands();
    Paint(index, false, true);
}

bool SetFirstRow(DigitDocument& document, std::int32_t firstRow) {
    const std::uint8_t before = document.FirstRow;
    document.FirstRow = Narrow<std::uint8_t>(std::clamp(firstRow, 0, 255));
    SetPageFigures(document);
    return document.FirstRow != before;
}

}  // namespace

void SetPageFigures(DigitDocument& document) {
    const double dots = document.PictureWidth / DotWidth * document.Zoom;
    document.VisibleDots = std::max(Whole(std::min(dots, MostVisible)), 1);
    document.PageDots = document.VisibleDots;
    CountPages(document);
    document.LastDot = document.FirstDot + document.VisibleDots;
    const auto rows = Narrow<std::int32_t>(std::ssize(document.ListRows));
    const std::int32_t fit = std::clamp(Whole(document.PictureHeight / RowHeight), 1, 255);
    document.PageRows = Narrow<std::uint8_t>(fit);
    document.ListScrollShown = rows > fit;
    document.FirstRow = Narrow<std::uint8_t>(
        std::clamp(std::int32_t{document.FirstRow}, 0, std::max(rows - fit, 0)));
    document.LastRow = static_cast<std::uint8_t>(document.FirstRow + fit - 1);
}

std::int32_t PixelToDot(const DigitDocument& document, double x) {
    return std::max(RoundToInt(x / DotWidth * document.Zoom + document.FirstDot - 0.5), 0);
}

// At the left edge ties to even may give the dot before the page.
std::int32_t DotUnder(const DigitDocument& document, double x) {
    const double held = std::clamp(x, 0.0, std::max(document.PictureWidth - 1.0, 0.0));
    return std::clamp(PixelToDot(document, held), document.FirstDot,
                      std::max(document.Dots - 1, document.FirstDot));
}

double DotToPixel(const DigitDocument& document, double dot) {
    return (dot - document.FirstDot) * DotWidth / document.Zoom;
}

std::int32_t RowAtPixel(const DigitDocument& document, double y) {
    return y < 0 ? -1 : Whole(y / RowHeight) + document.FirstRow;
}

bool TurnToDot(DigitDocument& document, std::int32_t firstDot) {
    const std::int32_t before = document.FirstDot;
    SetFirstDot(document, firstDot);
    if (document.FirstDot == before) return false;
    CaliperFromPixel(document);
    return true;
}

void ShowDotsFrom(std::int16_t index, std::int32_t firstDot) {
    if (TurnToDot(DigitAt(index), firstDot)) ShowPage(index);
}

void ShowRowsFrom(std::int16_t index, std::int32_t firstRow) {
    if (SetFirstRow(DigitAt(index), firstRow)) Paint(index, true, true);
}

bool BringRowIntoView(DigitDocument& document, std::int32_t row) {
    if (row < document.FirstRow) return SetFirstRow(document, row);
    if (row > document.LastRow) return SetFirstRow(document, row - document.PageRows + 1);
    return false;
}

void FrontPage(std::int16_t index) {
    const DigitDocument& document = DigitAt(index);
    ShowDotsFrom(index, document.FirstDot - document.VisibleDots);
}

void NextPage(std::int16_t index) {
    DigitDocument& document = DigitAt(index);
    if (!CanPageOn(document)) return;
    TurnToDot(document, document.FirstDot + document.VisibleDots);
    document.LastDot = std::min(document.LastDot, document.Dots - 1);
    ShowPage(index);
}

void ZoomDigit(std::int16_t index, std::int32_t steps) {
    const DigitDocument& document = DigitAt(index);
    const double before = document.Zoom;
    double zoom = before;
    for (; steps > 0; --steps) zoom = std::max(zoom / 2, SmallestZoom);
    for (; steps < 0; ++steps) {
        if (document.PictureWidth / DotWidth * zoom >= document.Dots) break;
        zoom *= 2;
    }
    if (zoom != before) SetZoom(index, zoom);
}

bool CanZoomIn(const DigitDocument& document) {
    return document.Zoom > SmallestZoom;
}

bool CanZoomOut(const DigitDocument& document) {
    const bool whole = document.LastDot >= document.Dots - 1 && document.FirstDot < 1;
    return !whole && document.VisibleDots < document.Dots;
}

bool CanPageBack(const DigitDocument& document) {
    return document.FirstDot > 0;
}

bool CanPageOn(const DigitDocument& document) {
    return document.LastDot < document.Dots - 1;
}

void PutCaliper(std::int16_t index, std::int32_t dot, Flag redrawPicture) {
    DigitDocument& document = DigitAt(index);
    document.Caliper = std::clamp(dot, 0, std::max(document.Dots - 1, 0));
    const bool seen = document.Caliper >= document.FirstDot &&
                      document.Caliper < document.FirstDot + document.VisibleDots;
    if (!seen) SetFirstDot(document, document.Caliper - document.Caliper % document.VisibleDots);
    PlaceCaliper(document);
    RefreshValues(document);
    if (!seen) TheHost().RefreshCommands();
    TheHost().ShowEntries(TagOfDigit(index));
    Paint(index, true, redrawPicture || !seen);
}

void CaliperFromPixel(DigitDocument& document) {
    const double dot = document.CaliperPixel / DotWidth * document.Zoom + document.FirstDot;
    const std::int32_t last = std::max(document.Dots - 1, document.FirstDot);
    document.Caliper = Whole(std::clamp(dot, double(document.FirstDot), double(last)));
    if (dot < document.FirstDot || dot >= last + 1.0) PlaceCaliper(document);
    RefreshValues(document);
}

void ZoomInDigit() {
    ZoomDigit(ActiveDigitIndex, 1);
}

void ZoomOutDigit() {
    if (CanZoomOut(ActiveDigit())) ZoomDigit(ActiveDigitIndex, -1);
}

void ZoomOffDigit() {
    if (ActiveDigit().Zoom != 1.0) SetZoom(ActiveDigitIndex, 1.0);
}

void ToggleShowTime() {
    DigitDocument& document = ActiveDigit();
    document.ShowTime = !document.ShowTime;
    TheHost().RefreshCommands();
    Paint(ActiveDigitIndex, false, true);
}

std::string TimeOfDot(const DigitDocument& document, std::int32_t dot) {
    return TimeToTextFine(dot / document.Rate);
}

std::string DotText(const DigitDocument& document, std::int32_t dot) {
    return std::to_string(dot) + "  " + TimeOfDot(document, dot);
}

std::int32_t PageNumber(const DigitDocument& document) {
    if (document.PageDots < 1) return 1;
    const std::int32_t page = (document.FirstDot + document.PageDots / 2) / document.PageDots + 1;
    return std::min(page, document.PageCount);
}
