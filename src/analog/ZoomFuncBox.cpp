#include "analog/ZoomFuncBox.h"

#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/PlotOverlay.h"
#include "analog/ToolFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double NotchFactor = 1.25;                  // of the span, for a notch of the wheel
constexpr std::int32_t SmallestSpan = 2;              // dots, by wheel and centre
constexpr double SmallestBand = 0.001;                // normalised amplitude
constexpr double GripAlong = 13.0, GripAcross = 6.0;  // logical pixels

bool SameView(const WaveView& one, const WaveView& other) {
    return one.Start == other.Start && one.End == other.End && one.Top == other.Top &&
           one.Bottom == other.Bottom;
}

void KeepView(AnalogWaveRecord& wave) {
    wave.PrevViewStart = wave.ViewStart;
    wave.PrevViewEnd = wave.ViewEnd;
    wave.PrevViewTop = wave.ViewTop;
    wave.PrevViewBottom = wave.ViewBottom;
    wave.ZoomUndoAvailable = true;
}

void FlagZoomedAxes(AnalogWaveRecord& wave) {
    wave.XZoomed = wave.ViewStart != 0 || wave.ViewEnd != wave.MaxDots - 1;
    wave.YZoomed = wave.ViewTop != 1.0 || wave.ViewBottom != -1.0;
}

// A selection keeps its dots: the columns of the mouse belonged to the view before.
void SetView(AnalogWaveRecord& wave, const WaveView& view) {
    wave.ViewStart = view.Start;
    wave.ViewEnd = view.End;
    wave.ViewTop = view.Top;
    wave.ViewBottom = view.Bottom;
    wave.SelectionDragging = wave.HasSelection;
}

// Another view ends a drag, whose picture is of the view before. A stroke or line goes on: it keeps
// dots and amplitudes.
void LetGo(AnalogWaveRecord& wave) {
    if (!wave.DrawPressed && !wave.LinePending) FinishGesture(wave);
}

void ShowView(std::int16_t index) {
    TheHost().RefreshCommands();
    RepaintAnalog(index, true);
}

void BeginZoom(AnalogWaveRecord& wave) {
    LetGo(wave);
    KeepView(wave);
}

void EndZoom(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    wave.ExpandToSuit = false;
    FlagZoomedAxes(wave);
    ShowView(index);
}

void ZoomTo(std::int16_t index, const WaveView& view) {
    AnalogWaveRecord& wave = AnalogAt(index);
    BeginZoom(wave);
    SetView(wave, view);
    EndZoom(index);
}

// Bounds of a zoom from two boxes, in order; false where they are empty or too near.
bool TakeDots(AnalogWaveRecord& wave, Entry one, Entry other) {
    if (IsEmptyEntry(wave, one) || IsEmptyEntry(wave, other)) return false;
    const std::int32_t last = wave.MaxDots - 1;
    const std::int32_t a = std::clamp(RoundToInt(EntryNumber(wave, one)), 0, last);
    const std::int32_t b = std::clamp(RoundToInt(EntryNumber(wave, other)), 0, last);
    if (std::abs(a - b) < 1) return false;
    wave.RubberX1 = std::min(a, b);
    wave.RubberX2 = std::max(a, b);
    return true;
}

bool TakeAmplitudes(AnalogWaveRecord& wave, Entry one, Entry other) {
    if (IsEmptyEntry(wave, one) || IsEmptyEntry(wave, other)) return false;
    const double a = std::clamp(EntryAmplitude(wave, one), -1.0, 1.0);
    const double b = std::clamp(EntryAmplitude(wave, other), -1.0, 1.0);
    if (std::abs(a - b) < SmallestBand) return false;
    wave.RubberY1 = std::max(a, b);
    wave.RubberY2 = std::min(a, b);
    return true;
}

WaveView BandView(const AnalogWaveRecord& wave, bool dots, bool amplitudes) {
    WaveView view = ViewOf(wave);
    if (dots) {
        view.Start = wave.RubberX1;
        view.End = wave.RubberX2;
    }
    if (amplitudes) {
        view.Top = wave.RubberY1;
        view.Bottom = wave.RubberY2;
    }
    return view;
}

void ApplyCentre(AnalogWaveRecord& wave) {
    if (IsEmptyEntry(wave, Entry::ZoomCenterX)) return;
    const std::int32_t centre = std::clamp(RoundToInt(EntryNumber(wave, Entry::ZoomCenterX)), 0,
                                           std::max(wave.MaxDots - 1, 0));
    BeginZoom(wave);
    ZoomAroundCentre(ActiveAnalogIndex, centre, wave.ViewStart, wave.ViewEnd, 2.0, wave.MaxDots);
    EndZoom(ActiveAnalogIndex);
}

