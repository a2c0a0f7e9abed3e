#include "digital/DigitMouseFuncBox.h"

#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitListViewFuncBox.h"
#include "digital/DigitNodeFuncBox.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float DragReach = 4.0F;  // a press that moves less is a click, logical pixels

std::int16_t LastListRow(const DigitDocument& document) {
    return Narrow<std::int16_t>(std::ssize(document.ListRows) - 1);
}

// The row at a height, -1 where none exists.
std::int16_t ListRowAt(const DigitDocument& document, float y) {
    const std::int32_t row = RowAtPixel(document, y);
    return row <= LastListRow(document) ? Narrow<std::int16_t>(row) : std::int16_t{-1};
}

// A drag that leaves the rows stays at the nearest one on the page.
std::int16_t NearestRow(const DigitDocument& document, float y) {
    const std::int32_t lowest = std::min<std::int32_t>(LastListRow(document), document.LastRow);
    return Narrow<std::int16_t>(
        std::clamp(RowAtPixel(document, y), std::int32_t{document.FirstRow}, lowest));
}

bool HasSelection(const DigitDocument& document) {
    return document.WaveSelection || document.ListSelection;
}

void DropSelection(std::int16_t index) {
    DigitDocument& document = DigitAt(index);
    if (!HasSelection(document)) return;
    ClearSelection(document);
    ShowDigitSelection(index);
}

void OpenEvaluate(DigitTarget target) {
    if (target.Node < 0) return;
    EvaluateNode = target.Node;
    EvaluateIsMember = target.Member >= 0;
    EvaluateMember = std::max(target.Member, std::int16_t{0});
    TheHost().RunDialog("EvaluateFrm", 0);
}

void BeginRubberBand(std::int16_t index, float x) {
    DigitDocument& document = DigitAt(index);
    const bool selected = HasSelection(document);
    ClearSelection(document);
    document.SelectDrag = true;
    document.SelectStartDot = document.SelectEndDot = DotUnder(document, x);
    document.SelectStartRow = document.SelectEndRow = document.ClickRow;
    if (selected)
        ShowDigitSelection(index);
    else
        Paint(index, false, false);
}

// Rows first..last of the list join the selection of the list.
void AddListRows(DigitDocument& document, std::int16_t first, std::int16_t last) {
    for (std::int32_t row = first; row <= last; ++row)
        SelectListRow(document, TargetAtRow(document, row));
    MarkListSelection(document);
}

void SelectRow(std::int16_t index, std::int16_t row, ListAdd add) {
    DigitDocument& document = DigitAt(index);
    const DigitTarget target = TargetAtRow(document, row);
    if (add == ListAdd::Replace || !document.ListSelection) ClearSelection(document);
    document.ClickRow = row;
    if (add != ListAdd::Range) document.AnchorRow = row;
    const std::int16_t anchor = document.AnchorRow;
    if (add == ListAdd::Toggle && IsSelected(document, target)) {
        DeselectTarget(document, target);
        if (SelectedSpans(document).empty()) ClearSelection(document);
    } else if (add == ListAdd::Range && anchor >= 0 && anchor <= LastListRow(document)) {
        AddListRows(document, std::min(anchor, row), std::max(anchor, row));
    } else {
        AddListRows(document, row, row);
    }
    ShowDigitSelection(index);
}

// A press on a row that is selected may be the start of a drag of all: what it selects is decided
// at the release.
void PressRow(std::int16_t index, std::int16_t row, ListAdd add, float y) {
    DigitDocument& document = DigitAt(index);
    const bool kept = add == ListAdd::Replace && document.ListSelection &&
                      IsSelected(document, TargetAtRow(document, row));
    if (kept)
        document.ClickRow = row;
    else
        SelectRow(index, row, add);
    document.ListPressRow = row;
    document.ListPressKept = kept;
    document.ListPressY = y;
}

// The node before which rows dropped at a height would stand; -1 where that moves nothing.
std::int16_t DropNodeAt(const DigitDocument& document, float y) {
    const std::int32_t row = std::max(RowAtPixel(document, y), std::int32_t{document.FirstRow});
    const DigitTarget target = TargetAtRow(document, row);
    const std::int16_t before = target.Node < 0 ? document.NodeCount : target.Node;
    return target.Member < 0 && MovesNodes(document, before) ? before : std::int16_t{-1};
}

}  // namespace

