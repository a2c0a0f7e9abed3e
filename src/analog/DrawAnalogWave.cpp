#include "analog/DrawAnalogWave.h"

#include "analog/ToolState.h"
#include "frame/GlobalDefineCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>

// A repaint stacks layers: WaveSurface keeps the grid, StaticSurface the grid with limit lines,
// PlotSurface what is shown; the scale labels stand on BackSurface around the plot. Only a full
// redraw makes the grid anew, every other repaint begins with a surface copy.

namespace {

constexpr std::int32_t VerticalDivisions = 8;
constexpr double LabelSize = 11.0;                        // logical pixels
constexpr std::int32_t LabelGap = 7;                      // between labels and the plot
constexpr double PointerReach = 6.0, PointerDepth = 4.0;  // half sizes of a scale pointer
constexpr double CurvePen = 1.4;                          // logical pixels
constexpr std::int32_t SparseSamples = 4;  // across a pixel, where single dots can be seen

std::int32_t PenOf(const Surface& plot, double linePen) {
    return std::max(1, Scaled(linePen, plot.Scale()));
}

// An upright or level line. A thick one stays on the plot with its whole width.
void DrawStraight(Surface& plot, PixelPoint from, PixelPoint to, Colour colour, double linePen,
                  bool dashed = false) {
    const std::int32_t pen = PenOf(plot, linePen);
    const bool upright = from.X == to.X;
    const std::int32_t room = (upright ? plot.Width() : plot.Height()) - pen;
    std::int32_t at = (upright ? from.X : from.Y) - pen / 2;
    if (pen > 1) at = std::clamp(at, 0, std::max(room, 0));
    for (const std::int32_t end = at + pen; at < end; ++at) {
        if (upright)
            plot.Line(at, from.Y, at, to.Y, colour, dashed);
        else
            plot.Line(from.X, at, to.X, at, colour, dashed);
    }
}

// The columns of the vertical grid lines and the dots they stand for.
struct GridLine {
    std::int32_t Dot, X;
};

std::vector<GridLine> VerticalLines(const WaveView& view, std::int32_t width) {
    std::vector<GridLine> lines;
    const std::int32_t span = view.End - view.Start;
    if (span <= 0) return lines;
    const GridDivision division = DivideSpan(span);
    for (std::int32_t i = 0; i <= division.Count; ++i) {
        const std::int64_t dot = std::int64_t{division.Step} * i;
        if (dot > span) break;  // a rounded step may run past the axis
        const double x = static_cast<double>(width) / span * static_cast<double>(dot);
        lines.push_back({view.Start + Narrow<std::int32_t>(dot), RoundToInt(x)});
    }
    // The scale ends with the last dot even where no division does.
    if (!lines.empty() && lines.back().Dot != view.End) lines.push_back({view.End, width});
    return lines;
}

void DrawGrid(Surface& plot, const WaveView& view, std::span<const GridLine> lines, Flag gridOn,
              const PlotColours& colours) {
    const std::int32_t right = plot.Width() - 1, bottom = plot.Height() - 1;
    const double pen = colours.LinePen;
    if (gridOn) {
        for (const GridLine& line : lines) {
            const std::int32_t x = std::min(line.X, right);
            DrawStraight(plot, {x, 0}, {x, bottom}, colours.Grid, pen);
        }
        for (std::int32_t i = 0; i <= VerticalDivisions; ++i) {
            const std::int32_t y = RoundToInt(static_cast<double>(bottom) / VerticalDivisions * i);
            DrawStraight(plot, {0, y}, {right, y}, colours.Grid, pen);
        }
    }
    DrawStraight(plot, {0, 0}, {0, bottom}, colours.Axis, pen);
    const std::int32_t zero = RoundToInt(ValueToPixel(0.0, view, plot.Height()));
    if (zero >= 0 && zero <= bottom)
        DrawStraight(plot, {0, zero}, {right, zero}, colours.Axis, pen);
}

void DrawDotLabels(Surface& back, std::span<const GridLine> lines, const PlotColours& colours,
                   const GridLabels& labels, std::int32_t plotHeight) {
    const double scale = back.Scale();
    const std::int32_t y = labels.Plot.Y + plotHeight + Scaled(5 + LabelSize / 2, scale);
    const std::int32_t gap = Scaled(6, scale);
    const double step = labels.Period / std::max(labels.MaxDots, 1);
    std::int32_t free = 0;  // left end of the room not yet written on
    for (const GridLine& line : lines) {
        const std::string text =
            labels.TimeAxisOn ? TimeToText(GeneralText(line.Dot * step)) : std::to_string(line.Dot);
        const std::int32_t half = back.TextWidth(text, LabelSize) / 2 + 1;
        const std::int32_t centre = std::min(labels.Plot.X + line.X, back.Width() - half);
        if (centre - half < free) continue;
        back.Text(centre, y, text, colours.Label, TextAlign::Centre, LabelSize);
        free = centre + half + gap;
    }
}

void DrawVoltLabels(Surface& back, const WaveView& view, const PlotColours& colours,
                    const GridLabels& labels, std::int32_t plotHeight) {
    const std::int32_t x = labels.Plot.X - Scaled(LabelGap, back.Scale());
    for (std::int32_t i = 0; i <= VerticalDivisions; ++i) {
        const double value = view.Top - (view.Top - view.Bottom) / VerticalDivisions * i;
        const double y = static_cast<double>(plotHeight - 1) / VerticalDivisions * i;
        back.Text(x, labels.Plot.Y + RoundToInt(y), VoltToText(GeneralText(value * labels.Vpp / 2)),
                  colours.Label, TextAlign::Right, LabelSize);
    }
}

// The rows that a curve covers, in `samples` narrow columns side by side in every pixel column. A
// pixel column reaches half a pixel to both sides of its middle.
class ColumnRuns {
public:
    ColumnRuns(std::vector<ColumnRun>& runs, std::int32_t width, std::int32_t samples)
        : runs_(runs), samples_(samples) {
        runs_.assign(static_cast<std::size_t>(width * samples), Empty);
    }
    void Cover(std::int32_t column, double low, double high) {
        const auto last = static_cast<std::int32_t>(runs_.size()) - 1;
        Join(runs_[static_cast<std::size_t>(std::clamp(column, 0, last))],
             {static_cast<float>(low), static_cast<float>(high)});
    }
    void CoverPoint(double x, double y) { Cover(ColumnOf(Narrowed(x)), y, y); }
    // The straight line between two points of rising x, cut at the borders of the columns.
    void CoverLine(double x1, double y1, double x2, double y2) {
        const auto last = static_cast<double>(runs_.size());
        const double begin = Narrowed(x1), end = Narrowed(x2);
        const double slope = end > begin ? (y2 - y1) / (end - begin) : 0.0;
        double x = std::max(begin, 0.0);
        double y = y1 + slope * (x - begin);
        const double stop = std::min(end, last);
        for (std::int32_t column = ColumnOf(x); x < stop; ++column) {
            x = std::min(column + 1.0, stop);
            const double next = y1 + slope * (x - begin);
            Cover(column, std::min(y, next), std::max(y, next));
            y = next;
        }
        // A jump within one column, and the view's last dot, which lies on the border.
        if (end >= 0.0 && begin <= last) Cover(ColumnOf(stop), std::min(y, y2), std::max(y, y2));
    }
    // Draws the runs with a round pen: each spreads over the columns within its radius, dense ones
    // over those within the radius of the least pen.
    void Stroke(double pen, double leastPen, std::vector<ColumnRun>& stroked) const {
        const double radius = pen / 2;
        const double spread = samples_ == 1 ? std::min(leastPen, pen) / 2 : radius * samples_;
        const auto reach = static_cast<std::int32_t>(std::floor(spread));
        stroked.assign(runs_.size(), Empty);
        for (std::int32_t offset = -reach; offset <= reach; ++offset) {
            const double across = static_cast<double>(offset) / samples_;
            const auto half = static_cast<float>(std::sqrt(radius * radius - across * across));
            const auto size = static_cast<std::int32_t>(runs_.size());
            for (std::int32_t i = std::max(0, -offset); i < std::min(size, size - offset); ++i) {
                const ColumnRun& run = runs_[static_cast<std::size_t>(i)];
                if (run.Top <= run.Bottom)
                    Join(stroked[static_cast<std::size_t>(i + offset)],
                         {run.Top + 0.5F - half, run.Bottom + 0.5F + half});
            }
        }
    }

private:
    static constexpr ColumnRun Empty{1.0F, 0.0F};
    static std::int32_t ColumnOf(double x) { return static_cast<std::int32_t>(std::floor(x)); }
    static void Join(ColumnRun& run, ColumnRun more) {
        if (run.Top > run.Bottom) {
            run = more;
            return;
        }
        run.Top = std::min(run.Top, more.Top);
        run.Bottom = std::max(run.Bottom, more.Bottom);
    }
    double Narrowed(double x) const { return (x + 0.5) * samples_; }