// A span of dots that begins near `start`, held inside the document.
WaveView WithDots(const AnalogWaveRecord& wave, double start, std::int32_t span) {
    WaveView view = ViewOf(wave);
    view.Start = std::clamp(RoundToInt(start), 0, std::max(wave.MaxDots - 1 - span, 0));
    view.End = std::min(view.Start + span, wave.MaxDots - 1);
    return view;
}

WaveView WithAmplitudes(const AnalogWaveRecord& wave, double top, double span) {
    WaveView view = ViewOf(wave);
    view.Top = std::clamp(top, span - 1.0, 1.0);
    view.Bottom = std::max(view.Top - span, -1.0);
    return view;
}

// The modes are clear already; select comes back.
void EndZoomTool(std::int16_t index) {
    AnalogAt(index).SelectMode = true;
    ShowTool(index);
}

double PointerSpanPixels(const AnalogWaveRecord& wave) {
    return wave.VPointerSpan / 2.0 * wave.PlotHeight;
}

}  // namespace

void ToggleExpandToSuit() {
    AnalogWaveRecord& wave = ActiveAnalog();
    const bool zoomTool = IsZoomTool(ToolOf(wave));
    LetGo(wave);
    wave.ExpandToSuit = !wave.ExpandToSuit;
    wave.ZoomXMode = wave.ZoomYMode = wave.ZoomRegionMode = wave.ZoomCenterMode = false;
    wave.XZoomed = wave.YZoomed = false;
    if (zoomTool) EndZoomTool(ActiveAnalogIndex);
    if (wave.ExpandToSuit && wave.Dots < 2) {
        TheHost().RefreshCommands();
        return;
    }
    ClearSelection(wave);
    SetView(wave, {0, (wave.ExpandToSuit ? wave.Dots : wave.MaxDots) - 1, 1.0, -1.0});
    ShowCursorValues(ActiveAnalogIndex);
    ShowView(ActiveAnalogIndex);
}

void ApplyZoomBoxes() {
    AnalogWaveRecord& wave = ActiveAnalog();
    switch (ToolOf(wave)) {
        case Tool::ZoomX:
            if (TakeDots(wave, Entry::ZoomHX1, Entry::ZoomHX2))
                ZoomTo(ActiveAnalogIndex, BandView(wave, true, false));
            break;
        case Tool::ZoomY:
            if (TakeAmplitudes(wave, Entry::ZoomVY1, Entry::ZoomVY2))
                ZoomTo(ActiveAnalogIndex, BandView(wave, false, true));
            break;
        case Tool::ZoomRegion:
            if (TakeDots(wave, Entry::ZoomX1, Entry::ZoomX2) &&
                TakeAmplitudes(wave, Entry::ZoomY1, Entry::ZoomY2))
                ZoomTo(ActiveAnalogIndex, BandView(wave, true, true));
            break;
        case Tool::ZoomCenter:
            ApplyCentre(wave);
            break;
        default:
            break;
    }
}

void LeaveZoom(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const bool zoomTool = IsZoomTool(ToolOf(wave));
    LetGo(wave);
    ShowWholeWave(wave);
    wave.SelectionDragging = wave.HasSelection;
    if (zoomTool) EndZoomTool(index);
}

void CancelZoom() {
    LeaveZoom(ActiveAnalogIndex);
    ShowView(ActiveAnalogIndex);
}

void UndoZoom() {
    AnalogWaveRecord& wave = ActiveAnalog();
    if (!wave.ZoomUndoAvailable) return;
    LetGo(wave);
    SetView(wave, {wave.PrevViewStart, wave.PrevViewEnd, wave.PrevViewTop, wave.PrevViewBottom});
    wave.ZoomUndoAvailable = false;
    EndZoom(ActiveAnalogIndex);
}

void ZoomAroundCentre(std::int16_t index, std::int32_t centre, std::int32_t viewStart,
                      std::int32_t viewEnd, double factor, std::int32_t maxDots) {
    const std::int32_t last = maxDots - 1;
    std::int32_t span = std::max(RoundToInt((viewEnd - viewStart) / factor), SmallestSpan);
    if (span % 2 != 0) --span;
    std::int32_t start = centre - span / 2, end = centre + span / 2;
    if (start < 0) {
        end = centre * 2;
        start = 0;
    }
    if (end > last) {
        start = last - (last - centre) * 2;
        end = last;
    }
    if (start >= end) {
        start = std::max(centre - 1, 0);
        end = std::min(start + 1, last);
    }
    AnalogWaveRecord& wave = AnalogAt(index);
    SetView(wave, {start, end, wave.ViewTop, wave.ViewBottom});
}

