#include "analog/EntryFuncBox.h"

#include "analog/PlotOverlay.h"
#include "analog/ToolState.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>

namespace {

using Wave = AnalogWaveRecord;

// clang-format off
constexpr EntryRow Rows[] = {
    {Entry::LineX1, "txtLineX1", "picLineDraw", &Wave::LineX1, nullptr, nullptr},
    {Entry::LineY1, "txtLineY1", "picLineDraw", nullptr, &Wave::LineY1, &Wave::LineY1Unit},
    {Entry::LineX2, "txtLineX2", "picLineDraw", &Wave::LineX2, nullptr, nullptr},
    {Entry::LineY2, "txtLineY2", "picLineDraw", nullptr, &Wave::LineY2, &Wave::LineY2Unit},
    {Entry::ValueX, "txtValueX", "picEditDot", &Wave::ValueX, nullptr, nullptr},
    {Entry::ValueY, "txtValueY", "picEditDot", nullptr, &Wave::ValueY, &Wave::ValueYUnit},
    {Entry::ZoomHX1, "ZoomHX1", "picZoomH", &Wave::RubberX1, nullptr, nullptr},
    {Entry::ZoomHX2, "ZoomHX2", "picZoomH", &Wave::RubberX2, nullptr, nullptr},
    {Entry::ZoomVY1, "ZoomVY1", "picZoomV", nullptr, &Wave::ZoomVY1Value, &Wave::ZoomVY1Unit},
    {Entry::ZoomVY2, "ZoomVY2", "picZoomV", nullptr, &Wave::ZoomVY2Value, &Wave::ZoomVY2Unit},
    {Entry::ZoomX1, "ZoomX1", "PicZoom", &Wave::RubberX1, nullptr, nullptr},
    {Entry::ZoomY1, "ZoomY1", "PicZoom", nullptr, &Wave::ZoomY1Value, &Wave::ZoomY1Unit},
    {Entry::ZoomX2, "ZoomX2", "PicZoom", &Wave::RubberX2, nullptr, nullptr},
    {Entry::ZoomY2, "ZoomY2", "PicZoom", nullptr, &Wave::ZoomY2Value, &Wave::ZoomY2Unit},
    {Entry::ZoomCenterX, "ZoomCenterX", "picZoomCenter", &Wave::RubberX1, nullptr, nullptr},
};
// clang-format on
static_assert(std::size(Rows) == EntryBoxCount);

const EntryRow& RowOf(Entry entry) {
    return Rows[static_cast<std::size_t>(entry)];
}

EntryBox& BoxOf(Wave& wave, Entry entry) {
    return wave.EntryBoxes[static_cast<std::size_t>(entry)];
}

double Rail(const Wave& wave) {
    return wave.Vpp / 2;
}

void ShowDot(Wave& wave, Entry entry, std::int32_t dot) {
    BoxOf(wave, entry) = {std::to_string(dot), true};
    wave.*RowOf(entry).Dot = dot;
}

// A pixel stands for many amplitudes: five digits of the range say as much as the mouse can.
double FiveDigits(double volts, double rail) {
    if (!(rail > 0.0)) return volts;
    const double step = std::pow(10.0, std::floor(std::log10(rail)) - 4);
    return std::clamp(std::nearbyint(volts / step) * step, -rail, rail);
}

void ShowValue(Wave& wave, Entry entry, double amplitude) {
    const EntryRow& row = RowOf(entry);
    wave.*row.Value = FiveDigits(amplitude * Rail(wave), Rail(wave)) * wave.*row.Unit;
    BoxOf(wave, entry) = {GeneralText(wave.*row.Value), true};
}

void ChangeDot(Wave& wave, const EntryRow& row, EntryBox& box) {
    const double number = TextToNumber(box.Text).value_or(0.0);
    const std::int32_t dot = std::clamp(RoundToInt(number), 0, std::max(wave.MaxDots - 1, 0));
    wave.*row.Dot = dot;
    box = {std::to_string(dot), true};
}

void ChangeValue(Wave& wave, const EntryRow& row, EntryBox& box) {
    if (box.Text.rfind('-') != std::string::npos && box.Text.rfind('-') != 0) box.Text = "0";
    if (box.Text.empty() || box.Text == "-") return;
    const double number = TextToNumber(box.Text).value_or(0.0);
    const double limit = Rail(wave) * wave.*row.Unit;
    const double held = std::clamp(number, -limit, limit);
    wave.*row.Value = held;
    box.HasValue = true;
    if (held != number) box.Text = GeneralText(held);
}

std::string PlaceText(const Wave& wave, std::int32_t dot) {
    if (!wave.TimeAxisOn) return std::to_string(dot);
    return TimeToText(GeneralText(dot * wave.Period / std::max(wave.MaxDots, 1)));
}

std::string StartText(const Wave& wave) {
    return wave.HasSelection ? PlaceText(wave, wave.SelStart) : std::string();
}
std::string EndText(const Wave& wave) {
    return wave.HasSelection ? PlaceText(wave, wave.SelEnd) : std::string();
}
std::string CountText(const Wave& wave) {
    return wave.HasSelection ? PlaceText(wave, wave.SelEnd - wave.SelStart + 1) : std::string();
}
std::string TrackXText(const Wave& wave) {
    return wave.TrackShown ? PlaceText(wave, wave.TrackDot) : std::string();
}
std::string TrackYText(const Wave& wave) {
    return wave.TrackShown ? VoltToText(GeneralText(wave.TrackValue * Rail(wave))) : std::string();
}

constexpr ReadOut Labels[] = {{"lblStart", StartText},
                              {"lblEnd", EndText},
                              {"lblSelectDot", CountText},
                              {"lblX", TrackXText},
                              {"lblY", TrackYText}};

}  // namespace

