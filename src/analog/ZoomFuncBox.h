#pragma once
// The view of a document: zoom by boxes, by rubber bands and by the wheel, one level of zoom undo,
// and panning by the scale pointers. Every zoom keeps the view that it replaces.
#include "analog/DrawAnalogWave.h"

// Commands on the active document.
void ToggleExpandToSuit();
/// ZoomAresBtn: zooms by the boxes of the zoom tool that is on. An empty box, or a span too small
/// (1 dot, 0.001 of the amplitude), makes it do nothing.
void ApplyZoomBoxes();
/// ZoomNotAresBtn: the whole view, painted.
void CancelZoom();
/// Back to the view before the last zoom, once.
void UndoZoom();

/// The whole view without a repaint; a zoom tool ends, a drawing tool stays.
void LeaveZoom(std::int16_t index);

/// The view of a slot becomes 1/`factor` of viewStart..viewEnd, an even span of at least 2 dots
/// with `centre` in its middle. Next to an end of the document it shrinks around the centre; at the
/// end itself it becomes the smallest view that holds the dot.
void ZoomAroundCentre(std::int16_t index, std::int32_t centre, std::int32_t viewStart,
                      std::int32_t viewEnd, double factor, std::int32_t maxDots);

/// The mouse lets go of a zoom tool: zooms to the rubber band, or only repaints where it is too
/// small.
void ReleaseZoomBand(std::int16_t index);

/// Zooms in by `notches` of the mouse wheel (out where negative) so that what lies at the position
/// stays there: the dots, or with `upright` the amplitudes.
void ZoomByWheel(std::int16_t index, std::int32_t x, std::int32_t y, std::int32_t notches,
                 bool upright);
/// Moves the view by a tenth of its span per notch, to earlier dots or higher amplitudes.
void PanByWheel(std::int16_t index, std::int32_t notches, bool upright);
/// Moves the view just as far as the dot comes into it.
void BringIntoView(AnalogWaveRecord& wave, std::int32_t dot);

/// Takes hold of the scale pointer of a zoomed axis, 13 logical pixels along and 6 across its
/// place. Positions count from the window's plot area, its scales included. False where none is.
bool PressScalePointer(std::int16_t index, std::int32_t x, std::int32_t y);
/// Pans with the pointer, one full redraw.
void DragScalePointer(std::int16_t index, std::int32_t x, std::int32_t y);
void ReleaseScalePointer(AnalogWaveRecord& wave);