void ReleaseZoomBand(std::int16_t index) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const bool dots = wave.RubberX2 - wave.RubberX1 >= 1;
    const bool amplitudes = std::abs(wave.RubberY2 - wave.RubberY1) >= SmallestBand;
    switch (ToolOf(wave)) {
        case Tool::ZoomX:
            if (dots) return ZoomTo(index, BandView(wave, true, false));
            break;
        case Tool::ZoomY:
            if (amplitudes) return ZoomTo(index, BandView(wave, false, true));
            break;
        case Tool::ZoomRegion:
            if (dots && amplitudes) return ZoomTo(index, BandView(wave, true, true));
            break;
        case Tool::ZoomCenter:  // the dot is chosen, ZoomAresBtn makes the zoom
            KeepView(wave);
            wave.XZoomed = true;
            return ShowView(index);
        default:
            break;
    }
    RepaintAnalog(index, false);
}

void ZoomByWheel(std::int16_t index, std::int32_t x, std::int32_t y, std::int32_t notches,
                 bool upright) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    const WaveView view = ViewOf(wave);
    const double factor = std::pow(NotchFactor, -notches);
    const PlotPlace place = PlaceOf(wave, x, y);
    WaveView next;
    if (upright) {
        const double old = view.Top - view.Bottom;
        const double span = std::clamp(old * factor, SmallestBand, 2.0);
        const double share = (view.Top - place.Value) / old;
        next = WithAmplitudes(wave, place.Value + share * span, span);
    } else {
        const std::int32_t old = view.End - view.Start, whole = wave.MaxDots - 1;
        std::int32_t span = RoundToInt(old * factor);
        if (span == old) span += notches > 0 ? -1 : 1;  // small spans round back
        span = std::clamp(span, std::min(SmallestSpan, whole), whole);
        const double share = static_cast<double>(place.X) / std::max(wave.PlotWidth, 1);
        next = WithDots(wave, view.Start + share * (old - span), span);
    }
    if (!SameView(next, view)) ZoomTo(index, next);
}

void PanByWheel(std::int16_t index, std::int32_t notches, bool upright) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    const WaveView view = ViewOf(wave);
    const std::int32_t dots = view.End - view.Start;
    const double amplitudes = view.Top - view.Bottom;
    const std::int32_t step = std::max(dots / 10, 1);
    const WaveView next =
        upright ? WithAmplitudes(wave, view.Top + amplitudes / 10 * notches, amplitudes)
                : WithDots(wave, static_cast<double>(view.Start) - step * notches, dots);
    if (!SameView(next, view)) ZoomTo(index, next);
}

void BringIntoView(AnalogWaveRecord& wave, std::int32_t dot) {
    const std::int32_t span = wave.ViewEnd - wave.ViewStart;
    if (dot < wave.ViewStart) SetView(wave, WithDots(wave, dot, span));
    if (dot > wave.ViewEnd) SetView(wave, WithDots(wave, dot - span, span));
}

bool PressScalePointer(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const double scale = wave.BackSurface.Scale();
    const double along = GripAlong * scale, across = GripAcross * scale;
    const PixelPoint vertical = VPointerPlace(wave), horizontal = HPointerPlace(wave);
    if (wave.YZoomed && std::abs(x - vertical.X) <= across && std::abs(y - vertical.Y) <= along) {
        wave.VPointerDragging = true;
        wave.VPointerSpan = wave.ViewTop - wave.ViewBottom;
        wave.PointerGrip = static_cast<float>(y) - wave.VPointerY;
        return true;
    }
    if (wave.XZoomed && std::abs(x - horizontal.X) <= along &&
        std::abs(y - horizontal.Y) <= across) {
        wave.HPointerDragging = true;
        wave.HPointerSpan = static_cast<double>(wave.ViewEnd - wave.ViewStart) / wave.MaxDots;
        wave.PointerGrip = static_cast<float>(x) - wave.HPointerX;
        return true;
    }
    return false;
}

void DragScalePointer(std::int16_t index, std::int32_t x, std::int32_t y) {
    AnalogWaveRecord& wave = AnalogAt(index);
    const PixelPoint plot = PlotOrigin(wave.BackSurface.Scale());
    WaveView view = ViewOf(wave);
    if (wave.VPointerDragging && wave.PlotHeight > 0) {
        const double room = wave.PlotHeight - PointerSpanPixels(wave);
        const double row = static_cast<double>(y) - static_cast<double>(wave.PointerGrip) - plot.Y;
        view.Top = 1.0 - 2.0 * std::clamp(row, 0.0, std::max(room, 0.0)) / wave.PlotHeight;
        view.Bottom = std::max(view.Top - wave.VPointerSpan, -1.0);
    } else if (wave.HPointerDragging && wave.PlotWidth > 0) {
        const double column =
            static_cast<double>(x) - static_cast<double>(wave.PointerGrip) - plot.X;
        view = WithDots(wave, column / wave.PlotWidth * wave.MaxDots,
                        RoundToInt(wave.HPointerSpan * wave.MaxDots));
    }
    if (SameView(view, ViewOf(wave))) return;
    SetView(wave, view);
    RepaintAnalog(index, true);
}

void ReleaseScalePointer(AnalogWaveRecord& wave) {
    wave.VPointerDragging = wave.HPointerDragging = false;
}
