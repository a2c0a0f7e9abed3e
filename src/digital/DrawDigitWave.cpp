#include "digital/DrawDigitWave.h"

#include "digital/DigitFuncCode.h"
#include "digital/DigitListViewFuncBox.h"
#include "digital/DigitPage.h"
#include "digital/DigitRuler.h"
#include "digital/DigitTraces.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/KeepAside.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>

// Two layers: StaticSurface has ruler, traces and selection, ShownSurface is a copy of it with
// caliper and rubber band on top. While one of these is dragged only the upper layer is made anew,
// so that a step costs a surface copy whatever the length of the waveform.

const DigitColours DigitScreenColours = {.Back = PlotBack,
                                         .RowLine = 0x182129,
                                         .Outside = 0x161D24,
                                         .Label = PlotLabel,
                                         .Strong = 0xD5DDE3,
                                         .Tick = PlotAxis,
                                         .Caliper = PlotPointer,
                                         .RubberBand = 0xC832FF,
                                         .RubberFill = 0xBFFFBF};

const DigitColours DigitPrintColours = {.Back = 0xFFFFFF,
                                        .RowLine = 0xD8D8D8,
                                        .Outside = 0xF0F0F0,
                                        .Label = 0x000000,
                                        .Strong = 0x000000,
                                        .Tick = 0x707070,
                                        .Caliper = 0x000000,
                                        .RubberBand = 0x000000,
                                        .RubberFill = 0xCFCFCF};

