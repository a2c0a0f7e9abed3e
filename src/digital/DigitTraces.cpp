#include "digital/DigitTraces.h"

#include "digital/DigitFuncCode.h"
#include "digital/DrawDigitWave.h"
#include "digital/RadixText.h"
#include "frame/Narrow.h"
#include "kernel/wavecalc.h"

#include <algorithm>
#include <cmath>

// A row is first cut into cells, runs of columns that are drawn alike: those of one value, and
// zoomed out the busy ones, in each of which the value changes. Then the cells are drawn, a step
// line or a band. So the work is bounded by the dots of the page (zoomed in, at most one to a
// column) or by one pass over them for all channels and the columns of each row (zoomed out).

namespace {

constexpr double LevelGap = 6.0;    // between a level and the border of its row, logical pixels
constexpr double Slant = 4.0;       // length of a band's slanted end
constexpr double TextGap = 3.0;     // on both sides of a value
constexpr double ValueSize = 11.0;  // of the text
constexpr double LowShare = 0.72, TintShare = 0.16, BusyShare = 0.45, MemberShare = 0.78;
constexpr std::int32_t EndSamples = 4;  // narrow columns in one of a slanted end
constexpr std::int32_t LongestSlant = 32;

struct Cell {
    std::int32_t Left, Right;  // columns Left..Right-1
    std::int32_t Value;        // of a cell that is not busy
    bool Busy;
    bool Narrow;  // its line would fill it
};

// The channels behind a row.
struct Source {
    DigitTarget Target;
    std::span<const std::uint8_t> Channels;
    std::int32_t Mask;    // a bit for each of them
    std::int32_t Length;  // dots from here on read 0
    std::int32_t Narrow;  // columns below which its lines fill a cell
};

// Kept from paint to paint.
std::vector<std::int32_t> firstDots, changed;  // of the columns, zoomed out
std::vector<Cell> cells;

Source SourceOf(const DigitDocument& document, const DigitPage& page, DigitTarget target) {
    const DigitNode& node = NodeAt(document, target.Node);
    Source source{target, ChannelsOf(document, target), 0, 0, 0};
    for (const std::uint8_t channel : source.Channels) source.Mask |= 1 << channel;
    source.Length = std::min(node.DataLength, document.SampleCount);
    source.Narrow = (source.Channels.size() > 1 ? 3 : 2) * PenOf(page.Scale);
    return source;
}

// --- cells -------------------------------------------------------------------------------------

// Where the value changes next, page.End where it stays.
std::int32_t NextChange(const DigitDocument& document, const DigitPage& page, const Source& source,
                        std::int32_t from, std::int32_t value) {
    const std::int32_t bound = std::min(source.Length, page.End);
    if (from >= bound) return page.End;
    const std::int32_t next =
        GetBusDifPos(document.DigitSamples.data(), from, bound, source.Channels.data(),
                     Narrow<std::int16_t>(source.Channels.size()));
    if (next < bound) return next;
    return value != 0 ? bound : page.End;
}

void CutByDot(const DigitDocument& document, const DigitPage& page, const Source& source) {
    const double narrow = source.Narrow * page.ColumnDots;  // dots
    std::int32_t left = 0;
    for (std::int32_t dot = page.First; dot < page.End && left < page.EndColumn;) {
        const std::int32_t value = ValueAt(document, source.Target, dot);
        const std::int32_t next = NextChange(document, page, source, dot, value);
        const std::int32_t right = next < page.End
                                       ? std::min(ColumnOfDot(document, page, next), page.EndColumn)
                                       : page.EndColumn;
        cells.push_back({left, right, value, false, next - dot < narrow});
        left = right;
        dot = next;
    }
}

// One pass over the dots of the page, for all rows.
void ReadColumns(const DigitDocument& document, const DigitPage& page) {
    const auto count = static_cast<std::size_t>(page.EndColumn);
    firstDots.resize(count + 1);
    changed.assign(count, 0);
    for (std::int32_t column = 0; column <= page.EndColumn; ++column)
        firstDots[static_cast<std::size_t>(column)] = FirstDotOf(document, page, column);
    GetColumnChanges(document.DigitSamples.data(), document.SampleCount, firstDots.data(),
                     page.EndColumn, changed.data());
}

// The columns of one row, with what a node that ends before the samples changes.
struct RowColumns {
    std::int32_t Mask;
    std::int32_t LastColumn;   // no column behind it changes
    std::int32_t LastChanges;  // what changes in it
    bool IsBusy(std::int32_t column) const {
        if (column >= LastColumn) return column == LastColumn && (LastChanges & Mask) != 0;
        return (changed[static_cast<std::size_t>(column)] & Mask) != 0;
    }
};

RowColumns ColumnsOfRow(const DigitDocument& document, const DigitPage& page,
                        const Source& source) {
    RowColumns row{source.Mask, page.EndColumn, 0};
    if (source.Length >= std::min(page.End, document.SampleCount)) return row;
    if (source.Length <= page.First) return {source.Mask, -1, 0};
    row.LastColumn = ColumnOfDot(document, page, source.Length);
    if (row.LastColumn >= page.EndColumn) return row;
    // The column before comes along, since the dot before a column decides on its left edge.
    const std::int32_t from = std::max(row.LastColumn - 1, 0);
    std::int32_t found[2] = {};
    GetColumnChanges(document.DigitSamples.data(), source.Length,
                     &firstDots[static_cast<std::size_t>(from)], row.LastColumn - from + 1, found);
    row.LastChanges = found[row.LastColumn - from];
    return row;
}

// A single busy column between two calm ones is the edge that the next cell begins with.
void CutByColumn(const DigitDocument& document, const DigitPage& page, const Source& source) {
    const RowColumns row = ColumnsOfRow(document, page, source);
    std::int32_t left = 0;
    for (std::int32_t column = 0; column < page.EndColumn;) {
        const bool busy = row.IsBusy(column);
        std::int32_t right = column + 1;
        while (right < page.EndColumn && row.IsBusy(right) == busy) ++right;
        const bool edge = busy && right - column == 1 && column > 0 && right < page.EndColumn;
        if (!edge) {
            const std::int32_t dot = firstDots[static_cast<std::size_t>(column)];
            const std::int32_t value = busy ? 0 : ValueAt(document, source.Target, dot);
            const bool narrow = busy || right - left < source.Narrow;
            cells.push_back({left, right, value, busy, narrow});
            left = right;
        }
        column = right;
    }
}

// Several narrow cells side by side cannot be told apart: together they are a busy one.
void JoinNarrow() {
    constexpr std::size_t least = 3;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < cells.size();) {
        std::size_t end = i;
        while (end < cells.size() && cells[end].Narrow) ++end;
        if (end - i >= least) {
            cells[kept++] = {cells[i].Left, cells[end - 1].Right, 0, true, true};
            i = end;
        } else {
            for (end = std::max(end, i + 1); i < end; ++i) cells[kept++] = cells[i];
        }
    }
    cells.resize(kept);
}