    std::vector<ColumnRun>& runs_;
    std::int32_t samples_;
};

void CoverSparse(ColumnRuns& runs, const WaveView& view, std::span<const WaveDot> dots,
                 std::int32_t first, std::int32_t last, const Surface& plot) {
    const std::int32_t width = plot.Width(), height = plot.Height();
    const WaveDot& begin = dots[static_cast<std::size_t>(first)];
    double x = DotToPixel(begin.X, view, width);
    double y = ValueToPixel(begin.Y, view, height);
    runs.CoverPoint(x, y);
    for (std::int32_t i = first + 1; i <= last; ++i) {
        const WaveDot& dot = dots[static_cast<std::size_t>(i)];
        const double nextX = DotToPixel(dot.X, view, width);
        const double nextY = ValueToPixel(dot.Y, view, height);
        runs.CoverLine(x, y, nextX, nextY);
        x = nextX;
        y = nextY;
    }
}

// Several dots to a column: its largest and smallest, the last dot of the column before among
// them, since a line leads from there.
void CoverDense(ColumnRuns& runs, const WaveView& view, std::span<const WaveDot> dots,
                std::int32_t first, std::int32_t last, const Surface& plot) {
    const std::int32_t width = plot.Width(), height = plot.Height();
    const double perColumn = static_cast<double>(view.End - view.Start) / width;
    std::int32_t from = first;
    for (std::int32_t column = 0; column < width && from <= last; ++column) {
        const bool final = column == width - 1;
        const double border = view.Start + (column + 0.5) * perColumn;
        const std::int32_t to =
            final ? last : std::min(last, static_cast<std::int32_t>(std::ceil(border)) - 1);
        if (to < from) continue;
        const std::int32_t begin = std::max(from - 1, first);
        std::int32_t maxPos = 0, minPos = 0;
        double maxY = 0.0, minY = 0.0;
        MaxMin(&dots[static_cast<std::size_t>(begin)], begin, to - begin + 1, &maxPos, &minPos,
               &maxY, &minY);
        runs.Cover(column, ValueToPixel(maxY, view, height), ValueToPixel(minY, view, height));
        from = to + 1;
    }
}

void DrawPoints(Surface& plot, const WaveView& view, std::span<const WaveDot> dots,
                std::int32_t first, std::int32_t last, Colour colour, std::int32_t pen) {
    const std::int64_t most =
        std::min<std::int64_t>(last - first + 1, std::int64_t{plot.Width()} * plot.Height());
    static std::vector<PixelPoint> room;  // kept from paint to paint
    room.resize(static_cast<std::size_t>(most));
    static_assert(sizeof(PixelPoint) == 2 * sizeof(std::int32_t));
    const std::int32_t count =
        PlotWaveDot(dots.data(), &room.data()->X, first, last, plot.Width(), plot.Height(),
                    view.Top, view.Bottom, view.Start, view.End);
    const auto pixels = std::span(room).first(static_cast<std::size_t>(count));
    if (pen == 1) return plot.Points(pixels, colour);
    for (const auto& [x, y] : pixels) {
        const std::int32_t left = x - pen / 2, top = y - pen / 2;
        plot.FillBox(left, top, left + pen - 1, top + pen - 1, colour);
    }
}

// Keeps the drawn edge while it moves by no more than a pixel, so that a dragged bar does not
// jitter.
std::int32_t SteadyEdge(std::int32_t edge, std::int32_t drawn) {
    return std::abs(std::int64_t{edge} - drawn) <= 1 ? drawn : edge;
}

void DrawSelection(AnalogWaveRecord& wave, const WaveView& view) {
    const std::int32_t width = wave.PlotSurface.Width();
    if (width == 0 || view.End <= view.Start) return;
    const std::int32_t left = RoundToInt(DotToPixel(wave.SelStart, view, width));
    const std::int32_t right = RoundToInt(DotToPixel(wave.SelEnd, view, width));
    wave.SelPixelLeft = SteadyEdge(left, wave.SelPixelLeft);
    wave.SelPixelRight = SteadyEdge(right, wave.SelPixelRight);
    DrawSelectionBar(wave, 0, width - 1);
}

}  // namespace