namespace {

// The eight hues of Okabe and Ito ("Color Universal Design", 2008), lightened for the dark plot, in
// an order that sets neighbours apart in hue and in lightness.
constexpr Colour GroupColours[] = {0x6CC4F4, 0xF0A030, 0x34C79A, 0xE59BC8,
                                   0xF2E765, 0x6F98F2, 0xFF7F4D, 0xB9C5CF};

constexpr double HintSize = 13.0;  // of the text in an empty picture, logical pixels
constexpr double GripReach = 3.0, GripRise = 2.0;  // of the lines on the caliper's handle
constexpr std::int32_t LeastPrintList = 160, MostPrintList = 300;  // logical pixels

// --- the lower layer ---------------------------------------------------------------------------

void DrawGround(DigitDocument& document, const DigitPage& page) {
    const DigitColours& colours = ColoursOf(document);
    Surface& surface = document.StaticSurface;
    if (page.EndColumn >= page.Width) {
        surface.Fill(colours.Back);
        return;
    }
    surface.FillBox(0, 0, page.EndColumn - 1, page.Height - 1, colours.Back);
    surface.FillBox(page.EndColumn, 0, page.Width - 1, page.Height - 1, colours.Outside);
}

void DrawRowLines(DigitDocument& document, const DigitPage& page) {
    const DigitColours& colours = ColoursOf(document);
    const std::int32_t pen = QuietPenOf(document, page.Scale);
    const std::int32_t end = EndOfRows(document, page.Top, page.Scale, page.Height);
    for (std::int32_t row = document.FirstRow; row < end; ++row) {
        const std::int32_t y = BoxOfRow(document, page.Top, page.Scale, row).Bottom;
        document.StaticSurface.FillBox(0, y - pen + 1, page.Width - 1, y, colours.RowLine);
    }
}

void DrawHint(DigitDocument& document, const DigitPage& page) {
    if (!document.Nodes.empty() || document.PrintMode) return;
    Surface& surface = document.StaticSurface;
    const std::string hint = CutText(surface, TextOf("DigitWaveFrm", "hint"), page.Width, HintSize);
    surface.Text(page.Width / 2, (page.Top + page.Height) / 2, hint, ColoursOf(document).Label,
                 TextAlign::Centre, HintSize);
}

void KeepSelectionPixels(DigitDocument& document) {
    if (document.PrintMode) return;
    const auto left = [&](std::int32_t dot) {
        return static_cast<float>(DotToPixel(document, dot));
    };
    for (DigitNode& node : document.Nodes) {
        if (node.WaveSelected || node.ListSelected) {
            node.SelectLeft = left(node.SelectStart);
            node.SelectRight = left(node.SelectEnd + 1);
        }
        for (std::size_t k = 0; k < static_cast<std::size_t>(node.Width); ++k) {
            if (!node.MemberWaveSelected[k] && !node.MemberListSelected[k]) continue;
            node.MemberSelectLeft[k] = left(node.MemberSelectStart[k]);
            node.MemberSelectRight[k] = left(node.MemberSelectEnd[k] + 1);
        }
    }
}

// Traces come on top, so that they keep their colours.
void DrawSelection(DigitDocument& document, const DigitPage& page) {
    Surface& surface = document.StaticSurface;
    surface.SetMode(DrawMode::NotXor);
    const std::int32_t end = EndOfRows(document, page.Top, page.Scale, page.Height);
    for (std::int32_t row = document.FirstRow; row < end; ++row) {
        const ColumnSpan columns = SelectedColumns(document, page, row);
        const RowBox box = BoxOfRow(document, page.Top, page.Scale, row);
        surface.FillBox(columns.Left, box.Top, columns.Right, box.Bottom, SelectionColour);
    }
    surface.SetMode(DrawMode::Copy);
}

void DrawOutline(Surface& surface, const ColumnSpan& across, const RowBox& down, Colour colour) {
    const std::int32_t pen = PenOf(surface.Scale()) - 1;
    const auto [left, right] = across;
    const auto [top, bottom] = down;
    surface.FillBox(left, top, right, std::min(top + pen, bottom), colour);
    surface.FillBox(left, std::max(bottom - pen, top), right, bottom, colour);
    surface.FillBox(left, top, std::min(left + pen, right), bottom, colour);
    surface.FillBox(std::max(right - pen, left), top, right, bottom, colour);
}

// The dot last edited or found.
void DrawMark(DigitDocument& document, const DigitPage& page) {
    if (document.EditDot < 0 || document.PrintMode) return;
    const DigitTarget target = TargetOfName(document, document.EditName);
    const std::int16_t row = target.Node < 0 ? std::int16_t{-1} : RowOfTarget(document, target);
    if (row < document.FirstRow) return;
    const ColumnSpan across = ColumnsOfSpan(document, page, document.EditDot, document.EditDot);
    const std::int32_t top = BoxOfRow(document, page.Top, page.Scale, row).Top;
    const RowBox down = {top,
                         std::min(top + Scaled(document.EditMark, page.Scale), page.Height) - 1};
    if (across.Left > across.Right || down.Top > down.Bottom) return;
    DrawOutline(document.StaticSurface, across, down, ColoursOf(document).Caliper);
}

void DrawPicture(DigitDocument& document) {
    KeepSelectionPixels(document);
    if (document.StaticSurface.IsNull()) return;
    const DigitPage page = PageOf(document);
    DrawGround(document, page);
    DrawRuler(document, page);
    DrawRowLines(document, page);
    DrawSelection(document, page);
    DrawTraces(document, page);
    DrawMark(document, page);
    DrawHint(document, page);
}

// --- the upper layer ---------------------------------------------------------------------------

void DrawRubberBand(DigitDocument& document, const DigitPage& page) {
    if (!document.SelectDrag) return;
    Surface& surface = document.ShownSurface;
    const DigitColours& colours = ColoursOf(document);
    const auto [start, end] = std::minmax({document.SelectStartDot, document.SelectEndDot});
    const auto [upper, lower] = std::minmax({document.SelectStartRow, document.SelectEndRow});
    const ColumnSpan across = ColumnsOfSpan(document, page, start, end);
    if (across.Left > across.Right) return;
    const RowBox down = {
        std::max(BoxOfRow(document, page.Top, page.Scale, upper).Top, page.Top),
        std::min(BoxOfRow(document, page.Top, page.Scale, lower).Bottom, page.Height - 1)};
    if (down.Top > down.Bottom) return;
    surface.SetMode(DrawMode::NotXor);
    surface.FillBox(across.Left, down.Top, across.Right, down.Bottom, colours.RubberFill);
    surface.SetMode(DrawMode::Copy);
    DrawOutline(surface, across, down, colours.RubberBand);
}

// A tag whose lower half tapers to the line.
void DrawHandle(Surface& surface, std::int32_t x, std::int32_t pen, const DigitColours& colours) {
    const double scale = surface.Scale();
    const std::int32_t reach = Scaled(CaliperReach, scale);
    const std::int32_t top = Scaled(CaliperHandleY - CaliperRise, scale);
    const std::int32_t middle = Scaled(CaliperHandleY, scale);
    const std::int32_t rise = Scaled(CaliperRise, scale);
    const double centre = x + pen / 2.0;
    for (std::int32_t column = x - reach; column < x + reach + pen; ++column) {
        const double away = std::abs(column + 0.5 - centre) / (reach + pen / 2.0);
        const ColumnRun run = {static_cast<float>(top),
                               static_cast<float>(middle + rise * (1.0 - away))};
        surface.FillColumns(column, {&run, 1}, 1, colours.Caliper);
    }
    const std::int32_t step = Scaled(GripReach, scale), half = Scaled(GripRise, scale);
    for (const std::int32_t grip : {x - step, x, x + step})
        surface.FillBox(grip, middle - half - pen, grip + pen - 1, middle + half - pen,
                        colours.Back);
}

void DrawCaliper(const DigitDocument& document, const DigitPage& page, Surface& surface) {
    if (document.CaliperPixel < 0 || document.CaliperPixel >= document.PictureWidth) return;
    const DigitColours& colours = ColoursOf(document);
    const std::int32_t x = Scaled(document.CaliperPixel, page.Scale), pen = PenOf(page.Scale);
    // In print it has the traces' colour and is told apart by being thinner.
    const std::int32_t line = document.PrintMode ? std::max(1, pen / 2) : pen;
    const std::int32_t left = x + (pen - line) / 2;
    surface.FillBox(left, page.Top, left + line - 1, page.Height - 1, colours.Caliper);
    DrawHandle(surface, x, pen, colours);
}

void DrawMoving(DigitDocument& document) {
    if (document.ShownSurface.IsNull()) return;
    const DigitPage page = PageOf(document);
    document.ShownSurface.CopyFrom(document.StaticSurface);
    DrawRubberBand(document, page);
    DrawCaliper(document, page, document.ShownSurface);
}

// --- print -------------------------------------------------------------------------------------

// List and picture side by side, a line between them and around both.
void JoinParts(const DigitDocument& document, Surface& picture) {
    const std::int32_t pen = PenOf(picture.Scale());
    const std::int32_t border = document.ListSurface.Width();
    const std::int32_t right = picture.Width() - 1, bottom = picture.Height() - 1;
    const Colour colour = ColoursOf(document).Tick;
    picture.Fill(ColoursOf(document).Back);
    picture.CopyFrom(document.ListSurface);
    picture.CopyFrom(document.StaticSurface, border, 0);
    DrawOutline(picture, {0, right}, {0, bottom}, colour);
    picture.FillBox(border - pen, 0, border - 1, bottom, colour);
}

}  // namespace

