#pragma once
// Painter of analog documents: maps dots and amplitudes to pixels and draws grid, scale labels,
// curve, limit lines, segment marks, scale pointers and selection bar on surfaces. It knows no
// window. Horizontally a view spans W pixels, vertically H - 1: both directions keep it.
#include "frame/PlotPalette.h"
#include "frame/records/AnalogWaveRecord.h"

#include <span>

struct WaveView {
    std::int32_t Start, End;  // dots, inclusive; a view of no width shows nothing
    double Top, Bottom;       // normalised amplitudes
};

struct PlotColours {
    Colour Surround, Back, Grid, Axis, Label, Curve, Limit, Mark, Pointer;
    double LinePen = 0.0;  // of straight lines and single dots, logical pixels; 0: a device pixel
};

/// Room for wide scale texts to the left of the back area, logical pixels.
inline constexpr std::int32_t LabelGutter = 28;
/// Segment marks stand on the plot's bottom, logical pixels.
inline constexpr double SegmentMarkHeight = 14.0;
extern const PlotColours& ScreenColours;  // as the user chose them, see ScreenColours.h
extern const PlotColours PrintColours;
const PlotColours& ColoursOf(const AnalogWaveRecord& wave);
inline constexpr Colour RubberColour = 0x00FF00;

/// What the labels of a grid need beside the view: the plot's place and the document's scales.
struct GridLabels {
    double Vpp;            // volts
    double Period;         // seconds
    std::int32_t MaxDots;  // dots in Period
    Flag TimeAxisOn;
    PixelPoint Plot;  // top left of the plot on the back surface, device pixels
};

WaveView ViewOf(const AnalogWaveRecord& wave);

/// Pixel of a dot and of an amplitude on a plot of `width` by `height`, not rounded. A view of no
/// span gives 0.
double DotToPixel(double dot, const WaveView& view, std::int32_t width);
double ValueToPixel(double value, const WaveView& view, std::int32_t height);
/// Dot (nearest, ties to even) and amplitude of a pixel.
std::int32_t PixelToDot(double x, const WaveView& view, std::int32_t width);
double PixelToValue(double y, const WaveView& view, std::int32_t height);

/// Pixel of a dot and of an amplitude in the document's view, rounded.
PixelPoint PixelOf(const AnalogWaveRecord& wave, std::int32_t dot, double value);

// Vertical grid lines: Count divisions of Step dots; Exact when they end at the axis' end.
struct GridDivision {
    std::int32_t Count, Step;
    bool Exact;
};
GridDivision DivideSpan(std::int32_t span);

/// Fills the plot and draws its grid (with `gridOn`) or its two axes; with `labels`, writes the
/// scale texts around the plot on `back`.
void DrawGridAndLabels(Surface& plot, const WaveView& view, Flag gridOn, const PlotColours& colours,
                       Surface* back, const GridLabels* labels);

/// Draws dots `view.Start`..`view.End` that exist. Joined dots cover one run of rows in every pixel
/// column, so that each peak shows at any zoom and the work is one pass over the dots. `linePen` is
/// the least width of what is drawn, as in PlotColours.
void DrawWaveCurve(Surface& plot, const WaveView& view, std::span<const WaveDot> dots,
                   Flag dotLinkOn, Colour colour, double linePen = 0.0);

/// A short bar at the end of every segment inside the view.
void DrawSegmentMarks(Surface& plot, const WaveView& view, std::span<const WaveSegment> segments,
                      Colour colour);

/// The segment marks of a document, where they are on, and its curve, in its colours.
void DrawMarksAndCurve(const AnalogWaveRecord& wave, const WaveView& view, Surface& plot);

/// Draws the limit lines of the pairs that are on.
void DrawLimitLines(const AnalogWaveRecord& wave, Surface& plot, const PlotColours& colours);

/// True while a limit line follows the mouse; the painter then leaves the lines to the drag.
bool LimitDragged(const AnalogWaveRecord& wave);

/// A cross in the rubber colour; the reach of its arms in logical pixels.
inline constexpr double MarkArm = 10.0;
void DrawCross(Surface& plot, PixelPoint at, double across = MarkArm, double down = MarkArm);

/// Draws the columns first..last of the bar between the two edges of the selection, in any order.
void DrawSelectionBar(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last);

/// Top left of the plot on the back surface, device pixels.
PixelPoint PlotOrigin(double scale);

/// Where the middle of a scale pointer stands on the back surface.
PixelPoint VPointerPlace(const AnalogWaveRecord& wave);
PixelPoint HPointerPlace(const AnalogWaveRecord& wave);

/// Draws the pointers of the zoomed axes beside the plot and stores their places.
void DrawScalePointers(AnalogWaveRecord& wave, const PlotColours& colours);

/// Moves the limit lines from the present plot to one of another size, where they stand alike.
void ScaleLimits(AnalogWaveRecord& wave, std::int32_t width, std::int32_t height);

/// Makes all surfaces of a document for a back area of the given size (device pixels) and scale,
/// and moves the limit lines with the plot. A drag ends, but for a stroke. Surfaces that cannot be
/// made stay null.
void LayoutAnalogSurfaces(AnalogWaveRecord& wave, std::int32_t backWidth, std::int32_t backHeight,
                          double scale);

/// Paints the document of a slot and asks the host to show it. `fullRedraw` rebuilds the grid and
/// the labels, needed where the view, a scale or a display flag changed.
void RepaintAnalog(std::int16_t index, Flag fullRedraw);