const PlotColours& ColoursOf(const AnalogWaveRecord& wave) {
    return wave.PrintMode ? PrintColours : ScreenColours;
}

WaveView ViewOf(const AnalogWaveRecord& wave) {
    return {wave.ViewStart, wave.ViewEnd, wave.ViewTop, wave.ViewBottom};
}

double DotToPixel(double dot, const WaveView& view, std::int32_t width) {
    const double span = view.End - view.Start;
    return span > 0.0 ? (dot - view.Start) / span * width : 0.0;
}

double ValueToPixel(double value, const WaveView& view, std::int32_t height) {
    const double span = view.Top - view.Bottom;
    return span > 0.0 ? (view.Top - value) / span * (height - 1) : 0.0;
}

std::int32_t PixelToDot(double x, const WaveView& view, std::int32_t width) {
    if (width <= 0) return view.Start;
    return RoundToInt(view.Start + x * (static_cast<double>(view.End) - view.Start) / width);
}

double PixelToValue(double y, const WaveView& view, std::int32_t height) {
    if (height <= 1) return view.Top;
    return view.Top - y * (view.Top - view.Bottom) / (height - 1);
}

PixelPoint PixelOf(const AnalogWaveRecord& wave, std::int32_t dot, double value) {
    const WaveView view = ViewOf(wave);
    return {RoundToInt(DotToPixel(dot, view, wave.PlotWidth)),
            RoundToInt(ValueToPixel(value, view, wave.PlotHeight))};
}