void DigitWavePic_MouseDown(std::int16_t index, MouseButton button, float x, float y) {
    DigitDocument& document = DigitAt(index);
    if (document.SelectDrag || button == MouseButton::None) return;
    document.ClickX = x;
    document.ClickY = y;
    document.ClickRow = ListRowAt(document, y);
    if (button == MouseButton::Right)
        TheHost().PopupMenu("mnuDigitWavePicPopMenu");
    else if (document.ClickRow < 0)
        DropSelection(index);
    else
        BeginRubberBand(index, x);
}

void DigitWavePic_MouseMove(std::int16_t index, MouseButton held, float x, float y) {
    DigitDocument& document = DigitAt(index);
    document.MouseDot = DotUnder(document, x);
    if (!document.SelectDrag || held != MouseButton::Left) return;
    document.SelectEndDot = document.MouseDot;
    document.SelectEndRow = NearestRow(document, y);
    Paint(index, false, false);
}

void DigitWavePic_MouseUp(std::int16_t index, MouseButton button, float x, float y) {
    DigitDocument& document = DigitAt(index);
    if (!document.SelectDrag || button != MouseButton::Left) return;
    document.SelectDrag = false;
    document.SelectEndDot = DotUnder(document, x);
    document.SelectEndRow = NearestRow(document, y);
    const auto [first, last] = std::minmax(document.SelectStartDot, document.SelectEndDot);
    const auto [top, bottom] = std::minmax(document.SelectStartRow, document.SelectEndRow);
    for (std::int32_t row = top; row <= bottom; ++row)
        SelectSpan(document, TargetAtRow(document, row), first, last);
    MarkWaveSelection(document);
    ShowDigitSelection(index);
}

void DigitWavePic_DblClick(std::int16_t index, float x, float y) {
    DigitDocument& document = DigitAt(index);
    document.ClickX = x;
    document.ClickY = y;
    document.ClickRow = ListRowAt(document, y);
    EvaluateClickedRow(index);
}

bool OnCaliperHandle(std::int16_t index, float x, float y) {
    return std::abs(x - DigitAt(index).CaliperPixel) <= CaliperReach &&
           std::abs(y - CaliperHandleY) <= CaliperRise;
}

// Beside the handle a press fetches the caliper.
void DigitBackWavePic_MouseDown(std::int16_t index, MouseButton button, float x, float y) {
    if (button != MouseButton::Left) return;
    DigitAt(index).CaliperDrag = true;
    DigitAt(index).CaliperPress = x;
    if (!OnCaliperHandle(index, x, y)) DigitBackWavePic_MouseMove(index, x);
}

void DigitBackWavePic_MouseMove(std::int16_t index, float x) {
    DigitDocument& document = DigitAt(index);
    if (!document.CaliperDrag) return;
    document.CaliperPixel = std::clamp<double>(x, 0.0, std::max(document.PictureWidth - 1, 0));
    Paint(index, false, false);
}

void DigitBackWavePic_MouseUp(std::int16_t index, float x) {
    DigitDocument& document = DigitAt(index);
    if (!document.CaliperDrag) return;
    if (x != document.CaliperPress) DigitBackWavePic_MouseMove(index, x);
    document.CaliperDrag = false;
    CaliperFromPixel(document);
    TheHost().ShowEntries(TagOfDigit(index));
    Paint(index, true, false);
}

void DispParaListView_MouseDown(std::int16_t index, MouseButton button, float x, float y,
                                ListAdd add) {
    DigitDocument& document = DigitAt(index);
    if (document.ListDrag) return;
    LetGo(document);
    const std::int16_t row = ListRowAt(document, y);
    if (row < 0) {
        document.ClickRow = -1;
        DropSelection(index);
    } else if (button == MouseButton::Left && OnExpansionMark(document, x, y)) {
        document.ClickRow = row;
        ToggleExpanded(index, TargetAtRow(document, row).Node);
    } else if (button == MouseButton::Left) {
        PressRow(index, row, add, y);
    } else if (!IsSelected(document, TargetAtRow(document, row))) {
        SelectRow(index, row, ListAdd::Replace);  // the menu works on what the mouse shows
    } else {
        document.ClickRow = row;
    }
    if (button == MouseButton::Right) TheHost().PopupMenu("mnuDigitListPopMenu");
}

