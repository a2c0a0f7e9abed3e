#include "digital/CountFuncBox.h"

#include "digital/GlobalDigitDefineCode.h"

namespace {

constexpr std::string_view Section = "Tidemark_CountingValue";
constexpr std::array Used = {ValueBox::Start, ValueBox::Increment, ValueBox::First, ValueBox::Last,
                             ValueBox::Interval};
constexpr std::array Fallbacks = {0, 1, 0, 1, 1};  // of each of them

}  // namespace

ValueBoxes OpenCount() {
    ValueBoxes boxes = OpenValueBoxes(Section, SelectedWidth(ActiveDigit()));
    for (std::size_t i = 0; i < Used.size(); ++i)
        LoadValueBox(boxes, Section, Used[i], Fallbacks[i]);
    LeaveValueBoxes(boxes);
    return boxes;
}

DialogEnd ConfirmCount(ValueBoxes& boxes) {
    const DialogEnd end = TakeValueBoxes(boxes, Used);
    if (end != DialogEnd::Done) return end;
    SaveValueBoxes(boxes, Section, Used);
    CountSelection(PatternOf(boxes, DigitOperation::Counting), NumberIn(boxes, ValueBox::First),
                   NumberIn(boxes, ValueBox::Last));
    return end;
}