GridDivision DivideSpan(std::int32_t span) {
    if (span <= 0) return {0, 0, true};
    if (span >= 1000) return {10, RoundToInt(span / 10.0), true};
    if (span >= 100) {
        if (span % 10 == 0) return {10, span / 10, true};
        return {9, RoundToInt(span / 10.0 + 0.1), false};
    }
    if (span >= 11) {
        if (span % 10 == 0) return {span / 10, 10, true};
        // The last line keeps clear of the label at the right end.
        return {span / 10 - (10 - span % 10 > 5 ? 1 : 0), 10, false};
    }
    return {span, 1, true};
}

void DrawGridAndLabels(Surface& plot, const WaveView& view, Flag gridOn, const PlotColours& colours,
                       Surface* back, const GridLabels* labels) {
    plot.Fill(colours.Back);
    const std::vector<GridLine> lines = VerticalLines(view, plot.Width());
    DrawGrid(plot, view, lines, gridOn, colours);
    if (back == nullptr || labels == nullptr) return;
    back->Fill(colours.Surround);
    DrawDotLabels(*back, lines, colours, *labels, plot.Height());
    DrawVoltLabels(*back, view, colours, *labels, plot.Height());
}

void DrawWaveCurve(Surface& plot, const WaveView& view, std::span<const WaveDot> dots,
                   Flag dotLinkOn, Colour colour, double linePen) {
    const auto count = Narrow<std::int32_t>(dots.size());
    const std::int32_t first = std::max(view.Start, 0);
    const std::int32_t last = std::min(view.End, count - 1);
    if (plot.IsNull() || view.End <= view.Start || view.Top <= view.Bottom || last < first) return;
    if (!dotLinkOn) {
        DrawPoints(plot, view, dots, first, last, colour, PenOf(plot, linePen));
        return;
    }
    const bool sparse = (view.End - view.Start) / (2 * plot.Width()) <= 1;
    const std::int32_t samples = sparse ? SparseSamples : 1;
    static std::vector<ColumnRun> covered, stroked;  // kept from paint to paint
    ColumnRuns runs(covered, plot.Width(), samples);
    if (sparse)
        CoverSparse(runs, view, dots, first, last, plot);
    else
        CoverDense(runs, view, dots, first, last, plot);
    runs.Stroke(CurvePen * plot.Scale(), linePen * plot.Scale(), stroked);
    plot.FillColumns(0, stroked, samples, colour);
}

