#include "digital/DigitListViewFuncBox.h"

#include "digital/DigitFuncCode.h"
#include "digital/DigitPage.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"

#include <algorithm>
#include <cmath>

// A row from the left: the bar of a selected row, the mark of its group, a bus's expansion mark,
// the name (one step further in for members) and, against the right edge, the value.

namespace {

// Logical pixels.
constexpr double HeadSize = 11.0, TextSize = 12.0;  // of texts
constexpr double BarWidth = 3.0;
constexpr double GroupLeft = 5.0, GroupWidth = 3.0, GroupGap = 6.0;
constexpr double NameLeft = 32.0, MemberLeft = 44.0;
constexpr double ValueRight = 10.0;                                // from the right edge
constexpr double Gap = 8.0;                                        // between texts
constexpr double ExpansionMarkX = 10.0, ExpansionMarkSize = 16.0;  // left edge, size of its place
constexpr double MarkReach = 3.0;    // half the height of the expansion mark
constexpr double ValueShare = 0.45;  // of the width that a value may always have
constexpr double SelectedShare = 0.22, MemberShare = 0.78;
constexpr std::int32_t MarkSamples = 4;

struct ListPaint {
    DigitDocument& Document;
    Surface& List;
    const DigitColours& Colours;
    double Scale;
    std::int32_t Px(double logical) const { return Scaled(logical, Scale); }
    // A line between rows, of which `bottom` is the last pixel.
    void Separate(std::int32_t bottom, Colour colour) const {
        const std::int32_t top = bottom - QuietPenOf(Document, Scale) + 1;
        List.FillBox(0, top, List.Width() - 1, bottom, colour);
    }
};

void DrawHead(const ListPaint& paint) {
    const std::int32_t middle = paint.Px(RulerHeight / 2.0);
    paint.Separate(paint.Px(RulerHeight) - 1, paint.Colours.Tick);
    paint.List.Text(paint.Px(NameLeft), middle, TextOf("DigitWaveFrm", "NameHead"),
                    paint.Colours.Label, TextAlign::Left, HeadSize);
    paint.List.Text(paint.List.Width() - paint.Px(ValueRight), middle,
                    TextOf("DigitWaveFrm", "ValueHead"), paint.Colours.Label, TextAlign::Right,
                    HeadSize);
}

bool IsListSelected(const DigitDocument& document, DigitTarget target) {
    if (document.PrintMode) return false;
    const DigitNode& node = NodeAt(document, target.Node);
    return bool(target.Member < 0
                    ? node.ListSelected
                    : node.MemberListSelected[static_cast<std::size_t>(target.Member)]);
}

void DrawRowGround(const ListPaint& paint, const RowBox& box, DigitTarget target) {
    const std::int32_t right = paint.List.Width() - 1;
    if (IsListSelected(paint.Document, target)) {
        const Colour ground = MixColours(paint.Colours.Back, paint.Colours.Caliper, SelectedShare);
        paint.List.FillBox(0, box.Top, right, box.Bottom - 1, ground);
        paint.List.FillBox(0, box.Top, paint.Px(BarWidth) - 1, box.Bottom - 1,
                           paint.Colours.Caliper);
    }
    paint.Separate(box.Bottom, paint.Colours.RowLine);
    // The mark of a bus runs on through its members.
    const DigitNode& node = NodeAt(paint.Document, target.Node);
    Colour group = GroupColour(paint.Document, target.Node);
    if (target.Member >= 0) group = MixColours(paint.Colours.Back, group, MemberShare);
    const bool first = target.Member < 0;
    const bool last = target.Member < 0 ? !node.Expanded : target.Member == node.Width - 1;
    const std::int32_t left = paint.Px(GroupLeft);
    paint.List.FillBox(left, box.Top + (first ? paint.Px(GroupGap) : 0),
                       left + paint.Px(GroupWidth) - 1,
                       box.Bottom - (last ? paint.Px(GroupGap) : 0), group);
}

// A triangle that points to the right, or down where the members show.
void DrawExpansionMark(const ListPaint& paint, const RowBox& box, bool expanded) {
    const double middleY = (box.Top + box.Bottom) / 2.0;
    const double middleX = (ExpansionMarkX + ExpansionMarkSize / 2) * paint.Scale;
    const double reach = MarkReach * paint.Scale;
    const double across = expanded ? reach * 1.4 : reach, down = expanded ? reach : reach * 1.4;
    const auto left = static_cast<std::int32_t>(std::floor(middleX - across));
    const auto right = static_cast<std::int32_t>(std::ceil(middleX + across));
    for (std::int32_t column = left; column < right; ++column) {
        std::array<ColumnRun, MarkSamples> runs{};
        for (std::int32_t k = 0; k < MarkSamples; ++k) {
            const double x = (column + (k + 0.5) / MarkSamples - middleX) / across;
            const double length = expanded ? 1.0 - std::abs(x) : (1.0 - x) / 2.0;
            ColumnRun& run = runs[static_cast<std::size_t>(k)];
            if (x < -1.0 || x > 1.0)
                run = {1.0F, 0.0F};
            else if (expanded)
                run = {static_cast<float>(middleY - down),
                       static_cast<float>(middleY - down + 2.0 * down * length)};
            else
                run = {static_cast<float>(middleY - down * length),
                       static_cast<float>(middleY + down * length)};
        }
        paint.List.FillColumns(column, runs, MarkSamples, paint.Colours.Label);
    }
}

std::string ValueOfRow(const DigitNode& node, DigitTarget target) {
    if (target.Member < 0) return node.ValueText;
    return std::to_string(node.MemberValues[static_cast<std::size_t>(target.Member)]) + "B";
}

// A value takes what the name leaves, or its own share of the width.
void DrawRowTexts(const ListPaint& paint, const RowBox& box, DigitTarget target) {
    const DigitNode& node = NodeAt(paint.Document, target.Node);
    const bool member = target.Member >= 0;
    const std::int32_t middle = (box.Top + box.Bottom) / 2;
    const std::int32_t left = paint.Px(member ? MemberLeft : NameLeft);
    const std::int32_t right = paint.List.Width() - paint.Px(ValueRight);
    const std::int32_t gap = paint.Px(Gap);
    std::string name = TargetName(paint.Document, target);
    const std::int32_t nameWidth = paint.List.TextWidth(name, TextSize);
    const auto share = static_cast<std::int32_t>(paint.List.Width() * ValueShare);
    const std::int32_t valueRoom = std::max(share, right - left - nameWidth - gap);
    const std::string value = CutText(paint.List, ValueOfRow(node, target), valueRoom, TextSize);
    const std::int32_t valueLeft = right - paint.List.TextWidth(value, TextSize);
    const std::int32_t nameRoom = valueLeft - gap - left;
    paint.List.Text(left, middle, CutText(paint.List, name, nameRoom, TextSize),
                    member ? MixColours(paint.Colours.Back, paint.Colours.Strong, MemberShare)
                           : paint.Colours.Strong,
                    TextAlign::Left, TextSize);
    paint.List.Text(right, middle, value, paint.Colours.Strong, TextAlign::Right, TextSize);
    if (member || !node.IsBus) return;
    const std::string width = "[" + std::to_string(node.Width) + "]";
    const std::int32_t at = left + nameWidth + paint.Px(Gap / 2);
    if (at + paint.List.TextWidth(width, HeadSize) + gap <= valueLeft)
        paint.List.Text(at, middle, width, paint.Colours.Label, TextAlign::Left, HeadSize);
}

}  // namespace