// --- step lines --------------------------------------------------------------------------------

// Line, low level and grounds of a trace, on the plot's ground or on that of a selection.
struct Shades {
    Colour Line, Low, Tint, Busy;
};

Shades ShadesOf(Colour ground, Colour line) {
    return {line, MixColours(ground, line, LowShare), MixColours(ground, line, TintShare),
            MixColours(ground, line, BusyShare)};
}

// The rows of pixels between which a trace swings: the line of the high level begins at High, that
// of the low level at Low, Pen pixels thick.
struct TraceLevels {
    std::int32_t High, Low, Pen;
    std::int32_t End() const { return Low + Pen - 1; }
};

TraceLevels LevelsOf(RowBox box, double scale) {
    const std::int32_t gap = Scaled(LevelGap, scale), pen = PenOf(scale);
    return {box.Top + gap, box.Bottom - gap - pen, pen};
}

struct RowPaint {
    Surface& Picture;
    TraceLevels At;
    Shades Plain, Selected;
    ColumnSpan Selection;
};

// A ground between two rows, both included, in the columns left..right.
void FillGround(const RowPaint& row, std::int32_t left, std::int32_t right, std::int32_t top,
                std::int32_t bottom, Colour Shades::*shade) {
    row.Picture.FillBox(left, top, right, bottom, row.Plain.*shade);
    row.Picture.FillBox(std::max(left, row.Selection.Left), top,
                        std::min(right, row.Selection.Right), bottom, row.Selected.*shade);
}

