#include "digital/ValueBoxes.h"

#include "digital/GlobalDigitDefineCode.h"
#include "digital/RadixText.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/NumberField.h"
#include "platform/Settings.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::string_view RadixKey = "DataType";
// Keys of the settings, in the order of ValueBox.
constexpr std::array<std::string_view, ValueBoxCount> Keys = {
    "ArbValue", "StartValue", "IncrementValue", "StartPos", "EndPos", "CountPos"};

std::size_t IndexOf(ValueBox box) {
    return static_cast<std::size_t>(box);
}

std::int32_t LargestIn(const ValueBoxes& boxes, ValueBox box) {
    if (InRadix(box)) return boxes.MaxValue;
    if (box == ValueBox::Interval) return std::numeric_limits<std::int32_t>::max();
    return boxes.Dots - 1;
}

void PutNumber(ValueBoxes& boxes, ValueBox box, std::int32_t number) {
    boxes.Texts[IndexOf(box)] =
        InRadix(box) ? RadixNumber(number, boxes.Radix) : std::to_string(number);
}

// An empty box is no number below the bound.
void RaiseTo(ValueBoxes& boxes, ValueBox box, std::int32_t lowest) {
    if (TextIn(boxes, box).empty() || NumberIn(boxes, box) >= lowest) return;
    PutNumber(boxes, box, lowest);
}

void HoldAll(ValueBoxes& boxes) {
    for (std::size_t i = 0; i < ValueBoxCount; ++i)
        ChangeValueBox(boxes, static_cast<ValueBox>(i), std::string(boxes.Texts[i]));
}

}  // namespace

bool InRadix(ValueBox box) {
    return box <= ValueBox::Increment;
}

const std::string& TextIn(const ValueBoxes& boxes, ValueBox box) {
    return boxes.Texts[IndexOf(box)];
}

std::int32_t NumberIn(const ValueBoxes& boxes, ValueBox box) {
    const std::string& text = TextIn(boxes, box);
    return InRadix(box) ? RadixValue(text, boxes.Radix) : WholeNumber(text);
}

ValueBoxes OpenValueBoxes(std::string_view section, std::int16_t width) {
    ValueBoxes boxes;
    const double radix = ReadSettingNumber(section, RadixKey, 0.0, 0.0, RadixCount - 1);
    boxes.Radix = Narrow<std::int16_t>(RoundToInt(radix));
    boxes.MaxValue = LargestOf(width);
    boxes.Dots = ActiveDigit().Dots;
    return boxes;
}

void LoadValueBox(ValueBoxes& boxes, std::string_view section, ValueBox box,
                  std::int32_t fallback) {
    const double low = box == ValueBox::Interval ? 1.0 : 0.0;
    PutNumber(boxes, box,
              RoundToInt(ReadSettingNumber(section, Keys[IndexOf(box)], fallback, low,
                                           LargestIn(boxes, box))));
}

void SaveValueBoxes(const ValueBoxes& boxes, std::string_view section,
                    std::span<const ValueBox> saved) {
    SaveSetting(ApplicationTitle, section, RadixKey, std::to_string(boxes.Radix));
    for (const ValueBox box : saved)
        SaveSetting(ApplicationTitle, section, Keys[IndexOf(box)],
                    std::to_string(NumberIn(boxes, box)));
}

void ChangeValueBox(ValueBoxes& boxes, ValueBox box, std::string_view typed) {
    boxes.Texts[IndexOf(box)] = typed;
    const std::int32_t largest = LargestIn(boxes, box);
    if (NumberIn(boxes, box) > largest) PutNumber(boxes, box, largest);
}

void LeaveValueBoxes(ValueBoxes& boxes) {
    HoldAll(boxes);
    RaiseTo(boxes, ValueBox::Last, NumberIn(boxes, ValueBox::First));
    RaiseTo(boxes, ValueBox::Interval, 1);
}

void ChangeValueRadix(ValueBoxes& boxes, std::int16_t radix) {
    const ValueBoxes before = boxes;
    boxes.Radix = radix;
    for (const ValueBox box : {ValueBox::Value, ValueBox::Start, ValueBox::Increment})
        if (!TextIn(before, box).empty()) PutNumber(boxes, box, NumberIn(before, box));
}

void ChangeValueWidth(ValueBoxes& boxes, std::int16_t width) {
    boxes.MaxValue = LargestOf(width);
    HoldAll(boxes);
}

DialogEnd TakeValueBoxes(ValueBoxes& boxes, std::span<const ValueBox> used) {
    const auto empty = [&](ValueBox box) { return TextIn(boxes, box).empty(); };
    if (std::ranges::any_of(used, empty)) return RefuseEmpty();
    LeaveValueBoxes(boxes);
    return DialogEnd::Done;
}

DigitPattern PatternOf(const ValueBoxes& boxes, DigitOperation operation) {
    return {.Operation = operation,
            .Value = NumberIn(boxes, ValueBox::Value),
            .Start = NumberIn(boxes, ValueBox::Start),
            .Increment = NumberIn(boxes, ValueBox::Increment),
            .Interval = std::max(NumberIn(boxes, ValueBox::Interval), 1)};
}

std::string ValueRangeText(const ValueBoxes& boxes) {
    return std::string(PickText("Values 0 to ", "取值范围 0 至 "))
        .append(RadixNumber(boxes.MaxValue, boxes.Radix));
}