void DrawDigitList(DigitDocument& document) {
    Surface& list = document.ListSurface;
    if (list.IsNull()) return;
    const ListPaint paint = {document, list, ColoursOf(document), list.Scale()};
    list.Fill(paint.Colours.Back);
    DrawHead(paint);
    const std::int32_t origin = paint.Px(RulerHeight);
    const std::int32_t end = EndOfRows(document, origin, paint.Scale, list.Height());
    for (std::int32_t row = document.FirstRow; row < end; ++row) {
        const DigitTarget target = TargetAtRow(document, row);
        const RowBox box = BoxOfRow(document, origin, paint.Scale, row);
        DrawRowGround(paint, box, target);
        const DigitNode& node = NodeAt(document, target.Node);
        if (node.IsBus && target.Member < 0) DrawExpansionMark(paint, box, bool(node.Expanded));
        DrawRowTexts(paint, box, target);
    }
}

bool OnExpansionMark(const DigitDocument& document, double x, double y) {
    const std::int32_t row = RowAtPixel(document, y);
    const DigitTarget target = TargetAtRow(document, row);
    if (target.Node < 0 || target.Member >= 0) return false;
    if (!NodeAt(document, target.Node).IsBus) return false;
    const double below = y - (row - document.FirstRow) * RowHeight;
    return x >= ExpansionMarkX && x < ExpansionMarkX + ExpansionMarkSize &&
           std::abs(below - RowHeight / 2) <= ExpansionMarkSize / 2;
}

std::string CutText(const Surface& surface, std::string_view text, std::int32_t width,
                    double size) {
    if (surface.TextWidth(text, size) <= width) return std::string(text);
    std::string cut(text);
    while (!cut.empty()) {
        // A letter may be several bytes, of which only the first is no 10xxxxxx.
        while (!cut.empty() && (static_cast<unsigned char>(cut.back()) & 0xC0U) == 0x80U)
            cut.pop_back();
        if (!cut.empty()) cut.pop_back();
        if (surface.TextWidth(cut + "...", size) <= width) return cut + "...";
    }
    return {};
}
