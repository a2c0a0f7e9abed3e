#include "analog/AnalogDocument.h"

#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/Narrow.h"
#include "frame/StatusText.h"
#include "platform/Host.h"

#include <algorithm>

namespace {

// Pixels of the plot: two tenths of the width and one eighth of the height stay outside.
void SetDefaultLimits(AnalogWaveRecord& wave) {
    const auto width = static_cast<float>(wave.PlotWidth);
    const auto height = static_cast<float>(wave.PlotHeight);
    wave.XLimitLeft = width / 10.0F * 2.0F;
    wave.XLimitRight = width / 10.0F * 8.0F;
    wave.YLimitTop = height / 8.0F * 1.0F;
    wave.YLimitBottom = height / 8.0F * 7.0F - 1.0F;
}

void FillRecord(AnalogWaveRecord& wave, LoadedWave loaded) {
    AllocateDots(wave, loaded.MaxDots, std::move(loaded.DotArray));
    wave.Dots = loaded.Dots;
    wave.LastDot = loaded.LastDot;
    wave.SegmentCount = Narrow<std::int32_t>(std::ssize(loaded.Segments));
    wave.Segments = std::move(loaded.Segments);
    wave.Vpp = loaded.Vpp;
    wave.Period = loaded.Period;
    wave.Quantify = loaded.Quantify;
}

}  // namespace

void ResetDocumentState(AnalogWaveRecord& wave) {
    const AnalogWaveRecord fresh;
    ClearSelection(wave);
    wave.SelectionFlagA = wave.SelectionFlagB = false;
    wave.ExpandToSuit = wave.ExpandApplied = false;
    wave.ZoomXMode = wave.ZoomYMode = wave.ZoomRegionMode = wave.ZoomCenterMode = false;
    wave.XZoomed = wave.YZoomed = wave.ZoomUndoAvailable = false;
    wave.CursorTrackOn = false;
    wave.ZoomVY1Unit = wave.ZoomVY2Unit = wave.ZoomY1Unit = wave.ZoomY2Unit = 1;
    wave.XLimitOn = wave.YLimitOn = wave.RegionLimitOn = wave.LimitFixed = false;
    SetUndoAvailable(wave, false);
    SetResumeAvailable(wave, false);
    wave.HandDrawOn = wave.LineDrawOn = wave.PointEditOn = false;
    wave.DrawPressed = wave.LinePending = wave.TrackShown = false;
    wave.MouseArmed = wave.MouseMoved = false;
    wave.SelectMode = true;
    wave.TrackX = wave.TrackY = 0;
    wave.EntryBoxes = {};
    wave.LineX1 = fresh.LineX1;
    wave.LineY1 = fresh.LineY1;
    wave.LineX2 = fresh.LineX2;
    wave.LineY2 = fresh.LineY2;
    wave.ValueX = fresh.ValueX;
    wave.ValueY = fresh.ValueY;
    wave.LineY1Unit = wave.LineY2Unit = wave.ValueYUnit = 1;
    wave.SegmentMarkOn = wave.GridOn = wave.DotLinkOn = true;
    wave.TimeAxisOn = false;
}

void AllocateDots(AnalogWaveRecord& wave, std::int32_t maxDots, std::vector<WaveDot> dots) {
    const auto size = static_cast<std::size_t>(maxDots);
    dots.resize(size);
    wave.MaxDots = maxDots;
    wave.DotArray = std::move(dots);
    wave.UndoDotArray.assign(size, WaveDot{0.0, 0.0});
    wave.PixelMap.assign(size, 0);
    wave.Dots = wave.UndoDots = 0;
    wave.LastDot = wave.UndoLastDot = 0;
    wave.Segments.clear();
    wave.UndoSegments.clear();
    wave.SegmentCount = wave.UndoSegmentCount = 0;
    ShowWholeWave(wave);
}

