#include "digital/ArbitraryValueFuncBox.h"

#include "digital/GlobalDigitDefineCode.h"

namespace {

constexpr std::string_view Section = "Tidemark_ArbitraryValue";
constexpr std::array Used = {ValueBox::Value};

}  // namespace

ValueBoxes OpenArbitraryValue() {
    return OpenValueBoxes(Section, SelectedWidth(ActiveDigit()));
}

DialogEnd ConfirmArbitraryValue(ValueBoxes& boxes) {
    const DialogEnd end = TakeValueBoxes(boxes, Used);
    if (end != DialogEnd::Done) return end;
    SaveValueBoxes(boxes, Section, {});
    WriteSelection(PatternOf(boxes, DigitOperation::Arbitrary));
    return end;
}