void DispParaListView_MouseMove(std::int16_t index, float y) {
    DigitDocument& document = DigitAt(index);
    const DigitTarget pressed = TargetAtRow(document, document.ListPressRow);
    if (pressed.Node < 0 || pressed.Member >= 0 || !IsSelected(document, pressed)) return;
    if (!document.ListDrag && std::abs(y - document.ListPressY) < DragReach) return;
    const bool begins = !document.ListDrag;
    const std::int16_t before = document.ListDropNode;
    document.ListDrag = true;
    document.ListDropNode = DropNodeAt(document, y);
    if (begins || document.ListDropNode != before) TheHost().ShowPlot(TagOfDigit(index));
}

void DispParaListView_MouseUp(std::int16_t index) {
    DigitDocument& document = DigitAt(index);
    const std::int16_t row = document.ListPressRow, before = document.ListDropNode;
    const bool dragged(document.ListDrag);
    LetGo(document);
    if (dragged && before >= 0)
        MoveSelectedNodes(index, before);
    else if (dragged)
        TheHost().ShowPlot(TagOfDigit(index));
    else if (row >= 0 && document.ListPressKept)
        SelectRow(index, row, ListAdd::Replace);
}

// On the mark both presses of a double click would toggle: the first one has.
void DispParaListView_DblClick(std::int16_t index, float x, float y) {
    DigitDocument& document = DigitAt(index);
    const std::int16_t row = ListRowAt(document, y);
    if (row < 0 || OnExpansionMark(document, x, y)) return;
    document.ClickRow = row;
    const DigitTarget target = TargetAtRow(document, row);
    if (target.Member < 0 && NodeAt(document, target.Node).IsBus)
        ToggleExpanded(index, target.Node);
    else
        OpenEvaluate(target);
}

void StepListRow(std::int16_t index, std::int32_t step, ListAdd add) {
    DigitDocument& document = DigitAt(index);
    if (document.NodeCount == 0) return;
    const auto row = Narrow<std::int16_t>(
        std::clamp(document.ClickRow + step, 0, std::int32_t{LastListRow(document)}));
    BringRowIntoView(document, row);
    SelectRow(index, row, add);
}

void StepSelectedNodes(std::int16_t index, std::int32_t step) {
    DigitDocument& document = DigitAt(index);
    std::int32_t first = -1, last = -1;
    for (std::int32_t node = 0; node < document.NodeCount; ++node) {
        if (!NodeAt(document, node).WaveSelected) continue;
        if (first < 0) first = node;
        last = node;
    }
    if (first < 0) return;
    const std::int32_t before =
        step < 0 ? std::max(first - 1, 0) : std::min(last + 2, std::int32_t{document.NodeCount});
    MoveSelectedNodes(index, Narrow<std::int16_t>(before));
    for (const DigitNode& node : document.Nodes) {
        if (!node.WaveSelected) continue;
        if (BringRowIntoView(document, node.Row)) Paint(index, true, true);
        if (step < 0) break;
    }
}

void ExpandClickedRow(std::int16_t index, bool expanded) {
    DigitDocument& document = DigitAt(index);
    const DigitTarget target = TargetAtRow(document, document.ClickRow);
    if (target.Node < 0) return;
    const DigitNode& node = NodeAt(document, target.Node);
    if (!node.IsBus || bool(node.Expanded) == expanded) return;
    ToggleExpanded(index, target.Node);
    SelectRow(index, node.Row, ListAdd::Replace);
}

void EvaluateClickedRow(std::int16_t index) {
    const DigitDocument& document = DigitAt(index);
    OpenEvaluate(TargetAtRow(document, document.ClickRow));
}

void EscapeDigit(std::int16_t index) {
    DigitDocument& document = DigitAt(index);
    const bool drags = document.ListDrag || document.SelectDrag || document.CaliperDrag;
    LetGo(document);
    if (drags)
        Paint(index, false, false);
    else
        DropSelection(index);
}
