#include "digital/DigitFindFuncBox.h"

#include "digital/DialogAnswers.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitValueFuncBox.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/RadixText.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"

#include <algorithm>
#include <limits>

namespace {

std::int16_t RadixOf(const DigitDocument& document, DigitTarget target) {
    // Members are shown as bits.
    return target.Node < 0 || target.Member >= 0 ? std::int16_t{0}
                                                 : NodeAt(document, target.Node).Radix;
}

DigitTarget ChosenTarget(const DigitDocument& document) {
    return TargetOfName(document, document.FindBoxes.Name);
}

// A value belongs to a row: without one there is none.
void HoldValue(DigitDocument& document) {
    const DigitTarget target = ChosenTarget(document);
    if (target.Node < 0) return document.FindBoxes.Value.clear();
    const std::int16_t radix = RadixOf(document, target);
    const std::int32_t largest = LargestOf(WidthOf(document, target));
    if (RadixValue(document.FindBoxes.Value, radix) > largest)
        document.FindBoxes.Value = RadixNumber(largest, radix);
}

// The mark of an open bus covers its members.
void Mark(DigitDocument& document, DigitTarget target, std::int32_t dot) {
    const DigitNode& node = NodeAt(document, target.Node);
    const bool open = target.Member < 0 && node.Expanded;
    document.EditDot = dot;
    document.EditName = document.FindBoxes.Name;
    document.EditMark = RowMark * (open ? 1 + node.Width : 1);
}

void EditPoint(DigitDocument& document, DigitTarget target) {
    const std::int32_t dot =
        std::clamp(WholeNumber(document.FindBoxes.Dot), 0, std::max(document.Dots - 1, 0));
    const std::int32_t value = RadixValue(document.FindBoxes.Value, RadixOf(document, target));
    BeginEdit(document);
    ExtendSamples(document, target.Node, dot);
    WritePattern(document, target, dot, dot,
                 {.Operation = DigitOperation::Arbitrary, .Value = value});
    Mark(document, target, dot);
    TurnToDot(document, dot);
    EndDigitEdit(ActiveDigitIndex);
}

void FindPoint(DigitDocument& document, DigitTarget target) {
    const std::int32_t dot = WholeNumber(document.FindBoxes.Dot);
    const DigitNode& node = NodeAt(document, target.Node);
    document.FindBoxes.Value.clear();
    if (dot < node.DataLength)
        document.FindBoxes.Value = RadixValueText(
            ValueAt(document, target, dot), RadixOf(document, target), WidthOf(document, target));
    Mark(document, target, dot);
    const bool seen = dot >= document.FirstDot && dot < document.FirstDot + document.VisibleDots;
    const bool turned = !seen && dot < document.Dots && TurnToDot(document, dot);
    if (turned) TheHost().RefreshCommands();
    TheHost().ShowEntries(TagOfDigit(ActiveDigitIndex));
    Paint(ActiveDigitIndex, turned, true);
}

// Turns one use on, with a name in its box, or off.
void Toggle(Flag DigitDocument::*use) {
    DigitDocument& document = ActiveDigit();
    const Flag on = !(document.*use);
    const DigitFindBoxes boxes = document.FindBoxes;
    EndFind(document);
    document.*use = on;
    if (on) {
        document.FindBoxes.Name = boxes.Name;
        document.FindBoxes.Dot = boxes.Dot;
        const DigitTarget clicked = TargetAtRow(document, document.ClickRow);
        if (ChosenTarget(document).Node < 0 && document.NodeCount > 0)
            document.FindBoxes.Name =
                TargetName(document, clicked.Node < 0 ? DigitTarget{.Node = 0} : clicked);
    }
    ShowDigitStatus();
    TheHost().RefreshCommands();
    Paint(ActiveDigitIndex, false, true);
}

}  // namespace

void TogglePointEdit() {
    Toggle(&DigitDocument::PointEditOn);
}

void ToggleFind() {
    Toggle(&DigitDocument::FindOn);
}

void ChangeFindName(DigitDocument& document, std::string_view name) {
    DigitFindBoxes& boxes = document.FindBoxes;
    const std::int16_t before = RadixOf(document, ChosenTarget(document));
    boxes.Name = name;
    if (document.FindOn) return boxes.Value.clear();
    const std::int16_t radix = RadixOf(document, ChosenTarget(document));
    if (radix != before && !boxes.Value.empty())
        boxes.Value = RadixNumber(RadixValue(boxes.Value, before), radix);
    HoldValue(document);
}

void ChangeFindDot(DigitDocument& document, std::string_view typed) {
    const std::int32_t last = std::max(document.Dots - 1, 0);
    document.FindBoxes.Dot =
        HoldDigits(typed, document.PointEditOn ? last : std::numeric_limits<std::int32_t>::max());
    if (document.FindOn) document.FindBoxes.Value.clear();
}

void ChangeFindValue(DigitDocument& document, std::string_view typed) {
    document.FindBoxes.Value = typed;
    HoldValue(document);
}

KeyKind FindValueKeys(const DigitDocument& document) {
    return KeysOfRadix(RadixOf(document, ChosenTarget(document)));
}

void ConfirmFind() {
    DigitDocument& document = ActiveDigit();
    if (!document.PointEditOn && !document.FindOn) return;
    const DigitFindBoxes& boxes = document.FindBoxes;
    if (boxes.Dot.empty() || (document.PointEditOn && boxes.Value.empty()))
        return Complain(PickText("Please input value all!", "输入不能为空"));
    const DigitTarget target = ChosenTarget(document);
    if (target.Node < 0) return;
    if (document.PointEditOn)
        EditPoint(document, target);
    else
        FindPoint(document, target);
}
