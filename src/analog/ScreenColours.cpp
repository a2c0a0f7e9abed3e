#include "analog/ScreenColours.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/Settings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

constexpr PlotColours Usual = {.Surround = PlotSurround,
                               .Back = PlotBack,
                               .Grid = PlotGrid,
                               .Axis = PlotAxis,
                               .Label = PlotLabel,
                               .Curve = 0xFFC93C,
                               .Limit = 0xFF8A3C,
                               .Mark = 0xC77DFF,
                               .Pointer = PlotPointer};
constinit PlotColours chosen = Usual;

constexpr std::string_view Section = "Tidemark_Colour";

struct ColourRow {
    std::string_view Key, English, Chinese;
    Colour PlotColours::*Field;
    double LeastContrast;  // against the plot's background
};
constexpr ColourRow Curve = {"Wave", "Waveform Colour", "波形颜色", &PlotColours::Curve, 1.5};
// A grid is quiet on purpose; the usual one has a contrast of 1.31.
constexpr ColourRow Grid = {"Grid", "Grid Colour", "网格颜色", &PlotColours::Grid, 1.25};

double Channel(Colour colour, unsigned shift) {
    const double part = static_cast<double>(colour >> shift & 0xFFU) / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
    return 0.2126 * Channel(colour, 16) + 0.7152 * Channel(colour, 8) + 0.0722 * Channel(colour, 0);
}

// Three tenths of the way from the grid's colour to white, or to the background where the grid is
// bright itself, so that the axes stand out from it.
Colour AxisOf(Colour grid) {
    if (grid == Usual.Grid) return Usual.Axis;
    const Colour towards = Luminance(grid) < 0.5 ? 0xFFFFFF : Usual.Back;
    Colour axis = 0;
    for (const unsigned shift : {16U, 8U, 0U}) {
        const Colour from = grid >> shift & 0xFFU, to = towards >> shift & 0xFFU;
        axis |= (from * 7 + to * 3) / 10 << shift;
    }
    return axis;
}

bool IsSeen(const ColourRow& row, Colour colour) {
    return ContrastOf(colour, Usual.Back) >= row.LeastContrast;
}

std::string TextOfColour(Colour colour) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += Digits[colour >> shift & 0xFU];
    return text;
}

std::optional<Colour> ColourOfText(std::string_view text) {
    if (text.size() != 7 || text.front() != '#') return std::nullopt;
    Colour colour = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data() + 1, end, colour, 16);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return colour;
}

Colour LoadColour(const ColourRow& row) {
    const auto stored = ColourOfText(GetSetting(ApplicationTitle, Section, row.Key, ""));
    return stored && IsSeen(row, *stored) ? *stored : Usual.*row.Field;
}

void ChooseColourOf(const ColourRow& row) {
    const auto answer =
        TheHost().ChooseColour(PickText(row.English, row.Chinese), chosen.*row.Field);
    if (!answer) return;
    const Colour colour = *answer == UsualColour ? Usual.*row.Field : *answer & 0xFFFFFFU;
    if (!IsSeen(row, colour)) {
        Complain(PickText("This colour cannot be seen on the plot's background.",
                          "此颜色与绘图区背景过于接近，无法看清。"));
        return;
    }
    PlotColours colours = chosen;
    colours.*row.Field = colour;
    SetScreenColours(colours.Curve, colours.Grid);
    SaveSetting(ApplicationTitle, Section, row.Key, TextOfColour(colour));
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot)
        if (AnalogInUse[static_cast<std::size_t>(slot)]) RepaintAnalog(slot, true);
}

}  // namespace

const PlotColours& ScreenColours = chosen;

double ContrastOf(Colour one, Colour other) {
    const auto [dark, bright] = std::minmax({Luminance(one), Luminance(other)});
    return (bright + 0.05) / (dark + 0.05);
}

void SetScreenColours(Colour curve, Colour grid) {
    chosen.Curve = curve;
    chosen.Grid = grid;
    chosen.Axis = AxisOf(grid);
}

void LoadScreenColours() {
    SetScreenColours(LoadColour(Curve), LoadColour(Grid));
}

void ChooseCurveColour() {
    ChooseColourOf(Curve);
}

void ChooseGridColour() {
    ChooseColourOf(Grid);
}
