#include "digital/DigitEditFuncBox.h"

#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>
#include <utility>

namespace {

void SwapSnapshot(DigitDocument& document) {
    std::swap(document.Nodes, document.UndoNodes);
    std::swap(document.DigitSamples, document.UndoSamples);
    std::swap(document.SampleCount, document.UndoSampleCount);
    std::swap(document.NodeCount, document.UndoNodeCount);
    std::swap(document.ChannelCount, document.UndoChannelCount);
    std::swap(document.Reserved1, document.UndoReserved1);
    std::swap(document.ListScrollShown, document.UndoListScrollShown);
    const std::uint8_t first = document.FirstRow, last = document.LastRow;
    document.FirstRow = Narrow<std::uint8_t>(document.UndoFirstRow);
    document.UndoFirstRow = first;
    document.UndoLastRow = last;
}

void ExchangeState(Flag undone) {
    DigitDocument& document = ActiveDigit();
    LetGo(document);
    ClearSelection(document);
    SwapSnapshot(document);
    ClearSelection(document);
    RefreshSampleCount(document);
    document.UndoAvailable = !undone;
    document.ResumeAvailable = undone;
    EndDigitEdit(ActiveDigitIndex);
}

// A member of a bus that is closed has no row.
bool IsHidden(const DigitNode& node, DigitTarget target) {
    return target.Member >= 0 && !(node.IsBus && node.Expanded);
}

void ExpandAll(Flag expanded) {
    DigitDocument& document = ActiveDigit();
    ClearSelection(document);
    for (std::int16_t node = 0; node < document.NodeCount; ++node)
        SetExpanded(document, node, expanded);
    ShowDigitSelection(ActiveDigitIndex);
}

}  // namespace

void MarkChanged(DigitDocument& document) {
    document.Changed = true;
    document.EditStamp = ++EditClock;
}

void TakeSnapshot(DigitDocument& document) {
    MarkChanged(document);
    document.UndoReserved1 = document.Reserved1;
    document.UndoListScrollShown = document.ListScrollShown;
    document.UndoFirstRow = document.FirstRow;
    document.UndoLastRow = document.LastRow;
    document.UndoNodeCount = document.NodeCount;
    document.UndoChannelCount = document.ChannelCount;
    document.UndoSampleCount = document.SampleCount;
    document.UndoNodes = document.Nodes;
    document.UndoSamples = document.DigitSamples;
}

void LetGo(DigitDocument& document) {
    if (document.CaliperDrag) document.CaliperPixel = DotToPixel(document, document.Caliper);
    document.SelectDrag = document.CaliperDrag = document.ListDrag = false;
    document.ListPressRow = document.ListDropNode = -1;
}

void BeginEdit(DigitDocument& document) {
    LetGo(document);
    TakeSnapshot(document);
    document.UndoAvailable = true;
    document.ResumeAvailable = false;
}

void EndDigitEdit(std::int16_t index) {
    DigitDocument& document = DigitAt(index);
    MarkChanged(document);
    RenumberRows(document);
    RefreshValues(document);
    TheHost().ShowTitle(TagOfDigit(index));
    TheHost().RefreshCommands();
    Paint(index, true, true);
}

std::vector<SelectedSpan> SelectedSpans(const DigitDocument& document) {
    std::vector<SelectedSpan> spans;
    for (std::int16_t index = 0; const DigitNode& node : document.Nodes) {
        if (node.WaveSelected) {
            spans.push_back({{.Node = index, .Member = -1}, node.SelectStart, node.SelectEnd});
        } else if (node.IsBus && node.Expanded) {
            for (std::int16_t k = 0; k < node.Width; ++k) {
                const auto member = static_cast<std::size_t>(k);
                if (!node.MemberWaveSelected[member]) continue;
                spans.push_back({{.Node = index, .Member = k},
                                 node.MemberSelectStart[member],
                                 node.MemberSelectEnd[member]});
            }
        }
        ++index;
    }
    return spans;
}

