#include "digital/DigitValueFuncBox.h"

#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/RadixText.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "kernel/wavecalc.h"
#include "platform/Host.h"

#include <span>

namespace {

constexpr std::int16_t FirstValueTool = 9;  // number of Value 0 in the tool bar

void WriteChannel(std::int32_t* words, std::int32_t count, std::uint8_t channel,
                  DigitOperation operation, std::int32_t bit) {
    const std::int32_t mask = LargestOf(MaxChannels) - (1 << channel);
    switch (operation) {
        case DigitOperation::Invert:
            Dealinv(words, count, channel, mask);
            break;
        case DigitOperation::Clock:
            DealClock(words, count, channel, mask);
            break;
        default:
            Dealvalue(words, count, channel, mask, bit);
    }
}

std::int32_t ValueOf(const DigitPattern& pattern) {
    if (pattern.Operation == DigitOperation::Arbitrary) return pattern.Value;
    return pattern.Operation == DigitOperation::Value1 ? -1 : 0;
}

void EndSelectionEdit(DigitDocument& document) {
    ClearSelection(document);
    EndDigitEdit(ActiveDigitIndex);
}

}  // namespace

void WritePattern(DigitDocument& document, DigitTarget target, std::int32_t first,
                  std::int32_t last, const DigitPattern& pattern) {
    const std::span<const std::uint8_t> channels = ChannelsOf(document, target);
    const std::int16_t width = WidthOf(document, target);
    std::int32_t* words = document.DigitSamples.data() + first;
    const std::int32_t count = last - first + 1;
    if (pattern.Operation == DigitOperation::Counting) {
        Counting(words, count, pattern.Start, LargestOf(width), pattern.Increment, pattern.Interval,
                 channels.data(), width);
        return;
    }
    const std::int32_t value = ValueOf(pattern);
    std::int16_t bit = width;
    for (const std::uint8_t channel : channels)
        WriteChannel(words, count, channel, pattern.Operation, value >> --bit & 1);
}

void WriteSelection(const DigitPattern& pattern) {
    DigitDocument& document = ActiveDigit();
    if (!document.ValueEnabled) return;
    BeginEdit(document);
    RefreshSampleCount(document);
    for (const SelectedSpan& span : SelectedSpans(document))
        WritePattern(document, span.Target, span.Start, span.End, pattern);
    EndSelectionEdit(document);
}

void CountSelection(const DigitPattern& pattern, std::int32_t first, std::int32_t last) {
    DigitDocument& document = ActiveDigit();
    if (!document.ValueEnabled) return;
    BeginEdit(document);
    for (const SelectedSpan& span : SelectedSpans(document)) {
        ExtendSamples(document, span.Target.Node, last);
        WritePattern(document, span.Target, first, last, pattern);
    }
    EndSelectionEdit(document);
}

void EvaluateTarget(DigitTarget target, const DigitPattern& pattern, std::int32_t first,
                    std::int32_t last) {
    DigitDocument& document = ActiveDigit();
    if (target.Node < 0 || target.Node >= document.NodeCount) return;
    BeginEdit(document);
    ExtendSamples(document, target.Node, last);
    WritePattern(document, target, first, last, pattern);
    EndDigitEdit(ActiveDigitIndex);
}

std::int16_t SelectedWidth(const DigitDocument& document) {
    const std::vector<SelectedSpan> spans = SelectedSpans(document);
    return spans.empty() ? std::int16_t{1} : WidthOf(document, spans.front().Target);
}

void RunValueTool(std::int16_t number) {
    if (!ActiveDigit().ValueEnabled) {
        Complain(PickText("Please select the valid digital waveform", "请选择有效的数字波形"));
        return;
    }
    RunValueOperation(static_cast<DigitOperation>(number - FirstValueTool));
}

void RunValueOperation(DigitOperation operation) {
    switch (operation) {
        case DigitOperation::Arbitrary:
            TheHost().RunDialog("ArbitraryValueFrm", 0);
            break;
        case DigitOperation::Counting:
            TheHost().RunDialog("CountFrm", 0);
            break;
        default:
            WriteSelection({.Operation = operation});
    }
}