std::span<const EntryRow> EntryRows() {
    return Rows;
}

const std::string& EntryText(const Wave& wave, Entry entry) {
    return wave.EntryBoxes[static_cast<std::size_t>(entry)].Text;
}

bool IsEmptyEntry(const Wave& wave, Entry entry) {
    const EntryBox& box = wave.EntryBoxes[static_cast<std::size_t>(entry)];
    return box.Text.empty() || !box.HasValue;
}

double EntryNumber(const Wave& wave, Entry entry) {
    return TextToNumber(EntryText(wave, entry)).value_or(0.0);
}

double EntryAmplitude(const Wave& wave, Entry entry) {
    const EntryRow& row = RowOf(entry);
    return wave.*row.Value / wave.*row.Unit / Rail(wave);
}

void ChangeEntry(Wave& wave, Entry entry, std::string_view typed) {
    const EntryRow& row = RowOf(entry);
    EntryBox& box = BoxOf(wave, entry);
    box.Text = typed;
    if (typed.empty()) return;
    if (row.Dot != nullptr)
        ChangeDot(wave, row, box);
    else
        ChangeValue(wave, row, box);
}

void LeaveEntry(Wave& wave, Entry entry) {
    const EntryRow& row = RowOf(entry);
    if (row.Dot != nullptr) return;
    EntryBox& box = BoxOf(wave, entry);
    box.Text = box.HasValue ? GeneralText(wave.*row.Value) : std::string();
}

void SwitchEntryUnits(std::int16_t unit) {
    Wave& wave = ActiveAnalog();
    for (const EntryRow& row : Rows) {
        if (row.Value == nullptr || wave.*row.Unit == unit) continue;
        const double factor = static_cast<double>(unit) / wave.*row.Unit;
        const double limit = Rail(wave) * unit;
        wave.*row.Unit = unit;
        EntryBox& box = BoxOf(wave, row.Which);
        if (!box.HasValue) continue;
        wave.*row.Value = std::clamp(wave.*row.Value * factor, -limit, limit);
        box.Text = GeneralText(wave.*row.Value);
    }
    TheHost().RefreshCommands();
    TheHost().ShowEntries(ActiveAnalogIndex);
}

void BeginEntries(Wave& wave) {
    const Tool tool = ToolOf(wave);
    const std::string_view emptied = tool == Tool::LineDraw ? "picLineDraw" : "picEditDot";
    for (const EntryRow& row : Rows)
        if (row.Panel == emptied) BoxOf(wave, row.Which) = EntryBox();
    if (tool == Tool::LineDraw) {
        wave.LineX1 = wave.LineX2 = -1;
        wave.LineY1 = wave.LineY2 = 30.0;
    }
    wave.RubberX1 = wave.ViewStart;
    wave.RubberX2 = wave.ViewEnd;
    if (tool == Tool::ZoomCenter)
        wave.RubberX1 = wave.ViewStart + (wave.ViewEnd - wave.ViewStart) / 2;
    wave.RubberY1 = wave.ViewTop;
    wave.RubberY2 = wave.ViewBottom;
}

void ShowLineEnds(std::int16_t index, const PlotPlace& end) {
    Wave& wave = AnalogAt(index);
    ShowDot(wave, Entry::LineX1, wave.DrawPrevDot);
    ShowValue(wave, Entry::LineY1, wave.DrawPrevValue);
    ShowDot(wave, Entry::LineX2, end.Dot);
    ShowValue(wave, Entry::LineY2, end.Value);
    TheHost().ShowEntries(index);
}

void ShowCursorValues(std::int16_t index) {
    Wave& wave = AnalogAt(index);
    switch (ToolOf(wave)) {
        case Tool::ZoomX:
            ShowDot(wave, Entry::ZoomHX1, wave.RubberX1);
            ShowDot(wave, Entry::ZoomHX2, wave.RubberX2);
            break;
        case Tool::ZoomY:
            ShowValue(wave, Entry::ZoomVY1, wave.RubberY1);
            ShowValue(wave, Entry::ZoomVY2, wave.RubberY2);
            break;
        case Tool::ZoomRegion:
            ShowDot(wave, Entry::ZoomX1, wave.RubberX1);
            ShowDot(wave, Entry::ZoomX2, wave.RubberX2);
            ShowValue(wave, Entry::ZoomY1, wave.RubberY1);
            ShowValue(wave, Entry::ZoomY2, wave.RubberY2);
            break;
        case Tool::ZoomCenter:
            ShowDot(wave, Entry::ZoomCenterX, wave.RubberX1);
            break;
        case Tool::CursorTrack:
        case Tool::PointEdit:
            if (!wave.TrackShown) break;
            ShowDot(wave, Entry::ValueX, wave.TrackDot);
            BoxOf(wave, Entry::ValueY) = {
                FormatPattern(wave.TrackValue * Rail(wave) * wave.ValueYUnit, "0.0000"), true};
            wave.ValueY = EntryNumber(wave, Entry::ValueY);
            break;
        default:
            break;
    }
    TheHost().ShowEntries(index);
}

std::span<const ReadOut> ReadOuts() {
    return Labels;
}

std::string PointerText(const Wave& wave, std::int32_t x, std::int32_t y) {
    const PlotPlace place = PlaceOf(wave, x, y);
    const double time = place.Dot * wave.Period / std::max(wave.MaxDots, 1);
    return std::string(PickText("dot ", "点 ")) + std::to_string(place.Dot) + "   " +
           TimeToText(GeneralText(time)) + "   " +
           VoltToText(GeneralText(place.Value * Rail(wave)));
}