void ClearSelection(DigitDocument& document) {
    for (DigitNode& node : document.Nodes) {
        node.WaveSelected = node.ListSelected = false;
        node.MemberWaveSelected.fill(false);
        node.MemberListSelected.fill(false);
    }
    document.WaveSelection = document.ListSelection = false;
    document.ValueEnabled = false;
    document.SelectDrag = document.ListDrag = false;  // they may hold rows that go
    document.ListPressRow = document.ListDropNode = -1;
}

void EndFind(DigitDocument& document) {
    document.FindOn = document.PointEditOn = false;
    document.FindBoxes = {};
    document.EditDot = -1;
    document.EditMark = RowMark;
    document.EditName.clear();
}

void SelectSpan(DigitDocument& document, DigitTarget target, std::int32_t start, std::int32_t end) {
    DigitNode& node = NodeAt(document, target.Node);
    if (IsHidden(node, target)) return;
    const std::int32_t last = std::max(document.Dots - 1, 0);
    start = std::clamp(start, 0, last);
    end = std::clamp(end, start, last);
    if (target.Member < 0) {
        node.WaveSelected = true;
        node.SelectStart = start;
        node.SelectEnd = end;
        return;
    }
    const auto member = static_cast<std::size_t>(target.Member);
    node.MemberWaveSelected[member] = true;
    node.MemberSelectStart[member] = start;
    node.MemberSelectEnd[member] = end;
}

void SelectListRow(DigitDocument& document, DigitTarget target) {
    SelectSpan(document, target, 0, document.Dots - 1);
    DigitNode& node = NodeAt(document, target.Node);
    if (target.Member < 0)
        node.ListSelected = true;
    else
        node.MemberListSelected[static_cast<std::size_t>(target.Member)] = true;
}

void DeselectTarget(DigitDocument& document, DigitTarget target) {
    DigitNode& node = NodeAt(document, target.Node);
    if (target.Member < 0) {
        node.WaveSelected = node.ListSelected = false;
        return;
    }
    const auto member = static_cast<std::size_t>(target.Member);
    node.MemberWaveSelected[member] = node.MemberListSelected[member] = false;
}

void MarkWaveSelection(DigitDocument& document) {
    document.WaveSelection = true;
    document.ListSelection = false;
    document.ValueEnabled = true;
    for (DigitNode& node : document.Nodes) {
        node.ListSelected = false;
        node.MemberListSelected.fill(false);
    }
}

void MarkListSelection(DigitDocument& document) {
    document.WaveSelection = false;
    document.ListSelection = true;
    document.ValueEnabled = true;
}

bool IsSelected(const DigitDocument& document, DigitTarget target) {
    const DigitNode& node = NodeAt(document, target.Node);
    if (target.Member < 0) return bool(node.WaveSelected);
    return bool(node.MemberWaveSelected[static_cast<std::size_t>(target.Member)]);
}

void ShowDigitSelection(std::int16_t index) {
    TheHost().RefreshCommands();
    Paint(index, true, true);
}

void ToggleExpanded(std::int16_t index, std::int16_t node) {
    DigitDocument& document = DigitAt(index);
    ClearSelection(document);
    SetExpanded(document, node, !NodeAt(document, node).Expanded);
    ShowDigitSelection(index);
}

void UndoDigit() {
    if (ActiveDigit().UndoAvailable) ExchangeState(true);
}

void ResumeDigit() {
    if (ActiveDigit().ResumeAvailable) ExchangeState(false);
}

void SelectAllDigit() {
    DigitDocument& document = ActiveDigit();
    if (document.NodeCount == 0) return;
    ClearSelection(document);
    for (const DigitTarget target : document.ListRows)
        SelectSpan(document, target, 0, document.Dots - 1);
    MarkWaveSelection(document);
    ShowDigitSelection(ActiveDigitIndex);
}

void SelectEntireDigit() {
    DigitDocument& document = ActiveDigit();
    const DigitTarget target = TargetAtRow(document, document.ClickRow);
    if (target.Node < 0) return;
    ClearSelection(document);
    SelectSpan(document, target, 0, document.Dots - 1);
    MarkWaveSelection(document);
    ShowDigitSelection(ActiveDigitIndex);
}

void ExpandAllBuses() {
    ExpandAll(true);
}

void CollapseAllBuses() {
    ExpandAll(false);
}
