#include "digital/DigitValueFuncBox.h"

#include "digital/DigitFuncCode.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/RadixText.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "kernel/wavecalc.h"
#include "platform/Host.h"

#include <array>

namespace {

constexpr std::int16_t FirstValueTool = 9;  // number of Value 0 in the tool bar

// The channels of a target, most significant first.
struct ChannelList {
    OfMembers<std::uint8_t> Channels{};
    std::int16_t Count = 0;
};

ChannelList ChannelsOf(const DigitDocument& document, DigitTarget target) {
    const DigitNode& node = document.Nodes[static_cast<std::size_t>(target.Node)];
    if (target.Member < 0) return {node.Channels, node.Width};
    ChannelList one;
    one.Channels[0] = node.Channels[static_cast<std::size_t>(target.Member)];
    one.Count = 1;
    return one;
}

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
    const ChannelList list = ChannelsOf(document, target);
    std::int32_t* words = document.DigitSamples.data() + first;
    const std::int32_t count = last - first + 1;
    if (pattern.Operation == DigitOperation::Counting) {
        Counting(words, count, pattern.Start, LargestOf(list.Count), pattern.Increment,
                 pattern.Interval, list.Channels.data(), list.Count);
        return;
    }
    const std::int32_t value = ValueOf(pattern);
    for (std::int16_t k = 0; k < list.Count; ++k)
        WriteChannel(words, count, list.Channels[static_cast<std::size_t>(k)], pattern.Operation,
                     value >> (list.Count - 1 - k) & 1);
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