void DrawSegmentMarks(Surface& plot, const WaveView& view, std::span<const WaveSegment> segments,
                      Colour colour) {
    if (view.End <= view.Start) return;
    const std::int32_t bottom = plot.Height() - 1;
    const std::int32_t top = bottom - Scaled(SegmentMarkHeight, plot.Scale());
    const std::int32_t half = std::max(1, Scaled(1.0, plot.Scale()));
    for (const WaveSegment& segment : segments) {
        if (segment.EndDot > view.End) break;
        if (segment.EndDot < view.Start) continue;
        const std::int32_t x = RoundToInt(DotToPixel(segment.EndDot, view, plot.Width()));
        plot.FillBox(x - half, top, x + half, bottom, colour);
    }
}

void DrawMarksAndCurve(const AnalogWaveRecord& wave, const WaveView& view, Surface& plot) {
    const PlotColours& colours = ColoursOf(wave);
    if (wave.SegmentMarkOn)
        DrawSegmentMarks(
            plot, view, std::span(wave.Segments).first(static_cast<std::size_t>(wave.SegmentCount)),
            colours.Mark);
    DrawWaveCurve(plot, view, std::span(wave.DotArray).first(static_cast<std::size_t>(wave.Dots)),
                  wave.DotLinkOn, colours.Curve, colours.LinePen);
}

void DrawLimitLines(const AnalogWaveRecord& wave, Surface& plot, const PlotColours& colours) {
    const std::int32_t lastColumn = plot.Width() - 1, lastRow = plot.Height() - 1;
    const auto at = [](float line, std::int32_t last) { return std::min(RoundToInt(line), last); };
    const std::int32_t left = at(wave.XLimitLeft, lastColumn);
    const std::int32_t right = at(wave.XLimitRight, lastColumn);
    const std::int32_t top = at(wave.YLimitTop, lastRow);
    const std::int32_t bottom = at(wave.YLimitBottom, lastRow);
    // With both pairs on, each line ends at the other pair, so that a rectangle is seen.
    const bool both = wave.XLimitOn && wave.YLimitOn;
    const auto [low, high] = std::minmax(top, bottom);
    const auto [near, far] = std::minmax(left, right);
    if (wave.XLimitOn)
        for (const std::int32_t x : {left, right})
            DrawStraight(plot, {x, both ? low : 0}, {x, both ? high : lastRow}, colours.Limit,
                         colours.LinePen, true);
    if (wave.YLimitOn)
        for (const std::int32_t y : {top, bottom})
            DrawStraight(plot, {both ? near : 0, y}, {both ? far : lastColumn, y}, colours.Limit,
                         colours.LinePen, true);
}

void DrawCross(Surface& plot, PixelPoint at, double across, double down) {
    const std::int32_t x = Scaled(across, plot.Scale()), y = Scaled(down, plot.Scale());
    plot.Line(at.X - x, at.Y, at.X + x, at.Y, RubberColour);
    plot.Line(at.X, at.Y - y, at.X, at.Y + y, RubberColour);
}

bool LimitDragged(const AnalogWaveRecord& wave) {
    return wave.DragLimitLeft || wave.DragLimitRight || wave.DragLimitTop || wave.DragLimitBottom;
}

void DrawSelectionBar(AnalogWaveRecord& wave, std::int32_t first, std::int32_t last) {
    Surface& plot = wave.PlotSurface;
    const auto [left, right] = std::minmax({wave.SelPixelLeft, wave.SelPixelRight});
    plot.SetMode(DrawMode::NotXor);
    plot.FillBox(std::max(left, first), 0, std::min(right, last), plot.Height() - 1,
                 SelectionColour);
    plot.SetMode(DrawMode::Copy);
}

PixelPoint PlotOrigin(double scale) {
    return {Scaled(LabelGutter + WaveAreaLeft, scale), Scaled(WaveAreaTop, scale)};
}

PixelPoint VPointerPlace(const AnalogWaveRecord& wave) {
    return {Scaled(wave.VPointerX, wave.BackSurface.Scale()), RoundToInt(wave.VPointerY)};
}

PixelPoint HPointerPlace(const AnalogWaveRecord& wave) {
    const double scale = wave.BackSurface.Scale();
    const std::int32_t above = Scaled(wave.HPointerY, scale) + Scaled(PointerDepth, scale);
    return {RoundToInt(wave.HPointerX), PlotOrigin(scale).Y - above};
}

