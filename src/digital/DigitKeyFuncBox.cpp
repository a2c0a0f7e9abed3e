#include "digital/DigitKeyFuncBox.h"

#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"
#include "platform/Host.h"

#include <algorithm>

// The fields of the rubber band hold the span: its start stays while its end follows the keys.

namespace {

void PointAtCaliper(DigitDocument& document) {
    document.ClickX = static_cast<float>(DotToPixel(document, document.Caliper + 0.5));
    const int row = document.ClickRow - document.FirstRow;
    document.ClickY = static_cast<float>((row + 0.5) * RowHeight);
}

}  // namespace

void StepCaliperByKey(std::int16_t index, std::int32_t dot) {
    PutCaliper(index, dot);
    PointAtCaliper(DigitAt(index));
}

void StepRowByKey(std::int16_t index, std::int32_t step, ListAdd add) {
    StepListRow(index, step, add);
    PointAtCaliper(DigitAt(index));
}

void ExtendSpan(std::int16_t index, std::int32_t dots, std::int32_t rows) {
    DigitDocument& document = DigitAt(index);
    const auto lastRow = static_cast<std::int32_t>(std::ssize(document.ListRows)) - 1;
    if (lastRow < 0 || document.SelectDrag) return;
    const bool goesOn = document.WaveSelection && document.SelectEndDot == document.Caliper &&
                        document.SelectEndRow == document.ClickRow;
    if (!goesOn) {
        document.SelectStartDot = document.SelectEndDot = document.Caliper;
        document.SelectStartRow = document.SelectEndRow =
            Narrow<std::int16_t>(std::clamp(std::int32_t{document.ClickRow}, 0, lastRow));
    }
    document.SelectEndDot = std::clamp(document.SelectEndDot + dots, 0, document.Dots - 1);
    const std::int32_t row = std::clamp(document.SelectEndRow + rows, 0, lastRow);
    document.SelectEndRow = document.ClickRow = Narrow<std::int16_t>(row);
    ClearSelection(document);
    const auto [first, last] = std::minmax(document.SelectStartDot, document.SelectEndDot);
    const auto [top, bottom] = std::minmax(document.SelectStartRow, document.SelectEndRow);
    for (std::int32_t each = top; each <= bottom; ++each)
        SelectSpan(document, TargetAtRow(document, each), first, last);
    MarkWaveSelection(document);
    BringRowIntoView(document, row);
    TheHost().RefreshCommands();
    PutCaliper(index, document.SelectEndDot, true);
    PointAtCaliper(document);
}
