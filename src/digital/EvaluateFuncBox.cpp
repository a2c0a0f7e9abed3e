#include "digital/EvaluateFuncBox.h"

#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"

#include <algorithm>

namespace {

constexpr std::string_view Section = "Tidemark_EvaluateValue";
constexpr std::array CountingBoxes = {ValueBox::First, ValueBox::Last, ValueBox::Start,
                                      ValueBox::Increment, ValueBox::Interval};
constexpr std::array ArbitraryBoxes = {ValueBox::First, ValueBox::Last, ValueBox::Value};

DigitTarget RememberedTarget() {
    return {EvaluateNode, EvaluateIsMember ? EvaluateMember : std::int16_t{-1}};
}

std::span<const ValueBox> BoxesUsedBy(DigitOperation operation) {
    if (operation == DigitOperation::Counting) return CountingBoxes;
    const std::span<const ValueBox> arbitrary = ArbitraryBoxes;
    return operation == DigitOperation::Arbitrary ? arbitrary : arbitrary.first(2);
}

}  // namespace

EvaluateDialog OpenEvaluate() {
    EvaluateDialog dialog;
    dialog.Targets = AllTargets(ActiveDigit());
    dialog.Boxes = OpenValueBoxes(Section, MaxChannels);
    const auto found = std::ranges::find(dialog.Targets, RememberedTarget());
    const auto index = found == dialog.Targets.end() ? 0 : found - dialog.Targets.begin();
    ChooseEvaluateTarget(dialog, Narrow<std::int32_t>(index));

    ValueBoxes& boxes = dialog.Boxes;
    LoadValueBox(boxes, Section, ValueBox::Value, 1);
    LoadValueBox(boxes, Section, ValueBox::Start, 0);
    LoadValueBox(boxes, Section, ValueBox::Increment, 1);
    LoadValueBox(boxes, Section, ValueBox::First, 0);
    LoadValueBox(boxes, Section, ValueBox::Last, boxes.Dots - 1);
    LoadValueBox(boxes, Section, ValueBox::Interval, 1);
    LeaveValueBoxes(boxes);
    return dialog;
}

void ChooseEvaluateTarget(EvaluateDialog& dialog, std::int32_t chosen) {
    if (chosen < 0 || chosen >= std::ssize(dialog.Targets)) return;
    dialog.Chosen = chosen;
    const DigitTarget target = dialog.Targets[static_cast<std::size_t>(chosen)];
    EvaluateNode = target.Node;
    EvaluateIsMember = target.Member >= 0;
    if (EvaluateIsMember) EvaluateMember = target.Member;
    ChangeValueWidth(dialog.Boxes, WidthOf(ActiveDigit(), target));
}

DigitOperation EvaluateOperation() {
    constexpr auto Last = static_cast<std::int32_t>(DigitOperation::Counting);
    return static_cast<DigitOperation>(HoldBetween(EvaluateMode, 0, Last));
}

bool UsesBox(DigitOperation operation, ValueBox box) {
    const std::span<const ValueBox> used = BoxesUsedBy(operation);
    return std::ranges::find(used, box) != used.end();
}

ValueBox SharedBox(DigitOperation operation) {
    return operation == DigitOperation::Arbitrary ? ValueBox::Value : ValueBox::Interval;
}

DialogEnd ConfirmEvaluate(EvaluateDialog& dialog) {
    if (dialog.Targets.empty()) return DialogEnd::Close;
    const DigitOperation operation = EvaluateOperation();
    const DialogEnd end = TakeValueBoxes(dialog.Boxes, BoxesUsedBy(operation));
    if (end != DialogEnd::Done) return end;
    SaveValueBoxes(dialog.Boxes, Section, BoxesUsedBy(operation));
    EvaluateTarget(dialog.Targets[static_cast<std::size_t>(dialog.Chosen)],
                   PatternOf(dialog.Boxes, operation), NumberIn(dialog.Boxes, ValueBox::First),
                   NumberIn(dialog.Boxes, ValueBox::Last));
    return end;
}