void ShowWholeWave(AnalogWaveRecord& wave) {
    wave.ViewStart = 0;
    wave.ViewEnd = wave.MaxDots - 1;
    wave.ViewTop = 1.0;
    wave.ViewBottom = -1.0;
    wave.XZoomed = wave.YZoomed = wave.ZoomUndoAvailable = false;
    wave.ZoomXMode = wave.ZoomYMode = wave.ZoomRegionMode = wave.ZoomCenterMode = false;
    wave.ExpandToSuit = false;
}

bool DotsFull(const AnalogWaveRecord& wave) {
    return wave.Dots >= wave.MaxDots - 1;
}

bool RoomForDots(const AnalogWaveRecord& wave) {
    if (!DotsFull(wave)) return true;
    Complain(PickText("Waveform Dots up limit", "波形点数达到上限"));
    return false;
}

bool RoomForDocument() {
    return MayOpenAnother(AnalogDocCount);
}

void NewAnalogDocument() {
    if (!RoomForDocument()) return;
    PropertyConfirmed = false;
    PropertyEditMode = false;
    const std::int16_t active = ActiveAnalogIndex;  // the dialog turns to the first free slot
    TheHost().RunDialog("PropertyFrm", 0);
    if (!PropertyConfirmed) {
        ActiveAnalogIndex = active;
        return;
    }
    CreateAnalogDocument();
}

bool CreateAnalogDocument() {
    // Tested here as well: opening a file comes without the test of the command New.
    if (!RoomForDocument()) return false;
    const std::int16_t slot = ActiveAnalogIndex;
    AnalogWaveRecord& wave = ActiveAnalog();
    DocReady = false;
    DocBuilding = true;
    AnalogInUse[static_cast<std::size_t>(slot)] = true;
    wave.InUse = true;
    wave.Name = "Waveform" + std::to_string(slot);
    ++AnalogDocCount;
    ActiveIsDigital = false;
    ResetDocumentState(wave);
    TheHost().OpenWindow(slot);
    SetDefaultLimits(wave);
    wave.Saved = wave.Modified = false;
    wave.FileName.clear();
    wave.FolderName.clear();
    DocReady = true;
    PreviousActiveDoc = slot;
    TheHost().RefreshCommands();
    ShowTool(slot);
    RepaintAnalog(slot, true);
    DocBuilding = false;
    return true;
}

void CoverWithOneSegment(LoadedWave& loaded) {
    loaded.Segments.clear();
    if (loaded.Dots == 0) return;
    WaveSegment whole;
    whole.EndDot = loaded.Dots - 1;
    whole.DotCount = loaded.Dots;
    loaded.Segments.push_back(whole);
}

bool OpenLoadedWave(LoadedWave loaded) {
    if (!RoomForDocument()) return false;
    ActiveAnalogIndex = FirstFreeSlot(AnalogInUse);
    FillRecord(ActiveAnalog(), std::move(loaded));
    return CreateAnalogDocument();
}

std::int16_t ActiveDocumentIndex() {
    const std::int16_t tag = TheHost().ActiveWindowTag();
    if (tag < 0) return -1;
    ActiveIsDigital = tag >= FirstDigitTag;
    if (ActiveIsDigital)
        ActiveDigitIndex = static_cast<std::int16_t>(tag - FirstDigitTag);
    else
        ActiveAnalogIndex = tag;
    return tag;
}

bool QueryCloseDocument(std::int16_t index, bool (*save)(std::int16_t index)) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    return !wave.Modified || MayClose(wave.Name, index, save);
}

void DocumentClosed(std::int16_t index) {
    const auto slot = static_cast<std::size_t>(index);
    if (!AnalogInUse[slot]) return;
    AnalogInUse[slot] = false;
    --AnalogDocCount;
    AnalogDocs[slot] = AnalogWaveRecord();  // gives back dots and surfaces
    if (AnalogDocCount == 0) ShowStatus(26);
    TheHost().RefreshCommands();
}