void DrawScalePointers(AnalogWaveRecord& wave, const PlotColours& colours) {
    Surface& back = wave.BackSurface;
    const double scale = back.Scale();
    const PixelPoint plot = PlotOrigin(scale);
    wave.VPointerY = static_cast<float>(plot.Y + (1.0 - wave.ViewTop) / 2.0 * wave.PlotHeight);
    wave.HPointerX = static_cast<float>(plot.X + static_cast<double>(wave.ViewStart) /
                                                     std::max(wave.MaxDots, 1) * wave.PlotWidth);
    const std::int32_t reach = Scaled(PointerReach, scale), depth = Scaled(PointerDepth, scale);
    if (wave.YZoomed) {
        const auto [x, y] = VPointerPlace(wave);
        const PixelPoint arrow[] = {
            {x - depth, y - reach}, {x + depth, y}, {x - depth, y + reach}, {x - depth, y - reach}};
        back.Polyline(arrow, colours.Pointer);
    }
    if (wave.XZoomed) {
        const auto [x, y] = HPointerPlace(wave);
        const PixelPoint arrow[] = {
            {x - reach, y - depth}, {x, y + depth}, {x + reach, y - depth}, {x - reach, y - depth}};
        back.Polyline(arrow, colours.Pointer);
    }
}

void ScaleLimits(AnalogWaveRecord& wave, std::int32_t width, std::int32_t height) {
    if (wave.PlotWidth <= 0 || wave.PlotHeight <= 0) return;
    const float across = static_cast<float>(width) / static_cast<float>(wave.PlotWidth);
    const float down = static_cast<float>(height) / static_cast<float>(wave.PlotHeight);
    for (float* column : {&wave.XLimitLeft, &wave.XLimitRight}) *column *= across;
    for (float* row : {&wave.YLimitTop, &wave.YLimitBottom}) *row *= down;
}

void LayoutAnalogSurfaces(AnalogWaveRecord& wave, std::int32_t backWidth, std::int32_t backHeight,
                          double scale) {
    const std::int32_t width = std::max(backWidth - Scaled(WaveMarginWidth, scale), 2);
    const std::int32_t height = std::max(backHeight - Scaled(WaveMarginHeight, scale), 2);
    ScaleLimits(wave, width, height);
    wave.PlotWidth = width;
    wave.PlotHeight = height;
    if (!wave.DrawPressed) EndDrag(wave);        // the picture that it began from is gone
    wave.SelectionDragging = wave.HasSelection;  // its dots count now, the columns have moved
    wave.BackSurface.Create(backWidth + Scaled(LabelGutter, scale), backHeight, scale);
    for (Surface* layer :
         {&wave.PlotSurface, &wave.GridSurface, &wave.WaveSurface, &wave.StaticSurface})
        layer->Create(width, height, scale);
}

void RepaintAnalog(std::int16_t index, Flag fullRedraw) {
    if (index < 0 || index > MaxDocuments) return;
    AnalogWaveRecord& wave = AnalogAt(index);
    const PlotColours& colours = ColoursOf(wave);
    if (wave.ExpandToSuit && wave.Dots > 1) {
        wave.ViewStart = 0;
        wave.ViewEnd = wave.Dots - 1;
        wave.ExpandApplied = true;
        fullRedraw = true;
    }
    const WaveView view = ViewOf(wave);
    Surface& plot = wave.PlotSurface;
    if (fullRedraw) {
        const GridLabels labels = {wave.Vpp, wave.Period, wave.MaxDots, wave.TimeAxisOn,
                                   PlotOrigin(wave.BackSurface.Scale())};
        DrawGridAndLabels(wave.WaveSurface, view, wave.GridOn, colours, &wave.BackSurface, &labels);
        DrawScalePointers(wave, colours);
    }
    // A line under the mouse is drawn on top by its drag.
    const bool limits = (wave.XLimitOn || wave.YLimitOn) && !LimitDragged(wave);
    if (limits) {
        wave.StaticSurface.CopyFrom(wave.WaveSurface);
        DrawLimitLines(wave, wave.StaticSurface, colours);
    }
    plot.CopyFrom(limits ? wave.StaticSurface : wave.WaveSurface);
    DrawMarksAndCurve(wave, view, plot);
    if (wave.HasSelection && !wave.PrintMode) DrawSelection(wave, view);
    // The guide of a line under way begins from the plot as it now is.
    if (wave.LinePending) wave.GridSurface.CopyFrom(plot);
    if (wave.TrackShown && wave.TrackDot < wave.Dots)
        DrawCross(plot, PixelOf(wave, wave.TrackDot, wave.TrackValue));
    TheHost().ShowPlot(index);
}