void DrawFrame(const RowPaint& row, std::int32_t left, std::int32_t right, Colour Shades::*ground) {
    const TraceLevels& at = row.At;
    FillGround(row, left, right - 1, at.High + at.Pen, at.Low - 1, ground);
    row.Picture.FillBox(left, at.High, right - 1, at.High + at.Pen - 1, row.Plain.Line);
    row.Picture.FillBox(left, at.Low, right - 1, at.End(), row.Plain.Line);
}

void DrawStroke(const RowPaint& row, std::int32_t column) {
    row.Picture.FillBox(column, row.At.High, column + row.At.Pen - 1, row.At.End(), row.Plain.Line);
}

void DrawSteps(const RowPaint& row) {
    const TraceLevels& at = row.At;
    bool edge = false;  // none at the page's left end
    for (const Cell& cell : cells) {
        const std::int32_t last = cell.Right - 1;
        if (cell.Busy) {
            DrawFrame(row, cell.Left, cell.Right, &Shades::Busy);
            DrawStroke(row, cell.Left);
            DrawStroke(row, std::max(cell.Right - at.Pen, cell.Left));
        } else if (cell.Value != 0) {
            FillGround(row, cell.Left, last, at.High + at.Pen, at.End(), &Shades::Tint);
            row.Picture.FillBox(cell.Left, at.High, last, at.High + at.Pen - 1, row.Plain.Line);
        } else {
            row.Picture.FillBox(cell.Left, at.Low, last, at.End(), row.Plain.Low);
        }
        if (edge && !cell.Busy) DrawStroke(row, cell.Left);
        edge = !cell.Busy;
    }
}

// --- bands -------------------------------------------------------------------------------------

// One slanted end of `length` columns from column x0 on; `opens`: the band widens to the right.
void DrawSlant(const RowPaint& row, std::int32_t x0, std::int32_t length, bool opens) {
    const auto count = static_cast<std::size_t>(length * EndSamples);
    std::array<ColumnRun, static_cast<std::size_t>(LongestSlant * EndSamples)> outer{}, inner{};
    const double half = (row.At.End() + 1 - row.At.High) / 2.0, middle = row.At.High + half;
    const double slope = half / length;
    const double wall = row.At.Pen * std::sqrt(1.0 + slope * slope);  // the pen, measured upright
    for (std::size_t i = 0; i < count; ++i) {
        const double share =
            (static_cast<double>(opens ? i : count - 1 - i) + 0.5) / static_cast<double>(count);
        const double reach = share * half;
        const double hollow = std::min(reach - wall, half - row.At.Pen);
        outer[i] = {static_cast<float>(middle - reach), static_cast<float>(middle + reach)};
        inner[i] = {static_cast<float>(middle - hollow), static_cast<float>(middle + hollow)};
    }
    const bool selected = x0 >= row.Selection.Left && x0 <= row.Selection.Right;
    row.Picture.FillColumns(x0, std::span(outer).first(count), EndSamples, row.Plain.Line);
    row.Picture.FillColumns(x0, std::span(inner).first(count), EndSamples,
                            selected ? row.Selected.Tint : row.Plain.Tint);
}

// How the values of a bus are written. Widths are device pixels.
struct ValueStyle {
    const DigitNode& Node;
    Colour Ink;
    std::int32_t DigitWidth, LetterWidth;  // of the widest digit, of the radix's letter
    std::int32_t Gap;                      // on both sides
    bool OpenLeft, OpenRight;              // the cells at the page's ends go on outside of it
};