const DigitColours& ColoursOf(const DigitDocument& document) {
    return document.PrintMode ? DigitPrintColours : DigitScreenColours;
}

Colour GroupColour(const DigitDocument& document, std::int16_t node) {
    if (document.PrintMode) return DigitPrintColours.Strong;
    return GroupColours[static_cast<std::size_t>(node) % std::size(GroupColours)];
}

void LayoutDigitSurfaces(DigitDocument& document, const DigitLayout& layout, double scale) {
    document.ListWidth = layout.ListWidth;
    document.PictureWidth = layout.PictureWidth;
    document.PictureHeight = layout.PictureHeight;
    const std::int32_t height = Scaled(RulerHeight + layout.PictureHeight, scale);
    const std::int32_t width = Scaled(layout.PictureWidth, scale);
    document.StaticSurface.Create(width, height, scale);
    document.ShownSurface.Create(width, height, scale);
    document.ListSurface.Create(Scaled(layout.ListWidth, scale), height, scale);
    SetPageFigures(document);
}

void Paint(std::int16_t index, Flag redrawList, Flag redrawPicture) {
    if (index < 0 || index > MaxDocuments) return;
    DigitDocument& document = DigitAt(index);
    if (redrawPicture) DrawPicture(document);
    if (redrawList) DrawDigitList(document);
    DrawMoving(document);
    TheHost().ShowPlot(TagOfDigit(index));
}

bool PaintForPrint(DigitDocument& document, std::int32_t width, std::int32_t height, double scale,
                   Surface& picture) {
    const KeepAside kept(document.StaticSurface, document.ListSurface, document.PrintMode,
                         document.PictureWidth, document.Zoom, document.CaliperPixel);
    const std::int32_t listWidth = std::clamp(document.ListWidth, LeastPrintList, MostPrintList);
    const std::int32_t list = Scaled(listWidth, scale), rows = Scaled(height, scale);
    const std::int32_t columns = Scaled(width, scale) - list;
    if (!picture.Create(list + columns, rows, scale) ||
        !document.StaticSurface.Create(columns, rows, scale) ||
        !document.ListSurface.Create(list, rows, scale)) {
        picture.Free();
        return false;
    }
    document.PrintMode = true;
    const double wider =
        static_cast<double>(width - listWidth) / std::max(document.PictureWidth, 1);
    document.PictureWidth = width - listWidth;
    document.Zoom /= wider;
    document.CaliperPixel *= wider;
    DrawPicture(document);
    DrawCaliper(document, PageOf(document), document.StaticSurface);
    DrawDigitList(document);
    JoinParts(document, picture);
    return true;
}