// The value with its letter, without it where that is too wide, or not at all: by the number of its
// digits, so that equal cells are lettered alike.
void DrawValue(const RowPaint& row, const ValueStyle& style, std::int32_t value, std::int32_t left,
               std::int32_t right) {
    const std::int32_t room = right - left - 2 * style.Gap;
    if (room < style.DigitWidth) return;
    std::string text = RadixValueText(value, style.Node.Radix, style.Node.Width);
    const std::int32_t digits = static_cast<std::int32_t>(text.size() - 1) * style.DigitWidth;
    if (digits > room) return;
    if (digits + style.LetterWidth > room) text.pop_back();
    row.Picture.Text((left + right) / 2, (row.At.High + row.At.End() + 1) / 2, text, style.Ink,
                     TextAlign::Centre, ValueSize);
}

void DrawCell(const RowPaint& row, const ValueStyle& style, const Cell& cell) {
    const bool openLeft = style.OpenLeft && &cell == &cells.front();
    const bool openRight = style.OpenRight && &cell == &cells.back();
    std::int32_t slant =
        std::min({Scaled(Slant, row.Picture.Scale()), (cell.Right - cell.Left) / 4, LongestSlant});
    if (slant < 2) slant = 0;
    const std::int32_t left = openLeft ? cell.Left : cell.Left + slant;
    const std::int32_t right = openRight ? cell.Right : cell.Right - slant;
    DrawFrame(row, left, right, &Shades::Tint);
    if (left > cell.Left) DrawSlant(row, cell.Left, slant, true);
    if (right < cell.Right) DrawSlant(row, right, slant, false);
    if (slant == 0 && !openLeft) DrawStroke(row, cell.Left);
    DrawValue(row, style, cell.Value, left, right);
}

void DrawBand(const RowPaint& row, const ValueStyle& style) {
    for (const Cell& cell : cells) {
        if (cell.Busy)
            DrawFrame(row, cell.Left, cell.Right, &Shades::Busy);
        else
            DrawCell(row, style, cell);
    }
}

ValueStyle StyleOf(const DigitDocument& document, const DigitPage& page, const DigitNode& node) {
    const Surface& surface = document.StaticSurface;
    const bool hexadecimal = node.Radix == static_cast<std::int16_t>(Radix::Hexadecimal);
    return {.Node = node,
            .Ink = ColoursOf(document).Strong,
            .DigitWidth = surface.TextWidth(hexadecimal ? "D" : "8", ValueSize),
            .LetterWidth = surface.TextWidth("H", ValueSize),
            .Gap = Scaled(TextGap, page.Scale),
            .OpenLeft = page.First > 0,
            .OpenRight = page.End < document.Dots};
}

void DrawRow(DigitDocument& document, const DigitPage& page, std::int32_t row) {
    const DigitTarget target = TargetAtRow(document, row);
    if (target.Node < 0) return;
    const DigitNode& node = NodeAt(document, target.Node);
    const Source source = SourceOf(document, page, target);
    cells.clear();
    if (page.ByColumn)
        CutByColumn(document, page, source);
    else
        CutByDot(document, page, source);
    JoinNarrow();
    const DigitColours& colours = ColoursOf(document);
    Colour line = GroupColour(document, target.Node);
    if (target.Member >= 0) line = MixColours(colours.Back, line, MemberShare);
    const RowPaint paint = {
        document.StaticSurface, LevelsOf(BoxOfRow(document, page.Top, page.Scale, row), page.Scale),
        ShadesOf(colours.Back, line), ShadesOf(~(colours.Back ^ SelectionColour) & 0xFFFFFFU, line),
        SelectedColumns(document, page, row)};
    if (target.Member < 0 && node.IsBus)
        DrawBand(paint, StyleOf(document, page, node));
    else
        DrawSteps(paint);
}

}  // namespace

void DrawTraces(DigitDocument& document, const DigitPage& page) {
    if (page.EndColumn <= 0) return;
    if (page.ByColumn) ReadColumns(document, page);
    const std::int32_t end = EndOfRows(document, page.Top, page.Scale, page.Height);
    for (std::int32_t row = document.FirstRow; row < end; ++row) DrawRow(document, page, row);
}
